// Archives and what only the host has for their tests: other programs that know them, a disk that can be
// full, processes that can be killed at a chosen moment.
#include <csignal>
#include <random>
#include <sys/mount.h>
#include <unistd.h>

#include "backup/ZipFixture.h"
#include "support/ChildProcess.h"
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
    GTEST_SKIP() << "no small disk can be mounted";
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

// The disk only changes in a write and in the renaming, so a kill before each of them stands for all moments.
TEST_F(ZipTest, AKillAtAnyMomentLeavesAReadableArchive) {
  std::mt19937 random(3);
  std::string noise(2'500'000, '\0');
  for (char& c : noise) c = static_cast<char>(random());
  computer.WriteFile("C:\\Data\\first", noise);
  computer.WriteFile("C:\\Data\\second", noise);
  computer.WriteFile("C:\\Data\\third", "third");
  ASSERT_EQ(Store({"C:\\Data\\first"}), 0);
  std::string before = computer.ReadFile(kArchive);
  int last = 0;
  for (bool killed = true; killed; ++last) {
    SCOPED_TRACE(last);
    ChildProcess child([&] {
      WatchedFiles watched(computer.Machine());
      int calls = 0;
      auto step = [&] {
        if (calls++ == last) raise(SIGKILL);
        return Status::Done;
      };
      watched.onWrite = [&](const std::string&, std::size_t) { return step(); };
      watched.onRename = [&](std::string_view, std::string_view) { return step(); };
      return std::to_string(Store({"C:\\Data\\second", "C:\\Data\\third"}));
    });
    std::string result = child.Result();
    killed = result == "killed by signal 9";
    if (killed) {
      ASSERT_EQ(computer.ReadFile(kArchive), before);
    } else {
      EXPECT_EQ(result, "0");
    }
    ExpectSound();
  }
  EXPECT_GE(last, 6);
  EXPECT_EQ(List().size(), 3u);
  // Each kill has left what it had written so far.
  EXPECT_EQ(BackupFolder().size(), static_cast<std::size_t>(last));
}

}  // namespace test
