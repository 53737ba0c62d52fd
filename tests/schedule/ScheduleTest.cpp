// The schedule's page, its first date, its start and stop.
#include <gtest/gtest.h>

#include "core/UserInformation.h"
#include "schedule/SchedulePage.h"
#include "schedule/m_Schedule.h"
#include "settings/m_Registry.h"
#include "support/FaultyMachine.h"
#include "support/Session.h"

using test::TestComputer;

// Notes which programs are started and told to end.
struct WatchedProcesses : test::FaultyMachine, platform::Processes {
  using FaultyMachine::FaultyMachine;
  platform::Processes& GetProcesses() override { return *this; }
  bool Start(std::string_view program) override {
    told.append("start ").append(program).append(",");
    return true;
  }
  int CloseByName(std::string_view name, std::string_view) override {
    told.append("close ").append(name).append(",");
    return 1;
  }
  bool ClaimInstance(std::string_view) override { return true; }
  void ReleaseInstance(std::string_view) override {}
  bool InstanceRuns(std::string_view) override { return false; }
  std::string told;
};

class ScheduleTest : public testing::Test {
 protected:
  ScheduleTest() {
    for (const char* name : {"Schedule", "Brasmir", "Lumaro", "Create report"}) Store(name, "0");
    computer.SetValue(core::keys::kUserInformation, core::kStartScheduleKey, "1");
    core::SetMainForm(&form);
    WireSchedule(form);
    // A Wednesday.
    computer.clock.Set({2026, 11, 18, 14, 5, 32});
    Load();
    form.ShowPage(form.fraSchedule);
  }
  void Store(const char* name, const std::string& text) {
    computer.SetValue(core::keys::kSchedule, name, text);
  }
  std::string Stored(const char* name) { return computer.GetValue(core::keys::kSchedule, name); }
  void Load() {
    m_Registry::ReadRegistrySettings();
    m_Schedule::LoadScheduleSettings(form);
  }
  std::string DateFor(const std::string& day, const std::string& time) {
    form.cboDaySchedule.SetText(day);
    form.txtTimeSchedule.Text = time;
    return m_Schedule::CalcScheduleDate();
  }
  void CompletePage() {
    form.chkEnableSchedule.Value = 1;
    form.chkIncludeLumaroSchedule.Value = 1;
    form.cboDaySchedule.SetText("Thursday");
    form.cboWeekSchedule.SetText("Every second Week");
    form.txtTimeSchedule.Text = "09:00:00";
  }
  void InstallScheduler() { computer.WriteFile("C:\\Program Files\\Tidorra\\Chronel.exe"); }
  bool LogonEntry() { return computer.HasValue(core::keys::kRun, "Chronel"); }

  TestComputer computer;
  frmMain form;
  test::SessionObjects session;
};

TEST_F(ScheduleTest, TheFirstDateFollowsDayAndTime) {
  // Times are compared as text.
  for (auto [day, time, date] : {std::tuple{"Wednesday", "14:05:33", "11/18/2026"},
                                 {"Wednesday", "14:05:32", "11/18/2026"},
                                 {"Wednesday", "14:05:31", "11/25/2026"},
                                 {"Wednesday", "", "11/25/2026"},
                                 {"Wednesday", "9:00:00", "11/18/2026"},
                                 {"Thursday", "", "11/19/2026"},
                                 {"Tuesday", "23:59:59", "11/24/2026"},
                                 {"wednesday", "23:59:59", ""},
                                 {"", "23:59:59", ""}})
    EXPECT_EQ(DateFor(day, time), date) << day << time;
  // Over the end of a year.
  computer.clock.Set({2027, 12, 31, 23, 0, 0});
  EXPECT_EQ(DateFor("Friday", "22:00:00"), "01/07/2028");
  EXPECT_EQ(DateFor("Thursday", "22:00:00"), "01/06/2028");
}

TEST_F(ScheduleTest, LoadsThePageFromTheCache) {
  EXPECT_EQ(form.lblUserMap.Caption, "Schedule...");
  EXPECT_EQ(form.cmdStartSchedule.Caption, "Start schedule");
  EXPECT_FALSE(form.cmdStartSchedule.Enabled);
  Store("Schedule", "1");
  Store("Day", "Sunday");
  Store("Time", "whenever");
  Store("Week", "Every fourth Week");
  Store("Brasmir", "1");
  Load();
  EXPECT_EQ(form.cboDaySchedule.Items().size(), 7u);
  EXPECT_EQ(form.cboDaySchedule.ListIndex(), 6);
  EXPECT_EQ(form.cboWeekSchedule.ListIndex(), 3);
  EXPECT_EQ(form.txtTimeSchedule.Text, "whenever");
  EXPECT_EQ(form.chkIncludeBrasmirSchedule.Value, 1);
  EXPECT_EQ(form.cmdStartSchedule.Caption, "Stop schedule");
  EXPECT_EQ(form.lblUserInfoSchedule.Caption, "Schedule started...");
  EXPECT_TRUE(form.cmdStartSchedule.Enabled);
  form.lblCurrDayAndTimeSchedule.Click();
  EXPECT_EQ(form.cboDaySchedule.Text(), "Wednesday");
  EXPECT_EQ(form.txtTimeSchedule.Text, "14:05:32");
}

TEST_F(ScheduleTest, AnIncompletePageStoresNothing) {
  CompletePage();
  form.chkIncludeLumaroSchedule.Value = 0;
  form.cmdStartSchedule.Click();
  form.chkIncludeBrasmirSchedule.Value = 1;
  form.cboWeekSchedule.SetText("");
  form.cmdStartSchedule.Click();
  EXPECT_EQ(computer.desktop.CountBoxes(
                "exclamation|Select settings to run...|Utilities: Select Brasmir Or Lumaro\r\n"
                "Start: Select Day And Week"),
            2);
  EXPECT_EQ(Stored("Day"), "");
  EXPECT_EQ(form.cmdStartSchedule.Caption, "Start schedule");
}

TEST_F(ScheduleTest, AMissingSchedulerLeavesTheFlagOff) {
  CompletePage();
  form.cmdStartSchedule.Click();
  EXPECT_EQ(computer.desktop.boxes.back(),
            "critical|Schedule Brasmir...|Open the schedule application failed.\r\n"
            "Schedule application could not be located in the installation Directory.\r\n"
            "C:\\Program Files\\Tidorra\\Chronel.exe");
  EXPECT_EQ(Stored("Schedule"), "0");
  EXPECT_EQ(Stored("Day"), "Thursday");
  EXPECT_EQ(Stored("Start date"), "11/19/2026");
  EXPECT_FALSE(LogonEntry());
  EXPECT_EQ(form.lblUserInfoSchedule.Caption, "Error starting schedule...");
  EXPECT_EQ(form.cmdStartSchedule.Caption, "Start schedule");
}

TEST_F(ScheduleTest, ASaveThatFailsStartsNothing) {
  InstallScheduler();
  CompletePage();
  for (bool commit : {false, true}) {
    WatchedProcesses watched(computer.Machine());
    if (commit)
      watched.registry.commitCode = 5;
    else
      watched.registry.refuseWrite = [](auto, std::string_view name) { return name == "Week" ? 5L : 0L; };
    form.cmdStartSchedule.Click();
    EXPECT_EQ(computer.desktop.CountBoxes("Saving settings to registry returned with error"), commit + 1);
    EXPECT_EQ(watched.told, "");
  }
}

TEST_F(ScheduleTest, StartsAndStops) {
  InstallScheduler();
  WatchedProcesses watched(computer.Machine());
  CompletePage();
  form.cmdStartSchedule.Click();
  EXPECT_TRUE(computer.desktop.boxes.empty());
  EXPECT_EQ(Stored("Schedule"), "1");
  EXPECT_EQ(Stored("Week"), "Every second Week");
  EXPECT_EQ(Stored("Brasmir"), "0");
  EXPECT_EQ(Stored("Lumaro"), "1");
  EXPECT_EQ(computer.GetValue(core::keys::kRun, "Chronel"), "C:\\Program Files\\Tidorra\\Chronel.exe");
  EXPECT_EQ(form.cmdStartSchedule.Caption, "Stop schedule");
  EXPECT_EQ(core::LoadedUserInformation(), nullptr);

  form.chkEnableSchedule.Value = 0;
  EXPECT_FALSE(form.UserClick(form.cmdStartSchedule));
  EXPECT_TRUE(LogonEntry());
  form.chkEnableSchedule.Value = 1;
  EXPECT_TRUE(form.UserClick(form.cmdStartSchedule));
  EXPECT_EQ(Stored("Schedule"), "0");
  EXPECT_FALSE(LogonEntry());
  EXPECT_EQ(form.lblUserInfoSchedule.Caption, "Schedule stopped...");
  EXPECT_EQ(watched.told, "start C:\\Program Files\\Tidorra\\Chronel.exe,close Chronel,");
}

TEST_F(ScheduleTest, TheNoticeComesWhileItsFlagIsOff) {
  InstallScheduler();
  WatchedProcesses watched(computer.Machine());
  CompletePage();
  computer.SetValue(core::keys::kUserInformation, core::kStartScheduleKey, "0");
  form.cmdStartSchedule.Click();
  frmUserInformation* box = core::LoadedUserInformation();
  ASSERT_NE(box, nullptr);
  EXPECT_EQ(box->chkDoNotShowThisMessage.Value, 0);
  EXPECT_EQ(
      box->lblInfo.Caption,
      "Important Schedule Information.\r\n\r\nSchedule will set Brasmir to run automatically.\r\n"
      "All settings set under Brasmir will apply to the schedule.\r\n"
      "This means that the application will work like it would normally when you manually run the "
      "application.\r\n"
      "Since you will not be asked about which individual files you want to delete\r\n"
      "and which ones you want to keep, it is strongly recomended that you enable\r\n"
      "either the Use Backup option or the Move Files To Recycle Bin option before enabling Schedule.\r\n"
      "Scheduler will delete files without user input. \r\n"
      "Be sure that the settings configured are correct. ");
  box->cmdClose.Click();

  // By the link it comes always, and shows the stored flag.
  computer.SetValue(core::keys::kUserInformation, core::kStartScheduleKey, "1");
  form.lblScheduleHelpSchedule.Click();
  box = core::LoadedUserInformation();
  ASSERT_NE(box, nullptr);
  EXPECT_EQ(box->chkDoNotShowThisMessage.Value, 1);
}

TEST_F(ScheduleTest, ShowsReportsThatAreThere) {
  form.lblViewReportSchedule.Click();
  form.lblViewStatusSchedule.Click();
  EXPECT_EQ(computer.desktop.boxes,
            (test::Strings{"information|Schedule report...|Open the Schedule report failed.\r\n"
                           "No report has been written.",
                           "information|Schedule status report...|Open the status Schedule report "
                           "failed.\r\nNo report has been written."}));
  computer.WriteFile("C:\\Program Files\\Tidorra\\Reports\\Schedule.txt", "done");
  form.lblViewReportSchedule.Click();
  EXPECT_EQ(computer.desktop.opened,
            test::Strings{"content C:\\Program Files\\Tidorra\\Reports\\Schedule.txt"});
}
