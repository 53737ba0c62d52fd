// The programs themselves, as processes of their own.
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <spawn.h>
#include <sys/wait.h>

#include "platform/LibSmall.h"
#include "removal/m_Log.h"
#include "schedule/Calendar.h"
#include "schedule/SchedulePage.h"
#include "settings/m_Registry.h"
#include "siblings/SiblingFixture.h"

namespace {

namespace fs = std::filesystem;

class EndToEndTest : public test::SiblingTest {
 protected:
  EndToEndTest() {
    // As a build lays them: StartEntries finds the others in share/bin beside it, and the test's own computer
    // has them in bin.
    for (const char* folder : {"/bin", "/share", "/share/bin"})
      fs::create_directory(computer.Root() + folder);
    fs::copy_file(PROGRAM_StartEntries, starter);
    for (const auto& [name, program] :
         {std::pair{"Chronel", PROGRAM_Chronel}, {"Kelvish", PROGRAM_Kelvish}}) {
      for (const char* folder : {"/bin/", "/share/bin/"})
        fs::copy_file(program, computer.Root() + folder + name);
      computer.WriteFile(Install(std::string(name) + ".exe"), "stands for it");
    }
    m_Registry::ReadRegistrySettings();
    core::SetMainForm(&form);
    WireSchedule(form);
    computer.SetValue(core::keys::kUserInformation, "Start Schedule", "1");
  }
  ~EndToEndTest() override {
    Schedule("Schedule", "0");
    platform::LibProcess().CloseByName("Chronel");
    EXPECT_TRUE(test::Comes([&] { return !Runs("Chronel") && !Runs("Kelvish"); }));
    // Before the session's objects, which it may ask for.
    core::DropAllForms();
  }

  bool Runs(const char* name) { return computer.Machine().GetProcesses().InstanceRuns(name); }
  bool StatusHas(const char* text) {
    return computer.ReadFile(Install("Reports\\Status Schedule.txt")).find(text) != std::string::npos;
  }
  // Runs a program to its end; its exit code.
  int Run(const char* program) {
    std::string data = "XDG_DATA_HOME=" + computer.Root();
    std::string path = std::string("PATH=") + getenv("PATH");
    char* arguments[] = {const_cast<char*>(program), nullptr};
    char* environment[] = {data.data(), path.data(), nullptr};
    pid_t process;
    if (posix_spawn(&process, program, nullptr, nullptr, arguments, environment) != 0) return -1;
    int status = -1;
    while (waitpid(process, &status, 0) < 0 && errno == EINTR) {
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  const std::string starter = computer.Root() + "/StartEntries";
  test::SessionObjects session;
  frmMain form;
};

TEST_F(EndToEndTest, AScheduleTwoSecondsAheadCleansAndStops) {
  const std::string temporary = computer.Profile() + "\\AppData\\Local\\Temp\\left.txt";
  computer.WriteFiles({"C:\\Data\\garbage.tmp", "C:\\Data\\kept.txt", temporary});

  time_t soon = time(nullptr) + 2;
  tm local{};
  localtime_r(&soon, &local);
  platform::DateTime due{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
                         local.tm_hour,        local.tm_min,     local.tm_sec};
  form.chkEnableSchedule.Value = 1;
  form.chkIncludeBrasmirSchedule.Value = form.chkIncludeLumaroSchedule.Value = 1;
  form.chkCreateReportSchedule.Value = 1;
  form.cboDaySchedule.SetText(schedule::DayName(platform::DayOf(due)));
  form.cboWeekSchedule.SetText("Every third Week");
  form.txtTimeSchedule.Text = computer.Machine().GetLocale().LongTime(due);
  form.cmdStartSchedule.Caption = "Start schedule";
  form.cmdStartSchedule.Click();
  ASSERT_EQ(form.cmdStartSchedule.Caption.Get(), "Stop schedule");
  ASSERT_TRUE(computer.HasValue(core::keys::kRun, "Chronel"));
  const std::string first = Scheduled("Start date");

  ASSERT_TRUE(test::Comes([&] { return Scheduled("Start date") != first; }));
  EXPECT_TRUE(computer.Left({"C:\\Data\\garbage.tmp", temporary}).empty());
  EXPECT_EQ(computer.ReadFile("C:\\Data\\kept.txt"), "content");
  EXPECT_EQ(Scheduled("Start date"), computer.Machine().GetLocale().ShortDate(
                                         platform::DateOf(platform::DayOf(due) + std::chrono::days(21))));
  EXPECT_TRUE(test::Comes([&] { return StatusHas("State: Waiting for the next run\r\n"); }));
  EXPECT_TRUE(Runs("Chronel"));

  form.cmdStartSchedule.Click();
  EXPECT_EQ(form.cmdStartSchedule.Caption.Get(), "Start schedule");
  EXPECT_TRUE(test::Comes([&] { return !Runs("Chronel"); }));
  EXPECT_TRUE(StatusHas("State: Ended"));
  EXPECT_FALSE(computer.HasValue(core::keys::kRun, "Chronel"));
}

TEST_F(EndToEndTest, AHeldFileGoesAtTheNextStartThatFindsItFree) {
  m_Registry::ReadRegistrySettings();
  computer.WriteFile("C:\\Data\\held.tmp");
  m_Log::WriteLockedFilesToLog("C:\\Data\\held.tmp");
  // The log tells when it has been through.
  computer.SetValue(core::keys::kKelvish, "Log actions", "1");
  const std::string log = computer.Profile() + "\\Desktop\\Kelvish Log.txt";
  {
    test::Hold hold(computer.Native("C:\\Data\\held.tmp"));
    EXPECT_EQ(Run(starter.c_str()), 0);
    ASSERT_TRUE(test::Comes([&] { return computer.Exists(log) && !Runs("Kelvish"); }));
  }
  EXPECT_EQ(LockedCopy(), "C:\\Data\\held.tmp\r\n");
  EXPECT_EQ(fs::status(computer.Native(log)).permissions(), fs::perms(0600)) << "for nobody else's eyes";
  computer.Restart();
  EXPECT_EQ(Run(starter.c_str()), 0);
  ASSERT_TRUE(test::Comes([&] { return !computer.Exists("C:\\Data\\held.tmp"); }));
  ASSERT_TRUE(
      test::Comes([&] { return TempFiles().empty() && !computer.WillStartKelvish() && !Runs("Kelvish"); }));
}

TEST_F(EndToEndTest, AStartEntryRunsOnceAndStartsNoFileOfTheDisk) {
  const test::Strings foreign = {"C:\\Program Files\\with blank.exe", Install("Kelvish.exe"),
                                 Install("Brasmir.exe"), "C:\\Data\\note.txt"};
  for (const std::string& path : foreign) {
    computer.WriteFile(path, "#!/bin/sh\ntouch '" + computer.Native("C:\\started") + "'\n");
    fs::permissions(computer.Native(path), fs::perms::owner_all);
    computer.SetValue(platform::kLocalMachine, core::keys::kRunOnce, path, " \"" + path + "\" ");
  }
  computer.SetValue(platform::kLocalMachine, core::keys::kRunOnce, "Gone", "C:\\gone.exe");
  EXPECT_EQ(Run(starter.c_str()), 1);
  EXPECT_TRUE(test::Comes([&] { return !Runs("Kelvish"); }));
  test::Strings names;
  EXPECT_TRUE(test::Comes([&] {
    names.clear();
    computer.Registry().Names(platform::kLocalMachine, core::keys::kRunOnce, names);
    return names.empty();
  }));
  EXPECT_FALSE(computer.Exists("C:\\started"));
}

// The main program lies beside the one that honours the entries, not on the played computer.
TEST_F(EndToEndTest, TheMainProgramsEntryStartsTheRealOne) {
  const std::string program = computer.Root() + "/Brasmir";
  computer.SetValue(core::keys::kRun, "Brasmir", Install("Brasmir.exe"));
  EXPECT_EQ(Run(starter.c_str()), 1) << "it does not exist";
  std::ofstream(program) << "#!/bin/sh\ntouch '" << computer.Native("C:\\started") << "'\n";
  fs::permissions(program, fs::perms::owner_all);
  EXPECT_EQ(Run(starter.c_str()), 0);
  EXPECT_TRUE(test::Comes([&] { return computer.Exists("C:\\started"); }));
}

}  // namespace
