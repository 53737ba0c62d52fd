// What a restore and an extraction must never do to what lies there.
#include <algorithm>

#include "backup/ZipFixture.h"
#include "platform/Guard.h"

namespace test {

using Paths = std::vector<std::string>;
using platform::Status;

TEST_F(ZipTest, AFileThatCannotTakeItsPlaceLeavesThePresentOneThere) {
  const std::string path = "C:\\Data\\a.txt";
  computer.WriteFile(path, "stored");
  computer.WriteFile("C:\\Data\\b.txt", "b");
  ASSERT_EQ(Store({path, "C:\\Data\\b.txt"}), 0);
  for (bool canLink : {true, false})
    for (std::uint32_t attributes : {0u, 0u + platform::kReadOnly}) {
      SCOPED_TRACE(canLink);
      computer.SetAttributes(path, 0);
      computer.Remove("C:\\Data");
      computer.WriteFile(path, "present");
      computer.SetAttributes(path, attributes);
      WatchedFiles watched(computer.Machine());
      const auto before = InBin();
      bool refuse = true;
      watched.onRename = [&](std::string_view from, std::string_view to) {
        return refuse && to == path && from.ends_with(".brasmir") ? Status::Denied : Status::Done;
      };
      watched.onLink = [&](std::string_view, std::string_view) {
        return canLink ? Status::Done : Status::Failed;
      };
      EXPECT_EQ(Restore(), 526);
      EXPECT_EQ(Why(), "1 of 2 files could not be restored. The first is C:\\Data\\a.txt: access is denied.");
      EXPECT_EQ(computer.List("C:\\Data"), (Paths{"a.txt", "b.txt"}));
      EXPECT_EQ(computer.ReadFile(path), "present");
      EXPECT_EQ(computer.GetAttributes(path) & platform::kReadOnly, attributes);
      EXPECT_EQ(InBin(), before);

      refuse = false;
      if (!canLink) computer.SetAttributes(path, 0);
      EXPECT_EQ(Restore(), 0) << Why();
      EXPECT_EQ(computer.List("C:\\Data"), (Paths{"a.txt", "b.txt"}));
      EXPECT_EQ(computer.ReadFile(path), "stored");
      EXPECT_EQ(InBin(), before + 1);
    }
}

TEST_F(ZipTest, WhatIsWrittenIsOnTheDiskBeforeItTakesItsPlace) {
  Paths paths;
  for (int i = 0; i < 9; ++i) {
    paths.push_back("C:\\Data\\" + std::to_string(i));
    computer.WriteFile(paths.back());
  }
  ASSERT_EQ(Store(paths), 0);
  computer.Remove("C:\\Data");
  WatchedFiles watched(computer.Machine());
  watched.onRename = [&](std::string_view, std::string_view) {
    EXPECT_EQ(watched.flushes, 9);
    return Status::Done;
  };
  EXPECT_EQ(Restore(), 0);
  EXPECT_EQ(computer.List("C:\\Data").size(), 9u);
}

TEST_F(ZipTest, LeftoversOfARestoreThatWasKilledAreCleared) {
  computer.WriteFile("C:\\Data\\a.txt", "stored");
  ASSERT_EQ(Store({"C:\\Data\\a.txt"}), 0);
  for (const char* name : {"a.txt.1A2B3C.brasmir", "b.txt.1A2B3C.brasmir", "a.txt.brasmir"})
    computer.WriteFile(std::string("C:\\Data\\") + name);
  computer.Remove("C:\\Data\\a.txt");
  EXPECT_EQ(Restore(), 0) << Why();
  EXPECT_EQ(computer.List("C:\\Data"), (Paths{"a.txt", "a.txt.brasmir", "b.txt.1A2B3C.brasmir"}));
}

#ifndef _WIN32  // where nobody can remove what is being written
// A folder that goes, or turns into a link, while its files are being written.
TEST_F(ZipTest, AFolderThatCannotBeLookedIntoEndsItsFiles) {
  computer.WriteFile("C:\\Data\\a.txt", "a");
  ASSERT_EQ(Store({"C:\\Data\\a.txt"}), 0);
  computer.MakeFolder("C:\\Elsewhere");
  for (bool extracts : {true, false}) {
    computer.Remove("C:\\Out");
    computer.Remove("C:\\Data");
    const std::string folder = extracts ? "C:\\Out" : "C:\\Data";
    WatchedFiles watched(computer.Machine());
    watched.onWrite = [&](const std::string&, std::size_t) {
      computer.Remove(folder);
      computer.MakeLink(folder, "C:\\Elsewhere");
      return Status::Done;
    };
    EXPECT_EQ(extracts ? Extract(folder) : Restore(), 526);
    EXPECT_TRUE(computer.List("C:\\Elsewhere").empty());
  }
}

#endif

TEST_F(ZipTest, ManyEntriesOfOnePathCostNoMoreThanOthers) {
  constexpr int kEntries = 1500;
  std::vector<RawEntry> entries;
  for (int i = 0; i < kEntries; ++i)
    entries.push_back({.name = "C:/Data/same", .content = std::to_string(i)});
  computer.WriteFile(kArchive, MakeZip(entries));
  WatchedFiles watched(computer.Machine());
  EXPECT_EQ(Extract("C:\\Out"), 0) << Why();
  EXPECT_EQ(computer.List("C:\\Out\\Data").size(), std::size_t{kEntries});
  EXPECT_LT(watched.looks, 10 * kEntries);
  watched.looks = 0;
  EXPECT_EQ(Restore(), 0) << Why();
  EXPECT_EQ(computer.List("C:\\Data").size(), std::size_t{kEntries});
  EXPECT_EQ(computer.ReadFile("C:\\Data\\same (1500)"), "1499");
  EXPECT_LT(watched.looks, 10 * kEntries);
}

TEST_F(ZipTest, APathOfTooManyPartsIsRefused) {
  auto deep = [](int parts) {
    std::string name = "C:";
    for (int i = 0; i < parts; ++i) name += "/a";
    return name;
  };
  computer.WriteFile(kArchive, MakeZip({{.name = deep(255), .content = "deep"},
                                        {.name = deep(20'000), .content = "deeper"}}));
  EXPECT_EQ(Restore(), 526);
  EXPECT_TRUE(Why().starts_with("1 of 2 files could not be restored.")) << Why();
}

// An archive that somebody else has put among the backups.
TEST_F(ZipTest, ForeignEntriesAreRestoredOnlyAfterAQuestionAndNeverWhereTheyStartPrograms) {
  computer.MakeFolder("C:\\Program Files\\Tidorra\\PlugIns");
  platform::SetInstallFolder("C:\\Program Files\\Tidorra");
  const std::string menu = computer.Machine().Folder(platform::KnownFolder::StartMenu);
  const std::string all = computer.Machine().Folder(platform::KnownFolder::CommonStartMenu);
  Paths forbidden = {
      menu + "\\Programs\\Startup\\evil.lnk", all + "\\Programs\\STARTUP\\evil.lnk",
      "C:\\Users\\Other\\AppData\\Roaming\\Microsoft\\Windows\\Start Menu\\Programs\\Startup\\e.lnk",
      "C:\\Program Files\\Tidorra\\PlugIns\\evil.plg", "c:\\program files\\tidorra\\Kelvish.exe"};
  std::vector<RawEntry> entries = {{.name = "C:/Data/a.txt", .content = "a"}};
  for (std::string path : forbidden) {
    std::replace(path.begin(), path.end(), '\\', '/');
    entries.push_back({.name = path, .content = "evil"});
  }
  computer.WriteFile(kArchive, MakeZip(entries));
  Paths told;
  bool answer = false;
  zip.ConfirmForeign = [&](double count, const Paths& folders) {
    EXPECT_EQ(count, 1);
    told = folders;
    return answer;
  };
  for (bool yes : {false, true}) {
    answer = yes;
    EXPECT_EQ(Restore(), 526);
    EXPECT_EQ(told, Paths{"C:\\Data\\"});
    EXPECT_EQ(computer.Exists("C:\\Data\\a.txt"), yes);
    EXPECT_TRUE(computer.Left(forbidden).empty());
  }
  zip.ConfirmForeign = nullptr;
  computer.Remove("C:\\Data");
  EXPECT_EQ(Restore(), 526);
  EXPECT_FALSE(computer.Exists("C:\\Data\\a.txt"));
  // Into a folder of his choice the user may have it all.
  EXPECT_EQ(Extract("C:\\Out"), 0) << Why();
  EXPECT_TRUE(computer.Exists("C:\\Out\\a.txt") && computer.Exists("C:\\Out\\Kelvish.exe"));
  platform::SetInstallFolder("");
}

// One of our own in which something was exchanged.
TEST_F(ZipTest, AnEntryThatWasChangedAfterwardsIsForeign) {
  const std::string path = "C:\\Data\\a.txt";
  computer.WriteFile(path, "good0000");
  ASSERT_EQ(Store({path}), 0);
  std::string ours = computer.ReadFile(kArchive);
  ASSERT_EQ(Restore(), 0);
  EXPECT_EQ(foreign, 0);
  computer.Remove("C:\\Data");

  // The content with its checksums, which anybody can work out.
  std::string other = MakeZip({{.name = "C:/Data/a.txt", .content = "evil0000"}});
  std::string crc = other.substr(14, 4), changed = ours;
  std::size_t central = changed.find("PK\1\2"), data = changed.find("good0000");
  changed.replace(data, 4, "evil").replace(14, 4, crc).replace(central + 16, 4, crc);
  zip.ConfirmForeign = [&](double count, auto&&...) {
    foreign = count;
    return false;
  };
  computer.WriteFile(kArchive, changed);
  EXPECT_EQ(Restore(), 526);
  EXPECT_EQ(foreign, 1);
  EXPECT_FALSE(computer.Exists(path));
  // Another content with the very same checksum: the digest tells.
  std::string forged = ours;
  forged.replace(ours.find("good0000"), 8,
                 "evil"
                 "\xF0\x4F\x4F\xD1");
  foreign = 0;
  computer.WriteFile(kArchive, forged);
  EXPECT_EQ(Restore(), 526);
  EXPECT_EQ(foreign, 0);
  EXPECT_EQ(Why(),
            "1 of 1 files could not be restored. The first is C:\\Data\\a.txt: its content is damaged, or "
            "packed in "
            "an unknown way.");
  EXPECT_FALSE(computer.Exists(path));
#ifndef _WIN32
  EXPECT_TRUE(RunProgram("unzip -tqq " + Quoted(computer.Native(kArchive))).ends_with("\n0"));
#endif

  // Another user's key.
  computer.WriteFile(kArchive, ours);
  computer.RemoveValue("Software\\Orvane\\Tidorra\\Brasmir\\Backup\\Mark", "Key");
  EXPECT_EQ(Restore(), 526);
  EXPECT_EQ(foreign, 1);
}

}  // namespace test
