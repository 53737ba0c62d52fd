// Archives and what only the host has for their tests: other programs that know them, a disk that can be
// full, names that differ in case, permissions.
#include <filesystem>
#include <fstream>
#include <random>
#include <set>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include "backup/ZipFixture.h"
#include "support/CannotPlay.h"
#include "support/Raised.h"

namespace test {

using Paths = std::vector<std::string>;
using platform::Status;

TEST_F(ZipTest, ArchivesOfOtherProgramsAreRead) {
  computer.WriteFile("C:\\Source\\docs\\readme.txt", Words(50'000));
  computer.WriteFile("C:\\Source\\\xC3\xA4.txt", "umlaut");
  computer.MakeLink("C:\\Source\\link.txt", "C:\\Source\\docs\\readme.txt");
  computer.MakeFolder("C:\\Backup");
  auto native = [this](const std::string& path) { return Quoted(computer.Native(path)); };
  std::string source = "cd " + native("C:\\Source") + " && ";
  for (const std::string& command : {source + "zip -qry " + native(kArchive) + " .",
                                     source + "7z a -bso0 -bsp0 -tzip -snl " + native(kArchive) + " ."}) {
    SCOPED_TRACE(command);
    computer.Remove(kArchive);
    ASSERT_TRUE(RunProgram(command).ends_with("\n0"));
    Paths names = List();
    EXPECT_EQ(listed["docs\\readme.txt"], 50'000);
    EXPECT_EQ(listed["\xC3\xA4.txt"], 6);
    platform::Moment modified = computer.Files().Look("C:\\Source\\docs\\readme.txt").modified;
    EXPECT_NEAR(static_cast<double>(dates["docs\\readme.txt"]), static_cast<double>(modified), 2e9);
    computer.Remove("C:\\Out");
    EXPECT_EQ(Extract("C:\\Out"), 526);
    EXPECT_NE(Why().find("1 of "), std::string::npos);
    EXPECT_NE(Why().find("link.txt: it is a link."), std::string::npos) << Why();
    EXPECT_EQ(computer.List("C:\\Out"), (Paths{"readme.txt", "\xC3\xA4.txt"}));
    EXPECT_EQ(computer.ReadFile("C:\\Out\\readme.txt"), Words(50'000));
    // Its names are no full paths.
    EXPECT_EQ(Restore(), 526);

    // Adding leaves what the other program wrote.
    ASSERT_EQ(Store({"C:\\Source\\docs\\readme.txt"}), 0);
    ExpectSound();
    EXPECT_EQ(List().size(), names.size() + 1);
  }
  ASSERT_TRUE(RunProgram(source + "zip -q -P secret " + native("C:\\Backup\\locked.zip") + " docs/readme.txt")
                  .ends_with("\n0"));
  zip.ZipFilename = "C:\\Backup\\locked.zip";
  EXPECT_EQ(Extract("C:\\Secret"), 526);
  EXPECT_NE(Why().find("it is encrypted"), std::string::npos);
  EXPECT_TRUE(computer.List("C:\\Secret").empty());
}

TEST_F(ZipTest, ARealFullDiskIsToldAndHarmsNothing) {
  computer.WriteFile("C:\\Data\\a.txt", "a");
  computer.MakeFolder("C:\\Backup");
  std::string folder = computer.Native("C:\\Backup");
  if (geteuid() != 0 || mount("none", folder.c_str(), "tmpfs", 0, "size=2m") != 0)
    CANNOT_PLAY("no small disk can be mounted");
  {
    EXPECT_EQ(Store({"C:\\Data\\a.txt"}), 0);
    std::string before = computer.ReadFile(kArchive);
    std::mt19937 random(5);
    std::string noise(4'000'000, '\0');
    for (char& c : noise) c = static_cast<char>(random());
    computer.WriteFile("C:\\Data\\noise.bin", noise);
    EXPECT_EQ(Raised([&] { Store({"C:\\Data\\noise.bin"}); }), 61);
    EXPECT_EQ(computer.ReadFile(kArchive), before);
    EXPECT_EQ(BackupFolder().size(), 1u);
    // An extraction onto the full disk, and one that the drive has no room for at all.
    zip.ZipFilename = "C:\\Data\\noise.zip";
    EXPECT_EQ(Store({"C:\\Data\\noise.bin", "C:\\Data\\a.txt"}), 0);
    EXPECT_EQ(Extract("C:\\Backup\\Out"), 526);
    EXPECT_EQ(computer.List("C:\\Backup\\Out"), Paths{"a.txt"});
  }
  // The machine still holds folders of it.
  EXPECT_EQ(umount2(folder.c_str(), MNT_DETACH), 0);
}

// Names that other programs have to get along with, each once.
TEST_F(ZipTest, OtherProgramsAcceptEveryName) {
  const char* names[] = {"plain.txt",
                         "\xC3\xA4\xE6\x97\xA5\xF0\x9F\xA7\xB9.txt",
                         "\xED\xA0\x80.txt",  // an encoded half of a pair
                         "\xC0\xAF.txt",
                         "\xF4\x90\x80\x80.txt",
                         "raw \xE9\xFF.txt",
                         "\xEF\xBF\xBF.txt",
                         "tab\there",
                         "line\nend",
                         "\x01\x7F",
                         "a'b\"c`$(d)",
                         "-rf",
                         " blank ",
                         "semi;colon,*?.txt",
                         "e\xCC\x81.txt",
                         "\xE2\x80\xAEtxt.exe"};
  computer.MakeFolder("C:\\Data");
  Paths paths;
  for (const char* name : names) {
    std::ofstream(computer.Native("C:\\Data") + "/" + name) << name;
    paths.push_back(std::string("C:\\Data\\") + name);
  }
  // Added to, so that the directory is read and written once more; and with an entry that is renamed.
  std::vector<std::string> first(paths.begin(), paths.begin() + 4);
  ASSERT_EQ(Store(first), 0);
  std::ofstream(computer.Native("C:\\Data") + "/\xED\xA0\x80.txt") << "another";
  ASSERT_EQ(Store(paths), 0);
  ExpectSound();
  computer.Remove("C:\\Data");
  ASSERT_EQ(Restore(), 0) << Why();
  for (const char* name : names) {
    std::ifstream file(computer.Native("C:\\Data") + "/" + name, std::ios::binary);
    std::string content((std::istreambuf_iterator<char>(file)), {});
    EXPECT_EQ(content, name == std::string("\xED\xA0\x80.txt") ? "another" : name);
  }
}

// A disk that takes names for the same that differ only in case.
class OneCase : public WatchedFiles {
 public:
  using WatchedFiles::WatchedFiles;
  Status RenameExactly(std::string_view from, std::string_view to) override {
    return Rename(from, to, false);
  }
};

TEST_F(ZipTest, NamesThatDifferInCaseAloneAllComeBack) {
  const std::map<std::string, std::string> files = {
      {"a.tmp", "small"},
      {"A.tmp", "capital"},
      {"\xCE\xBB\xCF\x8C\xCE\xB3\xCE\xBF\xCF\x82.tmp", "final"},
      {"\xCE\xBB\xCF\x8C\xCE\xB3\xCE\xBF\xCF\x83.tmp", "final"}};
  computer.MakeFolder("C:\\Data");
  std::string folder = computer.Native("C:\\Data") + "/";
  Paths paths, names;
  for (const auto& [name, content] : files) {
    std::ofstream(folder + name) << content;
    paths.push_back("C:\\Data\\" + name);
    names.push_back(name);
  }
  backup::BackupPromise promise;
  ASSERT_EQ(Store(paths, promise), 0);
  for (const std::string& path : paths) EXPECT_TRUE(Holds(promise, path)) << path;
  ExpectSound();
  computer.Remove("C:\\Data");
  ASSERT_EQ(Restore(), 0) << Why();
  EXPECT_EQ(computer.List("C:\\Data"), names);
  for (const auto& [name, content] : files) EXPECT_EQ(computer.ReadFile("C:\\Data\\" + name), content);
  // One alone, beside the other.
  std::filesystem::remove(folder + "A.tmp");
  ASSERT_EQ(Restore(), 0) << Why();
  EXPECT_EQ(computer.ReadFile("C:\\Data\\A.tmp"), "capital");
  EXPECT_EQ(computer.ReadFile("C:\\Data\\a.tmp"), "small");
  EXPECT_EQ(InBin(), 0);

  computer.Remove("C:\\Data");
  OneCase disk(computer.Machine());
  ASSERT_EQ(Restore(), 0) << Why();
  std::multiset<std::string> contents;
  for (const std::string& name : computer.List("C:\\Data"))
    contents.insert(computer.ReadFile("C:\\Data\\" + name));
  EXPECT_EQ(contents, (std::multiset<std::string>{"capital", "final", "final", "small"}));
  EXPECT_EQ(InBin(), 0);
}

TEST_F(ZipTest, AnArchiveIsItsOwnersAndPermissionsComeBack) {
  namespace fs = std::filesystem;
  const std::map<std::string, unsigned> modes = {{"C:\\Data\\key", 0600},
                                                 {"C:\\Data\\shared", 0664},
                                                 {"C:\\Data\\run", 0751},
                                                 {"C:\\Data\\fixed", 0440}};
  Paths paths;
  auto mode = [this](const std::string& path) {
    return static_cast<unsigned>(fs::status(computer.Native(path)).permissions()) & 07777;
  };
  for (const auto& [path, bits] : modes) {
    computer.WriteFile(path);
    fs::permissions(computer.Native(path), static_cast<fs::perms>(bits));
    paths.push_back(path);
  }
  fs::permissions(computer.Native("C:\\Data\\run"), static_cast<fs::perms>(04751));
  mode_t mask = umask(0);
  ASSERT_EQ(Store(paths), 0);
  EXPECT_EQ(mode(kArchive), 0600u);
  ASSERT_EQ(Store({paths[0]}), 0);
  EXPECT_EQ(mode(kArchive), 0600u);
  computer.Remove("C:\\Data");
  ASSERT_EQ(Restore(), 0) << Why();
  umask(mask);
  for (const auto& [path, bits] : modes) EXPECT_EQ(mode(path), bits) << path;
  // An entry without such bits is nobody else's business.
  computer.WriteFile(kArchive, MakeZip({{.name = "C:/Data/other", .content = "x"}}));
  ASSERT_EQ(Restore(), 0) << Why();
  EXPECT_EQ(mode("C:\\Data\\other"), 0600u);
}

}  // namespace test
