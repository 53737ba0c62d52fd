#include <csignal>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <set>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/host/HostFolders.h"
#include "platform/host/HostMachine.h"
#include "support/CannotPlay.h"
#include "support/ChildProcess.h"
#include "support/TestComputer.h"

namespace platform {
namespace {

namespace fs = std::filesystem;
using test::ChildProcess;
using test::Comes;
using test::TestComputer;

TEST(HostFoldersTest, KnowsTheFoldersOfACurrentProfile) {
  TestComputer computer({.userName = "Zoë Z."});
  HostMachine& machine = computer.Machine();
  const std::string profile = "C:\\Users\\Zoë Z.";
  EXPECT_EQ(machine.Folder(KnownFolder::StartMenu),
            profile + "\\AppData\\Roaming\\Microsoft\\Windows\\Start Menu");

  // One that isn't there can't be found; a file of its name is no folder, a link to a folder is one.
  computer.Remove(machine.Folder(KnownFolder::Temp));
  EXPECT_EQ(machine.Folder(KnownFolder::Temp), "");
  computer.WriteFile(profile + "\\AppData\\Local\\Temp");
  EXPECT_EQ(machine.Folder(KnownFolder::Temp), "");
  computer.Remove(profile + "\\AppData\\Local\\Temp");
  computer.MakeFolder("C:\\Elsewhere");
  computer.MakeLink(profile + "\\AppData\\Local\\Temp", "C:\\Elsewhere");
  EXPECT_EQ(machine.Folder(KnownFolder::Temp), profile + "\\AppData\\Local\\Temp");
  computer.Remove("C:\\Elsewhere");
  EXPECT_EQ(machine.Folder(KnownFolder::Temp), "") << "the link leads nowhere";
  // An emulator's prefix spells its folders in its own way.
  fs::rename(computer.Native("C:\\Windows"), computer.Native("C:\\windows"));
  EXPECT_EQ(machine.Folder(KnownFolder::Windows), "C:\\Windows");
}

TEST(HostMachineTest, AFirstStartMakesADriveAndLeavesWhatIsThere) {
  TestComputer outer({.drives = {}, .layout = false});
  std::string data = outer.Root() + "/home/share/brasmir";
  {
    HostMachine machine({.dataFolder = data, .userName = "Ann"});
    auto drives = machine.GetDrives().List();
    ASSERT_EQ(drives.size(), 1u);
    EXPECT_EQ(drives[0].letter, 'C');
    EXPECT_EQ(drives[0].kind, DriveKind::Fixed);
    for (int i = 0; i <= static_cast<int>(KnownFolder::CommonDesktop); ++i)
      EXPECT_NE(machine.Folder(static_cast<KnownFolder>(i)), "") << i;
    EXPECT_EQ(machine.Registry().Write(kCurrentUser, "A", "b", {ValueType::String, "c", 0}), 0);
  }
  fs::remove_all(data + "/drives/c:/Users");
  HostMachine machine({.dataFolder = data, .userName = "Ann"});
  EXPECT_EQ(machine.Folder(KnownFolder::Profile), "") << "made once only";
  EXPECT_EQ(machine.Registry().Read(kCurrentUser, "a", "B").text, "c");

  fs::create_directory(outer.Root() + "/empty");
  fs::create_directory_symlink(outer.Root() + "/empty", outer.Root() + "/home/drives");
  HostMachine linked({.dataFolder = outer.Root() + "/home", .userName = "Ann"});
  EXPECT_TRUE(fs::is_empty(outer.Root() + "/empty"));
}

TEST(HostMachineTest, TheDataFolderFollowsTheEnvironment) {
  auto with = [](const char* data, const char* home) {
    return ChildProcess([=]() -> std::string {
             data ? setenv("XDG_DATA_HOME", data, 1) : unsetenv("XDG_DATA_HOME");
             setenv("HOME", home, 1);
             return HostMachine::DefaultDataFolder();
           })
        .Result();
  };
  EXPECT_EQ(with("/data", "/home/ann"), "/data/brasmir");
  for (const char* none : {static_cast<const char*>(nullptr), "", "relative"})
    EXPECT_EQ(with(none, "/home/ann"), "/home/ann/.local/share/brasmir");
}

TEST(HostDrivesTest, ListsDrivesInTheOrderOfTheirLetters) {
  TestComputer computer({.drives = {{'Z', DriveKind::Network},
                                    {'C', DriveKind::Fixed},
                                    {'E', DriveKind::Removable},
                                    {'D', DriveKind::CdRom},
                                    {'R', DriveKind::RamDisk}}});
  std::string drives = computer.Machine().DrivesFolder();
  fs::create_directory(computer.Root() + "/mounted");
  fs::create_directory_symlink(computer.Root() + "/mounted", drives + "/m:");
  fs::create_directory_symlink(computer.Root() + "/gone", drives + "/n:");
  fs::create_directory(drives + "/Q:");
  fs::create_directory(drives + "/folder");
  fs::create_directory(drives + "/ä:");
  fs::create_directory(drives + "/1:");
  std::ofstream(drives + "/o:") << "a file";
  std::string letters;
  std::vector<DriveKind> kinds;
  for (const Drive& drive : computer.Machine().GetDrives().List()) {
    letters += drive.letter;
    kinds.push_back(drive.kind);
  }
  EXPECT_EQ(letters, "CDEMQRZ");
  EXPECT_EQ(kinds, (std::vector{DriveKind::Fixed, DriveKind::CdRom, DriveKind::Removable, DriveKind::Fixed,
                                DriveKind::Fixed, DriveKind::RamDisk, DriveKind::Network}));
}

class HostProcessesTest : public testing::Test {
 protected:
  static constexpr const char* kProgram = "C:\\Program Files\\Tidorra\\Chronel.exe";
  static constexpr const char* kInstall = "C:\\Program Files\\Tidorra";

  ~HostProcessesTest() override {
    for (pid_t process : Running()) kill(process, SIGKILL);
  }
  Processes& Programs() { return computer_.Machine().GetProcesses(); }
  std::string Own(const std::string& name) const { return computer_.Root() + "/bin/" + name; }
  // A script in the place of one of the family's executables.
  void InstallScript(const std::string& name, const std::string& text) {
    fs::create_directories(Own(""));
    std::ofstream(Own(name)) << "#!/bin/sh\n" << text;
    fs::permissions(Own(name), fs::perms::owner_all);
  }
  // A program that stays until it is told to end.
  void Install(const std::string& native) {
    fs::create_directories(fs::path(native).parent_path());
    fs::copy_file("/bin/sleep", native, fs::copy_options::overwrite_existing);
  }
  // Starts it with an argument, which Start itself doesn't give.
  pid_t Run(const std::string& native, const std::string& folder) {
    pid_t process = fork();
    if (process == 0) {
      if (chdir(folder.c_str()) == 0) execl(native.c_str(), native.c_str(), "600", nullptr);
      _exit(127);
    }
    EXPECT_TRUE(Comes([&] { return Running().contains(process); }));
    return process;
  }
  bool Runs(pid_t process) { return waitpid(process, nullptr, WNOHANG) == 0; }
  // All processes whose program lies in the test's folder.
  std::set<pid_t> Running() {
    std::set<pid_t> found;
    for (const auto& entry : fs::directory_iterator("/proc")) {
      std::error_code gone;
      fs::path program = fs::read_symlink(entry.path() / "exe", gone);
      if (!gone && program.string().starts_with(computer_.Root()))
        found.insert(static_cast<pid_t>(std::stol(entry.path().filename())));
    }
    return found;
  }

  TestComputer computer_;
};

TEST_F(HostProcessesTest, StartsTheFamilysExecutableDetachedAndNoFileOfTheDisk) {
  EXPECT_FALSE(Programs().Start(kProgram)) << "isn't there";
  // It tells where it is, in which session, and with what data.
  std::string report = computer_.Native("C:\\report.txt");
  InstallScript("Chronel", "{ pwd; echo $XDG_DATA_HOME; cut -d' ' -f6 /proc/$$/stat; } > '" + report +
                               ".new' 2>&1\nmv '" + report + ".new' '" + report + "'\n");
  for (const char* foreign : {kProgram, "C:\\Other.exe", "C:\\Kelvish.exe"}) {
    computer_.WriteFile(foreign, "#!/bin/sh\ntouch '" + computer_.Native("C:\\foreign") + "'\n");
    fs::permissions(computer_.Native(foreign), fs::perms::owner_all);
  }
  ASSERT_TRUE(Programs().Start("c:\\PROGRAM FILES\\tidorra\\chronel.EXE"));
  for (const char* none : {"C:\\Other.exe", "C:\\Kelvish.exe", kInstall, "", "/bin/true", "../bin/true"})
    EXPECT_FALSE(Programs().Start(none)) << none;
  ASSERT_TRUE(Comes([&] { return computer_.Exists("C:\\report.txt"); }));
  EXPECT_FALSE(computer_.Exists("C:\\foreign"));
  std::ifstream lines(report);
  std::string folder, data, session;
  std::getline(lines, folder);
  std::getline(lines, data);
  std::getline(lines, session);
  EXPECT_EQ(folder, computer_.DataFolder());
  EXPECT_EQ(data, computer_.Root());
  EXPECT_NE(session, std::to_string(getsid(0)));
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "leaves no child behind";
}

TEST_F(HostProcessesTest, ClosesOnlyTheNamedProgramOfThisComputer) {
  for (const std::string& native : {Own("Chronel"), Own("Kelvish"), Own("Chronel2"), Own("sub/Chronel")})
    Install(native);
  pid_t meant = Run(Own("Chronel"), computer_.DataFolder());
  const pid_t others[] = {
      Run(Own("Kelvish"), computer_.DataFolder()), Run(Own("Chronel2"), computer_.DataFolder()),
      Run(Own("sub/Chronel"), computer_.DataFolder()), Run(Own("Chronel"), computer_.Root())};
  for (const char* name : {"Chron", "", "Chronel2"})
    EXPECT_EQ(Programs().CloseByName(name, kInstall), 0) << name;
  EXPECT_EQ(Programs().CloseByName("CHRONEL", kInstall), 1);
  EXPECT_TRUE(Comes([&] { return !Runs(meant); }));
  for (pid_t process : others) {
    EXPECT_TRUE(Runs(process));
    kill(process, SIGKILL);
    waitpid(process, nullptr, 0);
  }
  EXPECT_EQ(Programs().CloseByName("Chronel", kInstall), 0) << "none is left";
}

TEST_F(HostProcessesTest, AProgramOfAnotherUserIsLeftAlone) {
  if (geteuid() != 0) CANNOT_PLAY("only the superuser can start one");
  Install(Own("Chronel"));
  // Whoever it runs for must be able to reach the program and its folder.
  for (const std::string& folder : {computer_.Root(), Own(""), computer_.DataFolder()})
    fs::permissions(folder, fs::perms(0755));
  fs::permissions(Own("Chronel"), fs::perms(0755));
  pid_t process = fork();
  if (process == 0) {
    test::BecomeNobody();
    if (chdir(computer_.DataFolder().c_str()) == 0) execl(Own("Chronel").c_str(), "Chronel", "600", nullptr);
    _exit(127);
  }
  ASSERT_TRUE(Comes([&] { return Running().contains(process); }));
  EXPECT_EQ(Programs().CloseByName("Chronel", kInstall), 0);
  EXPECT_TRUE(Runs(process));
  kill(process, SIGKILL);
  waitpid(process, nullptr, 0);
}

TEST_F(HostProcessesTest, AClaimIsHeldByOneProcessUntilItsEnd) {
  EXPECT_FALSE(Programs().InstanceRuns("Brasmir"));
  ChildProcess holder([&](const ChildProcess::Told& told) -> std::string {
    auto machine = computer_.AnotherMachine();
    if (!machine->GetProcesses().ClaimInstance("Brasmir")) return "no claim";
    if (!machine->GetProcesses().ClaimInstance("Brasmir")) return "not the second time";
    if (!machine->GetProcesses().InstanceRuns("Brasmir")) return "doesn't know of its own";
    told();
    for (;;) pause();
  });
  ASSERT_TRUE(holder.HasTold());
  EXPECT_TRUE(Programs().InstanceRuns("Brasmir"));
  EXPECT_FALSE(Programs().ClaimInstance("Brasmir"));
  EXPECT_FALSE(Programs().ClaimInstance("Brasmir")) << "a refusal isn't remembered as a claim";
  EXPECT_TRUE(Programs().ClaimInstance("Kelvish")) << "another name";
  EXPECT_FALSE(Programs().ClaimInstance("../escape"));
  EXPECT_FALSE(Programs().InstanceRuns("Chronel"));
  holder.Kill();
  EXPECT_EQ(holder.Result(), "killed by signal 9");
  EXPECT_FALSE(Programs().InstanceRuns("Brasmir"));
  EXPECT_TRUE(Programs().ClaimInstance("Brasmir"));
  EXPECT_FALSE(computer_.AnotherMachine()->GetProcesses().ClaimInstance("Brasmir"))
      << "another machine of this process is another program";
  EXPECT_TRUE(computer_.AnotherMachine()->GetProcesses().InstanceRuns("Brasmir"));
  computer_.Restart();
  EXPECT_FALSE(Programs().InstanceRuns("Brasmir")) << "given back with the machine";
}

TEST_F(HostProcessesTest, AStartedProgramDoesNotKeepTheClaim) {
  ASSERT_TRUE(Programs().ClaimInstance("Brasmir"));
  // A copy of sleep, so that the fixture finds and ends it.
  Install(Own("sleep"));
  InstallScript("Chronel",
                "touch '" + computer_.Native("C:\\started") + "'\nexec '" + Own("sleep") + "' 600\n");
  ASSERT_TRUE(Programs().Start(kProgram));
  ASSERT_TRUE(Comes([&] { return computer_.Exists("C:\\started") && !Running().empty(); }));
  computer_.Restart();
  EXPECT_FALSE(Programs().InstanceRuns("Brasmir"));
}

}  // namespace
}  // namespace platform
