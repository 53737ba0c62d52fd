// What an archive survives, and what it can't do.
#include <chrono>
#include <filesystem>
#include <fstream>
#include <random>

#include "backup/ZipFixture.h"
#include "support/Raised.h"

namespace test {

using Paths = std::vector<std::string>;
using platform::Status;

TEST_F(ZipTest, AFailureWhileWritingLeavesTheArchiveThatWasThere) {
  computer.WriteFile("C:\\Data\\a.txt", "a");
  ASSERT_EQ(Store({"C:\\Data\\a.txt"}), 0);
  std::string before = computer.ReadFile(kArchive);
  std::mt19937 random(5);
  std::string noise(3'000'000, '\0');
  for (char& c : noise) c = static_cast<char>(random());
  computer.WriteFile("C:\\Data\\noise.bin", noise);
  auto store = [&] { Store({"C:\\Data\\noise.bin"}); };
  {
    // A disk that is full after so many blocks.
    WatchedFiles watched(computer.Machine());
    for (int room = 0; room < 4; ++room) {
      int writes = 0;
      watched.onWrite = [&](const std::string&, std::size_t) {
        return ++writes > room ? Status::Full : Status::Done;
      };
      EXPECT_EQ(Raised(store), 61);
      EXPECT_EQ(computer.ReadFile(kArchive), before);
      EXPECT_EQ(BackupFolder().size(), 1u);
    }
    watched.onWrite = nullptr;
    watched.onRename = [](std::string_view, std::string_view) { return Status::Denied; };
    EXPECT_EQ(Raised(store), 70);
    watched.onRename = nullptr;
    watched.onOpen = [](std::string_view, platform::OpenMode mode) {
      return mode == platform::OpenMode::CreateNew ? Status::Denied : Status::Done;
    };
    EXPECT_EQ(Raised(store), 70);
    watched.onOpen = nullptr;
    // Somebody else has written to the archive meanwhile.
    watched.onRead = [&](const std::string& path, std::uint64_t) {
      if (path.ends_with("noise.bin")) computer.SetModified(kArchive, 77);
      return Status::Done;
    };
    EXPECT_EQ(Raised(store), 75);
  }
  EXPECT_EQ(computer.ReadFile(kArchive), before);
  EXPECT_EQ(BackupFolder().size(), 1u);

  computer.WriteFile(kArchive, before.substr(0, before.size() - 5));
  EXPECT_EQ(Raised(store), 321);
  EXPECT_EQ(computer.ReadFile(kArchive), before.substr(0, before.size() - 5));
  computer.Remove("C:\\Backup");
  computer.WriteFile("C:\\Backup", "no folder");
  EXPECT_EQ(Raised(store), 76);
  zip.ZipFilename = "Backup.zip";
  EXPECT_EQ(Raised(store), 52);
}

TEST_F(ZipTest, LeftoversOfKilledWritersGoAfterADay) {
  platform::Moment now = std::chrono::duration_cast<std::chrono::nanoseconds>(
                             std::chrono::system_clock::now().time_since_epoch())
                             .count();
  auto file = [&](const std::string& name, int hours) {
    computer.WriteFile("C:\\Backup\\" + name);
    computer.SetModified("C:\\Backup\\" + name, now - hours * 3'600'000'000'000);
  };
  file("Backup Lumaro 1.zip.AB12CD.brasmir", 25);
  file("Backup Lumaro 2.zip.AB12CD.brasmir", 23);
  file("AB12CD.brasmir", 25);
  file("notes.brasmir", 1000);
  file("Backup Lumaro 1.zip", 1000);
  computer.WriteFile("C:\\Data\\a.txt", "a");
  ASSERT_EQ(Store({"C:\\Data\\a.txt"}), 0);
  EXPECT_EQ(BackupFolder(),
            (Paths{"AB12CD.brasmir", "Backup Brasmir 11.17.2026 22.46.09.zip", "Backup Lumaro 1.zip",
                   "Backup Lumaro 2.zip.AB12CD.brasmir", "notes.brasmir"}));
}

TEST_F(ZipTest, ADamagedArchiveIsToldAndWritesNothingWrong) {
  std::map<std::string, std::string> files = {{"C:\\Data\\a.txt", "first content"},
                                              {"C:\\Data\\b\\b.txt", Words(3000)},
                                              {"C:\\Data\\\xC3\xA4.txt", "third"}};
  Paths paths;
  for (const auto& [path, content] : files) {
    computer.WriteFile(path, content);
    computer.SetModified(path, 1'700'000'000'000'000'000);
    paths.push_back(path);
  }
  ASSERT_EQ(Store(paths), 0);
  std::string sound = computer.ReadFile(kArchive);
  // Either all is well, or it is told; what is written is always right, and nothing else is.
  auto check = [&](const std::string& archive) {
    computer.Remove("C:\\Data");
    computer.WriteFile(kArchive, archive);
    long result = Restore();
    EXPECT_TRUE(result == 0 || result == 526);
    std::size_t there = 0;
    for (const auto& [path, content] : files) {
      if (!computer.Exists(path)) continue;
      ++there;
      EXPECT_EQ(computer.ReadFile(path), content);
      EXPECT_EQ(computer.Files().Look(path).modified, 1'700'000'000'000'000'000);
    }
    EXPECT_TRUE(result == 526 || there == files.size());
    std::size_t found = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(computer.Native("C:\\")))
      if (entry.is_regular_file() && entry.path().generic_string().find("/Backup/") == std::string::npos)
        ++found;
    EXPECT_EQ(found, there);
    return result;
  };
  EXPECT_EQ(check(sound), 0);
  for (std::size_t length = 0; length < sound.size(); length += length < sound.size() - 300 ? 37 : 1) {
    SCOPED_TRACE("cut at " + std::to_string(length));
    EXPECT_EQ(check(sound.substr(0, length)), 526);
    EXPECT_NE(zip.ListContents(), 0);
  }
  int told = 0, flips = 0;
  for (std::size_t place = 0; place < sound.size(); place += place < sound.size() - 500 ? 11 : 1) {
    SCOPED_TRACE("flipped at " + std::to_string(place));
    std::string flipped = sound;
    flipped[place] = static_cast<char>(flipped[place] ^ (place % 3 == 0 ? 0x80 : 0x01));
    ++flips;
    told += check(flipped) == 526;
    if (HasFailure()) break;
  }
  // What goes unnoticed are bytes that say nothing: of the local headers' copies, of versions and disk
  // numbers.
  EXPECT_GT(told, flips / 2);
}

TEST_F(ZipTest, HostileNamesAreRefusedOneByOne) {
  Paths hostile = {"../up.txt",  "a/../../up.txt",   "/root.txt", "//server/share/x.txt",
                   "..\\up.txt", "a/./b.txt",        "a//b.txt",  "C:/../up.txt",
                   "",           "\\\\?\\C:\\x.txt", "C:/a/.."};
  // Where they are plain names, they are no danger.
  if (computer.Files().HasSpecialNames())
    for (const char* name : {"C:/", "C:relative.txt", "file.txt:stream", "C:/a.txt:s", "a/NUL", "con.txt",
                             "C:/com1/x.txt", "1:/x.txt", "lpt\xC2\xB9.txt"})
      hostile.push_back(name);
  std::vector<RawEntry> entries;
  for (const std::string& name : hostile) entries.push_back({.name = name, .content = "hostile"});
  entries.push_back({.name = "C:/Good/good.txt", .content = "good"});
  entries.push_back({.name = "link", .content = "C:/Good", .system = 3, .attributes = 0120777u << 16});
  entries.push_back({.name = "pipe", .content = "", .system = 3, .attributes = 0010644u << 16});
  entries.push_back({.name = "C:/Good/junction", .content = "", .attributes = 0x410});
  computer.WriteFile(kArchive, MakeZip(entries));
  auto nativeFiles = [&] {
    std::vector<std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(computer.Root()))
      if (!entry.is_directory()) files.push_back((entry.path().filename()).string());
    return files.size();
  };
  std::size_t before = nativeFiles();
  std::string total = std::to_string(entries.size());

  EXPECT_EQ(Extract("C:\\Out\\Inner"), 526);
  // "C:/" stands for a folder and gives nothing; it is refused as well where it can be no folder's name.
  EXPECT_EQ(Why().substr(0, 8 + total.size()), std::to_string(entries.size() - 1) + " of " + total + " f")
      << Why();
  EXPECT_EQ(computer.List("C:\\Out\\Inner"), Paths{"good.txt"});
  EXPECT_EQ(nativeFiles(), before + 1);

  EXPECT_EQ(Restore(), 526);
  EXPECT_EQ(computer.List("C:\\Good"), Paths{"good.txt"});
  EXPECT_EQ(nativeFiles(), before + 2);
  EXPECT_FALSE(computer.Exists("C:\\Good\\junction"));
}

TEST_F(ZipTest, BombsAreRefused) {
  // An entry that holds more than it says.
  computer.WriteFile(kArchive,
                     MakeZip({{.name = "C:/Out/a.txt", .content = Words(100'000), .declaredSize = 10},
                              {.name = "C:/Out/b.txt", .content = "b"}}));
  EXPECT_EQ(Restore(), 526);
  EXPECT_EQ(computer.List("C:\\Out"), Paths{"b.txt"});
  // Entries that share their bytes.
  std::vector<RawEntry> entries = {{.name = "C:/Out/0.bin", .content = Words(100'000)}};
  for (int i = 1; i < 50; ++i)
    entries.push_back({.name = "C:/Out/" + std::to_string(i), .content = "", .sharedWith = 0});
  computer.WriteFile(kArchive, MakeZip(entries));
  computer.Remove("C:\\Out");
  EXPECT_EQ(Restore(), 526);
  EXPECT_NE(Why().find("share their bytes"), std::string::npos);
  EXPECT_FALSE(computer.Exists("C:\\Out"));
  // Entries that say that they hold more than there is room for.
  entries.clear();
  for (int i = 0; i < 2000; ++i)
    entries.push_back({.name = "C:/Out/" + std::to_string(i), .content = "x", .declaredSize = 0xFFFFFFF0});
  computer.WriteFile(kArchive, MakeZip(entries));
  EXPECT_EQ(Restore(), 526);
  EXPECT_NE(Why().find("enough free space"), std::string::npos) << Why();
  EXPECT_FALSE(computer.Exists("C:\\Out"));
  // An honest file of one letter packs to a thousandth.
  computer.Remove(kArchive);
  computer.WriteFile("C:\\Data\\letters", std::string(20'000'000, 'a'));
  ASSERT_EQ(Store({"C:\\Data\\letters"}), 0);
  computer.Remove("C:\\Data");
  EXPECT_EQ(Restore(), 0) << Why();
  EXPECT_EQ(computer.Files().Look("C:\\Data\\letters").size, 20'000'000u);
}

TEST_F(ZipTest, AMissingArchiveAndNoArchiveAreTold) {
  EXPECT_EQ(Restore(), 526);
  EXPECT_EQ(Why(), std::string("The archive ") + kArchive + " isn't there.");
  EXPECT_EQ(zip.ListContents(), 526);
  computer.WriteFile(kArchive, "this is no archive");
  EXPECT_EQ(Restore(), 526);
  EXPECT_NE(Why().find("is damaged or not a ZIP archive"), std::string::npos);
  EXPECT_EQ(zip.ListContents(), 527);
  computer.Remove(kArchive);
  computer.WriteFile("C:\\Data\\other.zip", MakeZip({{.name = "C:/Data/x", .content = "x"}}));
  computer.MakeLink(kArchive, "C:\\Data\\other.zip");
  EXPECT_EQ(Restore(), 526);
  EXPECT_FALSE(computer.Exists("C:\\Data\\x"));
  computer.Remove(kArchive);
  computer.MakeFolder(kArchive);
  EXPECT_EQ(Restore(), 526);
  // Any control tells what the last failure of any other was.
  backup::AbaleZip another;
  EXPECT_EQ(another.ErrorDescription(526), Why());
}

}  // namespace test
