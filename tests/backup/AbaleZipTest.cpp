#include <filesystem>

#include "backup/AbaleZip.h"
#include "backup/ZipFixture.h"
#include "platform/RuntimeError.h"

namespace test {

using Paths = std::vector<std::string>;
using platform::Status;

TEST_F(ZipTest, StoresAndRestoresContentDatesAndAttributes) {
  std::string bytes;
  for (int i = 0; i < 70000; ++i) bytes += static_cast<char>(i * 31 >> 3);
#ifdef _WIN32
  const std::string kOdd1 = "C:\\Data\\\xD0\x96.txt", kOdd2 = "C:\\Data\\\xF0\x9F\xA7\xB9.txt";
#else
  const std::string kOdd1 = "C:\\Data\\raw \xE9\xFF.txt", kOdd2 = "C:\\Data\\tab\there.txt";
#endif
  std::map<std::string, std::string> files = {
      {"C:\\Data\\empty.tmp", ""},
      {"C:\\Data\\one.bak", "x"},
      {"C:\\Data\\Sub Folder\\bytes.bin", bytes},
      {"C:\\Data\\large.txt", Words(9'000'000)},
      {"C:\\Data\\\xC3\x9C"
       "bersicht \xE6\x97\xA5.txt",
       "\xC3\x9C"},
      {kOdd1, "not Unicode, or another script"},
      {kOdd2, "beyond the first plane, or a control character"},
  };
  Paths paths;
  std::map<std::string, platform::EntryInfo> before;
  platform::Moment moment = 1'700'000'000'123'456'700;
  for (const auto& [path, content] : files) {
    computer.WriteFile(path, content);
    moment += 86'400'000'000'100;
    computer.Files().SetTimes(path, {}, moment + 500, moment);
    paths.push_back(path);
  }
  computer.Files().SetTimes(paths[0], {}, 5'000'000'000, -86'400'000'000'000 * 3 - 100);  // before 1970
  computer.SetAttributes(paths[1], platform::kReadOnly | platform::kHidden | platform::kArchive);
  computer.SetAttributes(paths[2], platform::kSystem);
  for (const std::string& path : paths) before[path] = computer.Files().Look(path);

  ASSERT_EQ(Store(paths), 0);
  EXPECT_EQ(List(), paths);
  for (const std::string& path : paths) {
    EXPECT_EQ(listed[path], static_cast<long>(files[path].size()));
    EXPECT_EQ(dates[path], before[path].modified) << path;
  }
  ExpectSound();
  EXPECT_EQ(BackupFolder().size(), 1u);

  for (const std::string& path : paths) computer.Remove(path);
  computer.Remove("C:\\Data\\Sub Folder");
  ASSERT_EQ(Restore(), 0) << Why();
  for (const std::string& path : paths) {
    platform::EntryInfo now = computer.Files().Look(path);
    EXPECT_EQ(computer.ReadFile(path), files[path]) << path;
    EXPECT_EQ(now.modified, before[path].modified) << path;
    EXPECT_EQ(now.accessed, before[path].accessed) << path;
    EXPECT_EQ(now.attributes, before[path].attributes) << path;
  }
  EXPECT_EQ(computer.List("C:\\Data").size(), 7u);
}

TEST_F(ZipTest, AddsToAnArchiveWithoutTouchingWhatItHolds) {
  computer.WriteFile("C:\\Data\\a.txt", Words(100'000));
  computer.WriteFile("C:\\Data\\b.txt", "b");
  ASSERT_EQ(Store({"C:\\Data\\a.txt"}), 0);
  std::string first = computer.ReadFile(kArchive);
  WatchedFiles watched(computer.Machine());
  ASSERT_EQ(Store({"C:\\Data\\b.txt"}), 0);
  EXPECT_EQ(watched.flushes, 1);
  std::string second = computer.ReadFile(kArchive);
  // Up to the directory the bytes are the same.
  std::size_t directory = first.rfind("PK\1\2");
  EXPECT_EQ(second.substr(0, directory), first.substr(0, directory));
  EXPECT_EQ(List(), (Paths{"C:\\Data\\a.txt", "C:\\Data\\b.txt"}));
  ExpectSound();
}

TEST_F(ZipTest, AnOlderEntryOfTheSamePathIsRenamed) {
  const std::string archived = "C:\\Data\\a.tar.gz", hidden = "C:\\Data\\.hidden";
  auto write = [&](const char* content) {
    computer.WriteFile(archived, content);
    computer.WriteFile(hidden, content);
  };
  write("first");
  ASSERT_EQ(Store({archived, hidden}), 0);
  write("second");
  // The same file twice in one list is stored once.
  ASSERT_EQ(Store({archived, archived, hidden}), 0);
  computer.WriteFile(archived, "the third");
  ASSERT_EQ(Store({archived}), 0);
  EXPECT_EQ(List(), (Paths{hidden, "C:\\Data\\.hidden (2)", "C:\\Data\\a.tar (2).gz",
                           "C:\\Data\\a.tar (3).gz", archived}));
  ExpectSound();

  computer.Remove("C:\\Data");
  computer.WriteFile("C:\\Data\\a.tar (2).gz", "a stranger");
  for (int again = 0; again < 2; ++again) {
    ASSERT_EQ(Restore(), 0) << Why();
    EXPECT_EQ(computer.ReadFile(archived), "the third");
    EXPECT_EQ(computer.ReadFile("C:\\Data\\a.tar (2).gz"), "a stranger");
    EXPECT_EQ(computer.ReadFile("C:\\Data\\a.tar (3).gz"), "second");
    EXPECT_EQ(computer.ReadFile(hidden), "second");
    // What was the older one's name is taken.
    EXPECT_EQ(computer.ReadFile("C:\\Data\\a.tar (2) (2).gz"), "first");
    EXPECT_EQ(InBin(), 0);
  }
  EXPECT_EQ(foreign, 0);
}

TEST_F(ZipTest, AnEmptyListDoesNothing) {
  EXPECT_EQ(Store({}), 0);
  EXPECT_FALSE(computer.Exists("C:\\Backup"));
  computer.WriteFile(kArchive, "no archive");
  EXPECT_EQ(Store({}), 0);
}

TEST_F(ZipTest, WhatCantBeReadIsLeftOut) {
  computer.WriteFile("C:\\Data\\a.txt", "a");
  computer.WriteFile("C:\\Data\\c.txt", "c");
  computer.MakeFolder("C:\\Data\\folder");
  computer.MakeLink("C:\\Data\\link", "C:\\Data\\a.txt");
  computer.MakeLink("C:\\Data\\loop", "C:\\Data");
  WatchedFiles watched(computer.Machine());
  watched.onOpen = [](std::string_view path, platform::OpenMode) {
    return path.ends_with("c.txt") ? Status::Locked : Status::Done;
  };
  EXPECT_EQ(
      Store({"C:\\Data\\link", "C:\\Data\\gone.txt", "C:\\Data\\folder", "C:\\Data\\c.txt", "", "a.txt",
             "C:\\", "C:\\Data\\..\\Data\\a.txt", "C:\\Data\\loop\\a.txt", "C:\\Data\\a.txt", kArchive}),
      525);
  EXPECT_EQ(List(), Paths{"C:\\Data\\a.txt"});
  // A link isn't noted: it is left out whatever happens.
  EXPECT_EQ(zip.LeftOut(), (Paths{"C:\\Data\\gone.txt", "C:\\Data\\folder", "C:\\Data\\c.txt", "", "a.txt",
                                  "C:\\", "C:\\Data\\..\\Data\\a.txt", "C:\\Data\\loop\\a.txt", kArchive}));
  EXPECT_EQ(Store({kArchive}), 525);
  EXPECT_EQ(Store({"C:\\Data\\a.txt"}), 0);
  EXPECT_TRUE(zip.LeftOut().empty());
}

// What happens to a file between the moment it was looked at and its last byte.
TEST_F(ZipTest, AFileThatChangesWhileItIsReadIsStoredAsItWasAtOneMomentOrLeftOut) {
  // More than is read at once.
  auto text = [](std::size_t size, unsigned seed) {
    std::string block = Words(50'000, seed), whole;
    while (whole.size() < size) whole += block;
    whole.resize(size);
    return whole;
  };
  constexpr std::size_t kLarge = 4'500'000;
  std::string old = text(kLarge, 7);
  auto reset = [&] {
    computer.Remove(kArchive);
    for (const char* name : {"steady1", "changing", "steady2"})
      computer.WriteFile(std::string("C:\\Data\\") + name, name == std::string("changing") ? old : name);
    // The archive knows the path already.
    EXPECT_EQ(Store({"C:\\Data\\changing"}), 0);
  };
  auto store = [&] { return Store({"C:\\Data\\steady1", "C:\\Data\\changing", "C:\\Data\\steady2"}); };
  using Act = std::function<Status()>;
  struct Case {
    const char* name;
    Act act;
    bool storedNew;
  };
  int calls = 0;
  auto once = [&](Act act) { return [&calls, act] { return calls++ == 0 ? act() : Status::Done; }; };
  const std::string changing = "C:\\Data\\changing";
  std::vector<Case> cases = {
      {"grows", once([&] { return computer.WriteFile(changing, old + "more"), Status::Done; }), false},
      {"shrinks", once([&] { return computer.WriteFile(changing, text(4'400'000, 7)), Status::Done; }),
       false},
      {"becomes short", once([&] { return computer.WriteFile(changing, "short"), Status::Done; }), false},
      {"other bytes", once([&] { return computer.WriteFile(changing, text(kLarge, 9)), Status::Done; }),
       false},
#ifndef _WIN32  // where nobody can remove what is being read
      {"goes", once([&] { return computer.Remove(changing), Status::Done; }), false},
#endif
      {"fails", [] { return Status::Failed; }, false},
  };
  for (const Case& one : cases) {
    SCOPED_TRACE(one.name);
    reset();
    calls = 0;
    WatchedFiles watched(computer.Machine());
    watched.onRead = [&](const std::string& path, std::uint64_t offset) {
      return path == changing && offset > 0 ? one.act() : Status::Done;
    };
    EXPECT_EQ(store(), 525);
    EXPECT_EQ(zip.LeftOut(), Paths{changing});
    // The older entry has its name back.
    EXPECT_EQ(List(), (Paths{changing, "C:\\Data\\steady1", "C:\\Data\\steady2"}));
    EXPECT_EQ(listed[changing], static_cast<long>(kLarge));
    ExpectSound();
    EXPECT_EQ(BackupFolder().size(), 1u);
  }

  // A short file is read again if it is written to, in its length or not, and if another takes its name.
  WatchedFiles watched(computer.Machine());
  Paths afterwards = {"now longer", "other"};
#ifndef _WIN32  // where nobody can take the name of what is being read
  afterwards.push_back("taken");
#endif
  for (const std::string& after : afterwards) {
    SCOPED_TRACE(after);
    watched.onRead = nullptr;
    reset();
    computer.WriteFile(changing, "short");
    computer.SetModified(changing, 1'000'000'000);
    calls = 0;
    watched.onRead = [&](const std::string& path, std::uint64_t offset) {
      if (path != changing || (after == "other") != (offset > 0) || calls++ > 0) return Status::Done;
      if (after == "taken") computer.Remove(changing);
      computer.WriteFile(changing, after);
      return Status::Done;
    };
    backup::BackupPromise promise;
    EXPECT_EQ(Store({"C:\\Data\\steady1", changing, "C:\\Data\\steady2"}, promise), 0);
    EXPECT_TRUE(Holds(promise, changing));
    EXPECT_EQ(List(), (Paths{changing, changing + " (2)", "C:\\Data\\steady1", "C:\\Data\\steady2"}));
    EXPECT_EQ(listed[changing], static_cast<long>(after.size()));
    ExpectSound();
    watched.onRead = nullptr;
    computer.Remove(changing);
    EXPECT_EQ(Restore({changing}), 0);
    EXPECT_EQ(computer.ReadFile(changing), after);
  }

  // One that is written to all the time is left out; if it was all there was, the archive stays as it was.
  std::string before = computer.ReadFile(kArchive);
  watched.onRead = [&](const std::string& path, std::uint64_t) {
    if (path == changing) computer.WriteFile(changing, Words(10 + static_cast<std::size_t>(++calls)));
    return Status::Done;
  };
  EXPECT_EQ(Store({changing}), 525);
  EXPECT_EQ(computer.ReadFile(kArchive), before);
  EXPECT_EQ(BackupFolder().size(), 1u);
  computer.Remove(kArchive);
  EXPECT_EQ(Store({changing}), 525);
  EXPECT_FALSE(computer.Exists(kArchive));
}

TEST_F(ZipTest, RestoresTheChosenEntriesAndNamesWhatIsMissing) {
  for (const char* path : {"C:\\Data\\a.txt", "C:\\Data\\b.txt", "D:\\c.txt"}) zip.AddFileToProcess(path);
  computer.WriteFile("C:\\Data\\a.txt", "a");
  computer.WriteFile("C:\\Data\\b.txt", "b");
  ASSERT_EQ(zip.Zip(), 525);
  computer.Remove("C:\\Data");
  EXPECT_EQ(Restore({"c:\\data\\B.TXT", "C:\\Data\\b.txt"}), 0);
  EXPECT_EQ(computer.List("C:\\Data"), Paths{"b.txt"});
  EXPECT_EQ(Restore({"C:\\Data\\a.txt", "C:\\Data\\none.txt"}), 526);
  EXPECT_EQ(
      Why(),
      "1 of 2 files could not be restored. The first is C:\\Data\\none.txt: the archive doesn't hold it.");
  EXPECT_EQ(computer.List("C:\\Data"), (Paths{"a.txt", "b.txt"}));
}

TEST_F(ZipTest, AFileThatDiffersGoesToTheRecycleBin) {
  computer.WriteFile("C:\\Data\\same.txt", "same");
  computer.WriteFile("C:\\Data\\size.txt", "12345");
  computer.WriteFile("C:\\Data\\byte.txt", Words(600'000));
  computer.WriteFile("C:\\Data\\readonly.txt", "old");
  ASSERT_EQ(
      Store({"C:\\Data\\same.txt", "C:\\Data\\size.txt", "C:\\Data\\byte.txt", "C:\\Data\\readonly.txt"}), 0);
  computer.SetModified("C:\\Data\\same.txt", 1'000'000'000);
  computer.WriteFile("C:\\Data\\size.txt", "123456");
  std::string changed = Words(600'000);
  changed[599'999] = '!';
  computer.WriteFile("C:\\Data\\byte.txt", changed);
  computer.WriteFile("C:\\Data\\readonly.txt", "new");
  computer.SetAttributes("C:\\Data\\readonly.txt", platform::kReadOnly);

  ASSERT_EQ(Restore(), 0) << Why();
  EXPECT_EQ(computer.Files().Look("C:\\Data\\same.txt").modified, 1'000'000'000);
  EXPECT_EQ(computer.ReadFile("C:\\Data\\size.txt"), "12345");
  EXPECT_EQ(computer.ReadFile("C:\\Data\\byte.txt"), Words(600'000));
  EXPECT_EQ(computer.ReadFile("C:\\Data\\readonly.txt"), "old");
  EXPECT_EQ(InBin(), 3);
  EXPECT_EQ(computer.List("C:\\Data").size(), 4u);
}

TEST_F(ZipTest, OneFileThatCantBeWrittenDoesntStopTheOthers) {
  Paths paths = {"C:\\Data\\a.txt", "C:\\Data\\b\\b.txt", "C:\\Data\\c.txt", "C:\\Data\\d.txt",
                 "C:\\Data\\e.txt"};
  for (const std::string& path : paths) computer.WriteFile(path, path);
  ASSERT_EQ(Store(paths), 0);
  computer.Remove("C:\\Data");
  computer.WriteFile("C:\\Data\\b", "a file in the folder's place");
  computer.MakeFolder("C:\\Data\\c.txt");
  computer.WriteFile("C:\\Elsewhere\\d.txt", "target of a link");
  computer.MakeLink("C:\\Data\\d.txt", "C:\\Elsewhere\\d.txt");
  EXPECT_EQ(Restore(), 526);
  EXPECT_EQ(
      Why(),
      "3 of 5 files could not be restored. The first is C:\\Data\\b\\b.txt: its folder can't be created.");
  EXPECT_EQ(computer.List("C:\\Data"), (Paths{"a.txt", "b", "c.txt", "d.txt", "e.txt"}));
  EXPECT_EQ(computer.ReadFile("C:\\Elsewhere\\d.txt"), "target of a link");
  EXPECT_TRUE(computer.IsLink("C:\\Data\\d.txt"));

  // A full disk, in the middle of one file.
  computer.Remove("C:\\Data");
  WatchedFiles watched(computer.Machine());
  int writes = 0;
  watched.onWrite = [&](const std::string&, std::size_t) {
    return ++writes == 3 ? Status::Full : Status::Done;
  };
  EXPECT_EQ(Restore(), 526);
  EXPECT_EQ(Why(), "1 of 5 files could not be restored. The first is C:\\Data\\c.txt: the disk is full.");
  EXPECT_EQ(computer.List("C:\\Data"), (Paths{"a.txt", "b", "d.txt", "e.txt"}));
}

TEST_F(ZipTest, NothingIsRestoredThroughALinkInTheWay) {
  computer.WriteFile("C:\\Data\\Sub\\a.txt", "a");
  ASSERT_EQ(Store({"C:\\Data\\Sub\\a.txt"}), 0);
  computer.Remove("C:\\Data");
  computer.MakeFolder("C:\\Elsewhere\\Sub");
  computer.MakeLink("C:\\Data", "C:\\Elsewhere");
  EXPECT_EQ(Restore(), 526);
  EXPECT_TRUE(computer.List("C:\\Elsewhere\\Sub").empty());
  computer.Remove("C:\\Data");
  computer.MakeFolder("C:\\Data");
  computer.MakeLink("C:\\Data\\Sub", "C:\\Elsewhere");
  EXPECT_EQ(Restore(), 526);
  EXPECT_EQ(computer.List("C:\\Elsewhere"), Paths{"Sub"});
}

TEST_F(ZipTest, ExtractsNamesThatOccurOnceIntoTheFolderAndOthersIntoSubFolders) {
  std::map<std::string, std::string> files = {{"C:\\Data\\one.txt", "1"},
                                              {"C:\\Data\\a\\twice.txt", "2a"},
                                              {"C:\\Data\\b\\Twice.TXT", "2b"},
                                              {"C:\\Data\\Data", "a file"},
                                              {"C:\\Data\\a\\b.txt", "b"}};
  Paths paths;
  for (const auto& [path, content] : files) {
    computer.WriteFile(path, content);
    paths.push_back(path);
  }
  ASSERT_EQ(Store(paths), 0);
  computer.WriteFile("C:\\Out\\one.txt", "mine");
  computer.WriteFile("C:\\Out\\Data (2)", "mine too");
  // With and without a backslash at its end.
  ASSERT_EQ(Extract("C:\\Out\\"), 0) << Why();
  // "Data" is extracted first, so that the folder of that name takes a number.
  EXPECT_EQ(computer.List("C:\\Out"),
            (Paths{"Data", "Data (2)", "Data (3)", "b.txt", "one (2).txt", "one.txt"}));
  EXPECT_EQ(computer.ReadFile("C:\\Out\\one.txt"), "mine");
  EXPECT_EQ(computer.ReadFile("C:\\Out\\one (2).txt"), "1");
  EXPECT_EQ(computer.ReadFile("C:\\Out\\Data"), "a file");
  EXPECT_EQ(computer.ReadFile("C:\\Out\\Data (3)\\a\\twice.txt"), "2a");
  EXPECT_EQ(computer.ReadFile("C:\\Out\\Data (3)\\b\\Twice.TXT"), "2b");
  ASSERT_EQ(Extract("C:\\New\\Folder"), 0) << Why();
  EXPECT_EQ(computer.ReadFile("C:\\New\\Folder\\one.txt"), "1");
  ASSERT_EQ(Extract("C:\\New\\Folder"), 0) << Why();
  EXPECT_EQ(computer.ReadFile("C:\\New\\Folder\\one (2).txt"), "1");
  // Archives hold tenths of a microsecond.
  EXPECT_EQ(computer.Files().Look("C:\\New\\Folder\\one (2).txt").modified,
            computer.Files().Look("C:\\Data\\one.txt").modified / 100 * 100);
  // A folder that is a link is not entered.
  computer.MakeFolder("C:\\Elsewhere");
  computer.MakeLink("C:\\Link", "C:\\Elsewhere");
  EXPECT_EQ(Extract("C:\\Link"), 526);
  EXPECT_TRUE(computer.List("C:\\Elsewhere").empty());
  EXPECT_EQ(Extract(""), 526);
  EXPECT_EQ(InBin(), 0);
}

TEST_F(ZipTest, WithoutAHandlerNamesFollowKeepPaths) {
  zip.AbaZip_PrepareEntry = nullptr;
  computer.WriteFile("C:\\Data\\a.txt", "first");
  computer.WriteFile("C:\\Data\\Sub\\a.txt", "second");
  ASSERT_EQ(Store({"C:\\Data\\a.txt"}), 0);
  EXPECT_EQ(List(), Paths{"Data\\a.txt"});
  computer.Remove(kArchive);
  zip.KeepPaths = false;
  ASSERT_EQ(Store({"C:\\Data\\a.txt", "C:\\Data\\Sub\\a.txt"}), 0);
  EXPECT_EQ(List(), (Paths{"a (2).txt", "a.txt"}));
}

TEST_F(ZipTest, HoldsMoreThanSixtyFiveThousandFiles) {
  constexpr int kFiles = 66'000;
  // Native names, because making them one by one through a path costs more than the test.
  computer.MakeFolder("C:\\Many");
  std::filesystem::path folder = computer.Native("C:\\Many");
  for (int i = 0; i < kFiles; ++i) {
    std::string path = "C:\\Many\\" + std::to_string(i);
    FILE* file = fopen((folder / std::to_string(i)).string().c_str(), "w");
    ASSERT_TRUE(file);
    fputs(i % 7 == 0 ? "" : "tiny", file);
    fclose(file);
    zip.AddFileToProcess("C:\\Many\\", std::to_string(i));
  }
  ASSERT_EQ(zip.Zip(), 0);
  EXPECT_EQ(List().size(), static_cast<std::size_t>(kFiles));
  ExpectSound();
  computer.WriteFile("C:\\Many\\0", "once more");
  ASSERT_EQ(Store({"C:\\Many\\0"}), 0);
  EXPECT_EQ(List().size(), static_cast<std::size_t>(kFiles) + 1);
  computer.Remove("C:\\Many\\65999");
  EXPECT_EQ(Restore({"C:\\Many\\65999"}), 0);
  EXPECT_EQ(computer.ReadFile("C:\\Many\\65999"), "tiny");
}

// A file that is larger than 4 GiB itself. It stays where it is, so that restoring it compares it with the
// entry to the last byte and writes nothing.
TEST_F(ZipTest, StoresAndReadsAFileOfMoreThanFourGibibytes) {
  constexpr std::uint64_t kSize = (4ull << 30) + 12'345;
  const std::string path = "C:\\Data\\huge.bin";
  computer.MakeSparseFile(path, kSize);
  computer.SetModified(path, 1'000'000'000);
  ASSERT_EQ(Store({path}), 0);
  EXPECT_EQ(List(), Paths{path});
  EXPECT_EQ(listed[path], static_cast<std::int64_t>(kSize));
#ifndef _WIN32
  EXPECT_NE(RunProgram("unzip -l " + Quoted(computer.Native(kArchive))).find(std::to_string(kSize) + " "),
            std::string::npos);
#endif
  WatchedFiles watched(computer.Machine());
  watched.onWrite = [](const std::string&, std::size_t) { return Status::Full; };
  EXPECT_EQ(Restore(), 0) << Why();
  EXPECT_EQ(InBin(), 0);
}

}  // namespace test
