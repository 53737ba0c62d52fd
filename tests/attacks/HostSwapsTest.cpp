// What another user may do in a folder that both write to while files there are changed, erased and moved to
// the bin: files and folders change places, links and prepared folders take names.
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "platform/Erase.h"
#include "platform/Guard.h"
#include "platform/LibDirectory.h"
#include "platform/LibFile.h"
#include "platform/LibShell.h"
#include "platform/Listings.h"
#include "support/CannotPlay.h"
#include "support/ChildProcess.h"
#include "support/TestComputer.h"

using namespace platform;
using std::chrono::steady_clock;

namespace test {

namespace {

constexpr uid_t kNobody = 65534;

// For how long a race is run; longer, or shorter, where BRASMIR_ATTACK_SECONDS says so.
std::chrono::seconds RaceTime() {
  const char* seconds = std::getenv("BRASMIR_ATTACK_SECONDS");
  return std::chrono::seconds(seconds ? std::atoi(seconds) : 60);
}

// A name in a folder takes the place of another one, again and again.
std::string ExchangeForEver() {
  for (;;) {
    renameat2(AT_FDCWD, "f", AT_FDCWD, "g", RENAME_EXCHANGE);
    // One of the two is the attacker's own.
    chmod("f", 04755);
    chmod("g", 04755);
  }
}

class SwapAttack : public testing::Test {
 protected:
  SwapAttack() {
    SetInstallFolder(TestComputer::InstallDirectory());
    computer.MakeFolder("C:\\Shared");
  }
  ~SwapAttack() override { SetInstallFolder(""); }
  struct stat Stat(const std::string& path) {
    struct stat found {};
    EXPECT_EQ(lstat(computer.Native(path).c_str(), &found), 0) << path;
    return found;
  }
  void GiveToNobody(const std::string& path, mode_t mode) {
    ASSERT_EQ(chown(computer.Native(path).c_str(), kNobody, kNobody), 0);
    ASSERT_EQ(chmod(computer.Native(path).c_str(), mode), 0);
  }
  void Move(const std::string& from, const std::string& to) {
    EXPECT_EQ(rename(computer.Native(from).c_str(), computer.Native(to).c_str()), 0) << from;
  }
  // Calls it once, in the middle of the next erasing.
  void WhileErasing(const std::function<void()>& swap) {
    computer.desktop.onBreathe = [done = false, swap](long) mutable {
      if (!std::exchange(done, true)) swap();
    };
  }
  TestComputer computer{{.drives = {{'C', platform::DriveKind::Fixed}, {'D', platform::DriveKind::Fixed}}}};
};

TEST_F(SwapAttack, NoFileGetsTheRightsOfTheOneBesideIt) {
  if (geteuid() != 0) CANNOT_PLAY("only the superuser has somebody to play");
  computer.WriteFile("C:\\Shared\\f", "the attacker's");
  computer.WriteFile("C:\\Shared\\g", "the superuser's");
  GiveToNobody("C:\\Shared", 0777);
  GiveToNobody("C:\\Shared\\f", 04755);
  std::string folder = computer.Native("C:\\Shared");
  ino_t own = Stat("C:\\Shared\\g").st_ino;
  ChildProcess attacker([&folder]() -> std::string {
    if (chdir(folder.c_str()) != 0) return "no such folder";
    BecomeNobody();
    return ExchangeForEver();
  });
  int rounds = 0;
  for (auto end = steady_clock::now() + RaceTime(); steady_clock::now() < end; ++rounds)
    computer.Files().SetAttributes("C:\\Shared\\f", rounds % 2 ? std::uint32_t{kReadOnly} : 0u);
  attacker.Kill();
  for (const char* path : {"C:\\Shared\\f", "C:\\Shared\\g"}) {
    struct stat found = Stat(path);
    EXPECT_TRUE(found.st_ino != own || (found.st_mode & 07000) == 0) << "after " << rounds << " rounds";
  }
}

TEST_F(SwapAttack, ErasingTouchesNothingThatTakesTheFilesName) {
  computer.WriteFile("C:\\Shared\\f", "to be erased");
  computer.WriteFile("C:\\kept", "kept");
  WhileErasing([&] {
    std::string name = "C:\\Shared\\" + computer.List("C:\\Shared").at(0);
    Move(name, "C:\\gone");
    Move("C:\\kept", name);
  });
  EXPECT_EQ(platform::ops::Erase("C:\\Shared\\f", 1, 1), Status::Overwritten);
  Strings names = computer.List("C:\\Shared");
  ASSERT_EQ(names.size(), 1u);
  EXPECT_EQ(computer.ReadFile("C:\\Shared\\" + names[0]), "kept");
}

TEST_F(SwapAttack, ErasingStopsAtASecondName) {
  computer.WriteFile("C:\\Shared\\f", "to be erased");
  WhileErasing([&] {
    computer.MakeSecondName("C:\\Shared\\" + computer.List("C:\\Shared").at(0), "C:\\second");
    computer.WriteFile("C:\\second", "kept");
  });
  EXPECT_EQ(platform::ops::Erase("C:\\Shared\\f", 3, 1), Status::Overwritten);
  EXPECT_EQ(computer.ReadFile("C:\\second"), "kept");
  EXPECT_EQ(computer.List("C:\\Shared"), Strings{"f"});
}

TEST_F(SwapAttack, ErasingFinishesInAFolderThatHasMoved) {
  computer.WriteFile("C:\\Shared\\f", "to be erased");
  WhileErasing([&] {
    Move("C:\\Shared", "C:\\Moved");
    computer.WriteFile("C:\\Shared\\f", "kept");
  });
  EXPECT_EQ(platform::ops::Erase("C:\\Shared\\f", 1, 1), Status::Done);
  EXPECT_EQ(computer.List("C:\\Moved"), Strings{});
  EXPECT_EQ(computer.ReadFile("C:\\Shared\\f"), "kept");
}

TEST_F(SwapAttack, NothingIsOverwrittenThatCannotBeRemoved) {
  if (geteuid() != 0) CANNOT_PLAY("only the superuser has somebody to play");
  computer.WriteFile("C:\\Shared\\f", "kept");
  GiveToNobody("C:\\Shared\\f", 0666);
  chmod(computer.Native("C:\\Shared").c_str(), 0755);
  for (const std::string& folder :
       {computer.Root(), computer.DataFolder(), computer.DataFolder() + "/drives"})
    chmod(folder.c_str(), 0755);
  chmod(computer.Native("C:\\").c_str(), 0755);
  ChildProcess user([this]() -> std::string {
    BecomeNobody();
    Status status = platform::ops::Erase("C:\\Shared\\f", 1, 1);
    return status == Status::Denied ? "" : "answered " + std::to_string(static_cast<int>(status));
  });
  EXPECT_EQ(user.Result(), "");
  EXPECT_EQ(computer.ReadFile("C:\\Shared\\f"), "kept");
}

TEST_F(SwapAttack, TheHolesOfASparseFileTakeNoRoom) {
  computer.MakeSparseFile("C:\\Shared\\f", std::uint64_t{1} << 26);
  int file = open(computer.Native("C:\\Shared\\f").c_str(), O_RDWR | O_CLOEXEC);
  ASSERT_EQ(pwrite(file, "secret", 6, 1 << 20), 6);
  long passes = 0;
  char seen[7] = {};
  computer.desktop.onBreathe = [&](long) {
    ++passes;
    EXPECT_EQ(pread(file, seen, 6, 1 << 20), 6);
  };
  EXPECT_EQ(platform::ops::Erase("C:\\Shared\\f", 1, 4096), Status::Done);
  EXPECT_EQ(std::string(seen, 6), std::string(6, '\0'));
  EXPECT_LT(passes, 4);
  close(file);
}

TEST_F(SwapAttack, WhatLiesInTheBinIsForItsUserAlone) {
  umask(0);
  computer.WriteFile("C:\\Shared\\f");
  EXPECT_EQ(LibFile().MoveToRecycleBin("C:\\Shared\\f"), 0);
  umask(022);
  std::string folder = "C:\\$Recycle.Bin\\S-1-22-1-" + std::to_string(getuid());
  EXPECT_EQ(Stat(folder).st_mode & 07777, 0700u);
  for (const std::string& name : computer.List(folder))
    EXPECT_TRUE(name.starts_with("$R") || (Stat(folder + "\\" + name).st_mode & 0777) == 0600) << name;
}

TEST_F(SwapAttack, ABinThatSomebodyElsePreparedIsNotUsed) {
  if (geteuid() != 0) CANNOT_PLAY("only the superuser has somebody to play");
  std::string bin = "C:\\$Recycle.Bin", folder = bin + "\\S-1-22-1-0";
  computer.MakeFolder(folder);
  for (const std::string& prepared : {bin, folder}) {
    computer.WriteFile("C:\\Shared\\f", "kept");
    GiveToNobody(prepared, 0777);
    EXPECT_NE(LibFile().MoveToRecycleBin("C:\\Shared\\f"), 0) << prepared;
    EXPECT_EQ(computer.ReadFile("C:\\Shared\\f"), "kept");
    ASSERT_EQ(chown(computer.Native(prepared).c_str(), 0, 0), 0);
  }
  // One's own that was too open is made as it should be.
  EXPECT_EQ(LibFile().MoveToRecycleBin("C:\\Shared\\f"), 0);
  EXPECT_EQ(Stat(folder).st_mode & 07777, 0700u);
  EXPECT_EQ(Stat(bin).st_mode & 0022, 0u);
}

TEST_F(SwapAttack, AKnownFolderLeadsNowhereOutOfItsDrive) {
  std::string outside = computer.Root() + "/outside", temp = computer.Machine().Folder(KnownFolder::Temp);
  ASSERT_EQ(mkdir(outside.c_str(), 0755), 0);
  ASSERT_EQ(symlink("/", (outside + "/kept").c_str()), 0);
  computer.Remove(temp);
  computer.MakeLink(temp, outside);
  CountedList files, folders;
  LibFileList().ListTree(temp, files, folders);
  EXPECT_TRUE(files.Empty());
  EXPECT_TRUE(folders.Empty());
  EXPECT_EQ(LibDirectory().Remove(temp + "\\kept"), 0);
  EXPECT_EQ(faccessat(AT_FDCWD, (outside + "/kept").c_str(), F_OK, AT_SYMLINK_NOFOLLOW), 0);
}

TEST_F(SwapAttack, AFolderIsKeptByWhateverNameItIsReached) {
  computer.WriteFile("C:\\Windows\\System32\\ntdll.dll");
  computer.MakeLink("W:", computer.Native("C:\\"));
  computer.MakeLink("U:", computer.Native("C:\\Users"));
  computer.MakeFolder("D:\\mounts\\x");
  computer.MakeFolder("C:\\Users\\Somebody");
  CountedList files, folders;
  for (const char* path : {"W:\\Windows", "W:\\Windows\\System32", "W:\\Users", "W:\\Users\\User", "U:\\User",
                           "U:\\Somebody", "W:\\Program Files\\Tidorra"}) {
    EXPECT_NE(LibFileList().ListTree(path, files, folders), 0) << path;
    EXPECT_EQ(LibDirectory().RemoveTree(path), 0) << path;
  }
  EXPECT_EQ(MayClear("U:\\User\\Documents").clearing, Clearing::UsersOwn);
  EXPECT_TRUE(MayClearTree("W:\\Users\\User\\AppData\\Local\\Temp"));
  EXPECT_TRUE(files.Empty());
  EXPECT_TRUE(computer.Exists("C:\\Windows\\System32\\ntdll.dll"));
  std::string mounted = computer.Native("D:\\mounts\\x");
  if (mount(computer.Native("C:\\Windows").c_str(), mounted.c_str(), nullptr, MS_BIND, nullptr) != 0)
    CANNOT_PLAY("nothing can be mounted");
  EXPECT_EQ(MayClear("D:\\mounts\\x").clearing, Clearing::Refused);
  // What lies above a mount may be cleared, without what is mounted there.
  EXPECT_EQ(LibFileList().ListTree("D:\\mounts", files, folders), 0);
  LibDirectory().RemoveTree("D:\\mounts");
  umount2(mounted.c_str(), MNT_DETACH);
  EXPECT_TRUE(files.Empty());
  EXPECT_TRUE(computer.Exists("C:\\Windows\\System32\\ntdll.dll"));
}

// Another user makes such a tree in a second.
TEST_F(SwapAttack, ADeepTreeCostsNoMoreThanItsFolders) {
  constexpr int kDepth = 3'000;
  int at = open(computer.Native("C:\\Shared").c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
  for (int i = 0; i < kDepth; ++i) {
    ASSERT_EQ(mkdirat(at, "d", 0777), 0);
    ASSERT_EQ(mkdirat(at, "e", 0777), 0);
    int next = openat(at, "d", O_PATH | O_DIRECTORY | O_CLOEXEC);
    close(at);
    at = next;
  }
  close(at);
  std::clock_t begin = std::clock();
  CountedList files, folders;
  EXPECT_EQ(LibFileList().ListTree("C:\\Shared", files, folders), 0);
  EXPECT_EQ(folders.UpperBound(), 2 * kDepth);
  EXPECT_LT(folders.MemoryUsed(), std::size_t{160} * 2 * kDepth);
  EXPECT_EQ(LibDirectory().RemoveTree("C:\\Shared"), 1);
  auto seconds = (std::clock() - begin) / CLOCKS_PER_SEC;  // of this process alone
  EXPECT_LT(seconds, 20);
}

// Names that vanish while they are looked for cost no listing of the folder each.
TEST_F(SwapAttack, NamesThatVanishFromALargeFolderCostLittle) {
  constexpr int kFiles = 30'000, kGone = 3'000;
  std::string folder = computer.Native("C:\\Shared") + "/";
  for (int i = 0; i < kFiles; ++i) close(creat((folder + std::to_string(i)).c_str(), 0600));
  std::clock_t begin = std::clock();
  for (int i = 0; i < kGone; ++i) {
    unlink((folder + std::to_string(i)).c_str());
    EXPECT_EQ(LibFile().Delete("C:\\Shared\\" + std::to_string(i)), 0);
  }
  auto seconds = (std::clock() - begin) / CLOCKS_PER_SEC;  // of this process alone
  EXPECT_LT(seconds, 10);
}

}  // namespace

}  // namespace test
