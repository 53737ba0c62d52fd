// What only a computer that is played on Linux does: its permissions, its mounts, names of any bytes.
#include <cstring>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "HostPlatformTest.h"
#include "platform/LibDirectory.h"
#include "platform/LibEraser.h"
#include "platform/LibFile.h"
#include "platform/Listings.h"
#include "platform/TextFile.h"
#include "support/CannotPlay.h"
#include "support/Raised.h"

using namespace platform;

namespace test {

class HostFileSystemTest : public PlatformTest {
 protected:
  CountedList files, folders;
};

TEST_F(HostFileSystemTest, AFolderThatADiskIsMountedOnIsLikeOthers) {
  computer.MakeFolder("C:\\T\\disk");
  SmallDisk disk(computer.Native("C:\\T\\disk"), "1m");
  if (!disk) CANNOT_PLAY("no small disk can be mounted");
  computer.WriteFile("C:\\T\\disk\\a", "12");
  computer.WriteFile("C:\\T\\b");
  struct : TreeVisitor {
    bool Folder(std::string_view) override { return true; }
    bool Entry(std::string_view name, EntryKind, std::uint64_t size) override {
      found += std::string(name) + ":" + std::to_string(size) + " ";
      return true;
    }
    std::string found;
  } visitor;
  EXPECT_EQ(computer.Files().Walk("C:\\T", {.sizes = true}, visitor), Status::Done);
  EXPECT_NE(visitor.found.find("a:2 "), std::string::npos);
  EXPECT_EQ(computer.Files().RemoveFile("C:\\T\\disk\\a"), Status::Done);
  EXPECT_EQ(computer.Files().RemoveFolder("C:\\T\\disk"), Status::Locked);
  EXPECT_NE(computer.Files().Rename("C:\\T\\b", "C:\\T\\disk\\b", false), Status::Done);
  EXPECT_TRUE(computer.Exists("C:\\T\\b"));
}

TEST_F(HostFileSystemTest, WhatChangedSinceAFileWasLookedAtIsSeenAtItsRemoval) {
  FileSystem& system = computer.Files();
  computer.WriteFile("C:\\kept", "kept");
  auto look = [&](const char* path) { EXPECT_EQ(system.LookBriefly(path).kind, EntryKind::File); };
  auto native = [&](const char* path) { return computer.Native(path); };
  computer.WriteFiles({"C:\\T\\a", "C:\\T\\b", "C:\\T\\c", "C:\\T\\d", "C:\\S\\e"});

  // By another program.
  look("C:\\T\\a");
  unlink(native("C:\\T\\a").c_str());
  EXPECT_EQ(system.RemoveFile("C:\\T\\a"), Status::Missing);
  look("C:\\T\\b");
  unlink(native("C:\\T\\b").c_str());
  ASSERT_EQ(symlink(native("C:\\kept").c_str(), native("C:\\T\\b").c_str()), 0);
  EXPECT_EQ(system.RemoveFile("C:\\T\\b"), Status::Done);
  EXPECT_EQ(computer.ReadFile("C:\\kept"), "kept");
  look("C:\\T\\c");
  unlink(native("C:\\T\\c").c_str());
  ASSERT_EQ(mkdir(native("C:\\T\\c").c_str(), 0777), 0);
  EXPECT_NE(system.RemoveFile("C:\\T\\c"), Status::Done);
  EXPECT_TRUE(computer.Exists("C:\\T\\c"));
  look("C:\\S\\e");
  ASSERT_EQ(rename(native("C:\\S").c_str(), native("C:\\Z").c_str()), 0);
  computer.WriteFile("C:\\S\\e");
  ASSERT_EQ(unlink(native("C:\\Z\\e").c_str()), 0);
  EXPECT_EQ(system.RemoveFile("C:\\S\\e"), Status::Done);
  EXPECT_FALSE(computer.Exists("C:\\S\\e"));

  // By this one, whose look is no leave for the next file of the name either.
  look("C:\\T\\d");
  EXPECT_EQ(system.SetAttributes("C:\\T\\d", kReadOnly), Status::Done);
  EXPECT_EQ(system.RemoveFile("C:\\T\\d"), Status::Denied);
  EXPECT_EQ(system.RemoveFile("C:\\T\\d"), Status::Denied);
}

TEST_F(HostFileSystemTest, ANewFileIsItsMakersAlone) {
  Status status;
  computer.Files().Open("C:\\a", OpenMode::CreateNew, status).reset();
  struct stat found {};
  ASSERT_EQ(stat(computer.Native("C:\\a").c_str(), &found), 0);
  EXPECT_EQ(found.st_mode & 0777, 0600u);
}

TEST_F(HostFileSystemTest, RemoveTreeWorksForAnOrdinaryUserInReadOnlyFolders) {
  computer.MakeFolder("C:\\T");
  chmod(computer.Native("C:\\T").c_str(), 0777);
  EXPECT_TRUE(AsOrdinaryUser(computer, [&] {
    LibDirectory().Create("C:\\T\\mine\\sub");
    platform::Status status;
    computer.Files().Open("C:\\T\\mine\\sub\\a", platform::OpenMode::CreateNew, status).reset();
    computer.SetAttributes("C:\\T\\mine\\sub", 17);
    return status == platform::Status::Done && LibDirectory().RemoveTree("C:\\T\\mine") == 1;
  }));
  EXPECT_TRUE(computer.List("C:\\T").empty());
}

TEST_F(HostFileSystemTest, TheContentIsOverwrittenToTheEndOfItsLastCluster) {
  std::string text(5000, 'x');
  for (short passes : {1, 2, 35, 100, 0, -5}) {
    computer.WriteFile("C:\\T\\a.txt", text);
    // A second name, made after the look and before the end, would show what was written; here an open file
    // does.
    FILE* open = fopen(computer.Native("C:\\T\\a.txt").c_str(), "rb");
    ASSERT_TRUE(open);
    struct stat during {};
    std::string seen;
    computer.desktop.onBreathe = [&](long) {
      fstat(fileno(open), &during);
      std::string now(10000, '?');
      now.resize(fread((rewind(open), now.data()), 1, now.size(), open));
      seen = now;
    };
    EXPECT_EQ(LibEraser().EraseFile("C:\\T\\a.txt", passes, 4096), 1);
    computer.desktop.onBreathe = nullptr;
    EXPECT_EQ(during.st_size, 8192);
    EXPECT_EQ(seen, std::string(8192, '\0'));
    struct stat after {};
    fstat(fileno(open), &after);
    EXPECT_EQ(after.st_size, 0);
    EXPECT_EQ(after.st_nlink, 0u);
    fclose(open);
    EXPECT_TRUE(computer.List("C:\\T").empty());
  }
}

TEST_F(HostFileSystemTest, LockOfAFileThatMayNotBeReadIsSeenToo) {
  computer.WriteFile("C:\\T\\a.txt");
  LockHolder holder(computer.Native("C:\\T\\a.txt"), LockKind::Flock);
  chmod(computer.Native("C:\\T").c_str(), 0777);
  chmod(computer.Native("C:\\T\\a.txt").c_str(), 0200);
  EXPECT_TRUE(AsOrdinaryUser(computer, [&] { return LibFile().Delete("C:\\T\\a.txt") == 0; }));
  EXPECT_TRUE(computer.Exists("C:\\T\\a.txt"));
}

TEST_F(HostFileSystemTest, NamesThatAreNotUnicodeComeThroughUnharmed) {
  std::string odd = "C:\\T\\caf\xE9\xFF.txt", other = "C:\\T\\caf\xE9\xFE.txt", erased = "C:\\T\\bad\xFF\xC3";
  computer.WriteFile(odd, "12");
  computer.WriteFile(erased);
  computer.SetAttributes(erased, 35);
  EXPECT_EQ(LibTreeList().ListFiles("C:\\T", files), 0);
  EXPECT_EQ(Sorted(files), (Strings{erased, odd}));
  EXPECT_EQ(LibFile().GetSize(odd), 2);
  EXPECT_EQ(LibFile().Delete(other), 0);
  EXPECT_EQ(LibFile().GetAttributes("C:\\T\\CAF\xE9\xFF.TXT"), 32);
  EXPECT_EQ(LibFile().MoveToRecycleBin(odd), 0);
  EXPECT_EQ(LibEraser().EraseFile(erased, 1, 4096), 1);
  EXPECT_TRUE(computer.List("C:\\T").empty());
}

TEST_F(HostFileSystemTest, NamesThatAreSpecialElsewhereAreFilesLikeOthers) {
  Strings names = {"aux.tmp", "com1", "log 12:30.tmp"};
  for (const std::string& name : names) computer.WriteFile("C:\\T\\" + name);
  EXPECT_EQ(LibFileList().ListFolder("C:\\T", files), 0);
  EXPECT_EQ(files.UpperBound(), 3);
  EXPECT_EQ(LibFile().Delete("C:\\T\\aux.tmp"), 1);
  EXPECT_EQ(LibFile().MoveToRecycleBin("C:\\T\\com1"), 0);
  EXPECT_EQ(LibEraser().EraseFile("C:\\T\\log 12:30.tmp", 1, 1), 1);
  EXPECT_EQ(computer.List("C:\\T"), Strings{});
}

TEST_F(HostFileSystemTest, ANameWithABackslashIsNeverAnotherPath) {
  computer.WriteFile("C:\\T\\a\\b", "kept");
  std::string odd = computer.Native("C:\\T") + "/a\\b";
  computer.WriteFile("C:\\T\\plain", "odd");
  ASSERT_EQ(rename(computer.Native("C:\\T\\plain").c_str(), odd.c_str()), 0);
  EXPECT_EQ(LibFile().GetSize("C:\\T\\a\\b"), 4);
  EXPECT_EQ(LibFile().Delete("C:\\T\\a\\b"), 1);
  EXPECT_EQ(LibFile().Delete("C:\\T\\a\\b"), 0);
  EXPECT_EQ(computer.List("C:\\T"), (Strings{"a", "a\\b"}));
}

TEST_F(HostFileSystemTest, TheProgramsOwnDataIsOutOfReach) {
  // A drive that is the whole of the user's files holds the registry as well.
  computer.MakeLink("D:", computer.DataFolder());
  long found = 0;
  for (const std::string& name : computer.List("D:\\")) {
    struct stat info;
    if (lstat((computer.DataFolder() + "/" + name).c_str(), &info) != 0 || !S_ISREG(info.st_mode)) continue;
    ++found;
    EXPECT_EQ(LibFile().Delete("D:\\" + name), 0);
    EXPECT_TRUE(LibFile().ClearFile("D:\\" + name));
    EXPECT_NE(LibFile().MoveToRecycleBin("D:\\" + name), 0);
  }
  EXPECT_GT(found, 0);
}

TEST_F(HostFileSystemTest, AFolderThatCannotBeReadIsPassedOver) {
  computer.WriteFile("C:\\T\\a\\one.txt", "1");
  computer.WriteFile("C:\\T\\closed\\hidden.txt", "22");
  computer.WriteFile("C:\\T\\z\\two.txt", "333");
  chmod(computer.Native("C:\\T\\closed").c_str(), 0);
  EXPECT_TRUE(AsOrdinaryUser(computer, [&] {
    CountedList found;
    bool good = LibDriveScan().ScanTree("C:\\T", found) == 0 &&
                Sorted(found) == Strings{"C:\\T\\a\\one.txt", "C:\\T\\z\\two.txt"} &&
                LibDirectory().GetSize("C:\\T") == 4;
    // As a root it is a failure.
    return good && LibDriveScan().ScanTree("C:\\T\\closed", found) != 0 && found.UpperBound() == 2;
  }));
  chmod(computer.Native("C:\\T\\closed").c_str(), 0700);
}

TEST_F(HostFileSystemTest, DeepAndWideTreesNeedFewOpenFolders) {
  // Each level has two folders, so that every level has one waiting while the other is walked.
  std::string path = "C:\\T";
  int levels = 300;
  for (int i = 0; i < levels; ++i) {
    path += "\\d";
    ASSERT_EQ(LibDirectory().Create(path), 1);
    ASSERT_EQ(LibDirectory().Create(path.substr(0, path.size() - 1) + "e"), 1);
  }
  rlimit limit;
  getrlimit(RLIMIT_NOFILE, &limit);
  rlimit low{150, limit.rlim_max};
  setrlimit(RLIMIT_NOFILE, &low);
  EXPECT_EQ(LibTreeList().ListFolders("C:\\T", folders), 0);
  setrlimit(RLIMIT_NOFILE, &limit);
  EXPECT_EQ(folders.UpperBound(), 2 * levels);
  EXPECT_EQ(LibDirectory().RemoveTree("C:\\T"), 1);
}

TEST_F(HostFileSystemTest, AFullDiskLeavesWhatWasThere) {
  computer.MakeFolder("C:\\small");
  SmallDisk disk(computer.Native("C:\\small"), "64k");
  if (!disk) CANNOT_PLAY("no small disk can be mounted");
  computer.WriteFile("C:\\small\\a.txt", "old\r\n");
  computer.WriteFile("C:\\small\\filler", std::string(56 * 1024, 'x'));
  EXPECT_EQ(Raised([] { WriteTextFile("C:\\small\\a.txt", {std::string(60000, 'n')}); }), 61);
  EXPECT_EQ(Raised([] { AppendTextLine("C:\\small\\a.txt", std::string(60000, 'n')); }), 61);
  EXPECT_EQ(computer.ReadFile("C:\\small\\a.txt"), "old\r\n");
  // What lies behind a file's end up to its cluster's can be overwritten only where there is room.
  EXPECT_EQ(LibEraser().EraseFile("C:\\small\\a.txt", 1, 1024 * 1024), 1);
  EXPECT_EQ(computer.List("C:\\small"), Strings{"filler"});
}

TEST_F(HostFileSystemTest, NeitherAPipeNorADeviceIsEverAZeroByteFile) {
  computer.MakeFolder("C:\\T");
  mkfifo(computer.Native("C:\\T\\pipe").c_str(), 0600);
  EXPECT_EQ(LibFile().GetSize("C:\\T\\pipe"), -1);
  EXPECT_EQ(LibFile().Delete("C:\\T\\pipe"), 0);
}

TEST_F(HostFileSystemTest, ReadOnlyIsWhatTheOwnerMayNotWriteTo) {
  computer.WriteFile("C:\\T\\.dot");
  chmod(computer.Native("C:\\T\\.dot").c_str(), 0444);
  EXPECT_EQ(LibFile().GetAttributes("C:\\T\\.dot"), 33);
}

TEST_F(HostFileSystemTest, OfNamesThatDifferOnlyInCaseTheExactOneGoesFirst) {
  computer.WriteFile("C:\\Two\\name", "exact");
  computer.WriteFile("C:\\Two\\NAME", "other!");
  EXPECT_EQ(LibFile().GetSize("C:\\Two\\name"), 5);
  EXPECT_EQ(LibFile().GetSize("C:\\Two\\NAME"), 6);
  EXPECT_EQ(LibFile().Delete("C:\\two\\NAME"), 1);
  EXPECT_EQ(computer.List("C:\\Two"), Strings{"name"});
  EXPECT_EQ(LibFile().Delete("C:\\two\\Name"), 1);
}

TEST_F(HostFileSystemTest, ADriveMayBeALink) {
  computer.WriteFile("C:\\Outside\\kept.txt", "kept");
  computer.WriteFile("C:\\Outside\\sub\\kept.txt", "kept");
  computer.MakeLink("E:", computer.Native("C:\\Outside"));
  EXPECT_EQ(LibFile().GetSize("E:\\kept.txt"), 4);
  EXPECT_EQ(LibDriveScan().ScanTree("E:\\", files), 0);
  EXPECT_EQ(Sorted(files), (Strings{"E:\\kept.txt", "E:\\sub\\kept.txt"}));
}

}  // namespace test
