// What the end of the session does to a run, and the clean at the start of the computer.
#include "AppFixture.h"
#include "app/MainWindow.h"
#include "core/Run.h"
#include "core/UserInformation.h"
#include "lumaro/CleanOnStartup.h"

namespace test {
namespace {

using R = c_Registry;

class SessionEndTest : public AppTest {
 protected:
  SessionEndTest() : AppTest({}) { computer.RemoveValue(kTidorra, "Install Directory"); }
  void SetUp() override {
    // The layout's own settings would be taken for the program's.
    computer.Registry().RemoveKey(platform::kCurrentUser, kTidorra);
    for (int i = 0; i < 40; ++i)
      computer.WriteFile("C:\\Users\\User\\AppData\\Local\\Temp\\t" + std::to_string(i) + ".tmp");
  }
  void InstallUnattended() {
    Install({{&R::LoadOnWindowsStartupLmro, "1"},
             {&R::CleanOnWindowsStartupLmro, "1"},
             {&R::ConfirmCleaningLmro, "0"}});
  }
  std::size_t TempFiles() { return computer.List("C:\\Users\\User\\AppData\\Local\\Temp").size(); }
};

TEST_F(SessionEndTest, AScanStopsUnwindsAndOnlyThenIsTheSessionReleased) {
  Start();
  long ended = 0;
  gCleaningStatus->FilesDeleted = 7;
  computer.desktop.onDoEvents = [&](long number) {
    if (ended || !core::Run::OnStack()) return;
    ended = number;
    // Told twice, it is one end.
    app::EndSession();
    app::EndSession();
    EXPECT_TRUE(gAppRunning->StopProcess);
    EXPECT_TRUE(core::HasMainForm());
  };
  Form().cmdScanComputerBrasmir.Click();
  EXPECT_NE(ended, 0);
  EXPECT_FALSE(core::HasMainForm());
  EXPECT_EQ(gRegistry, nullptr);
  EXPECT_EQ(computer.desktop.windows.back(), "quit");
  EXPECT_EQ(Uses(), "1") << "the session has been saved";
  EXPECT_EQ(computer.GetValue(kCleaningStatus, "Files deleted"), "7");
  EXPECT_TRUE(Boxes().empty());
  app::EndSession();
}

// Whatever the controls say, in another language for example: what runs and what is on is noted elsewhere.
TEST_F(SessionEndTest, TextsOnTheScreenDecideNothing) {
  Install({{&R::ConfirmCleaningLmro, "0"}, {&R::ConfirmCleaningBrsm, "0"}});
  Start();
  frmMain& form = Form();
  // At rest the texts of a run, during a run those of rest.
  auto say = [&](const char* text) {
    for (controls::Control* control : form.Controls()) control->Caption = text;
  };
  auto stops = [&](controls::Button& button, const char* atRest, const char* running) {
    say(running);
    bool asked = false;
    computer.desktop.onDoEvents = [&](long) {
      if (asked) return;
      asked = core::Run::OnStack();
      EXPECT_FALSE(gAppRunning->StopProcess);
      say(atRest);
      button.Click();
      EXPECT_TRUE(gAppRunning->StopProcess) << button.Name();
    };
    button.Click();
    EXPECT_TRUE(asked) << button.Name();
    computer.desktop.onDoEvents = nullptr;
  };
  stops(form.cmdScanComputerBrasmir, "Scan computer", "Stop scanning");
  form.cmdScanComputerBrasmir.Click();
  form.cmdViewResultsScanComputerBrasmir.Click();
  ASSERT_EQ(form.lvwFilesResultsBrasmir.Count(), 40);
  form.lvwFilesResultsBrasmir.CheckAll(true);
  stops(form.cmdDeleteResultsBrasmir, "Delete files", "Stop");
  EXPECT_EQ(TempFiles(), 39u);
  EXPECT_EQ(gGarbageFiles.UpperBound(), 39) << "the list of the category that is shown";
  stops(form.cmdCleanUpScanComputerLumaro, "Clean up", "Stop");
  EXPECT_GT(TempFiles(), 30u);

  form.lblMainMenu[forms::menu::Lumaro].Click();
  say("Brasmir...");
  form.lblHome[forms::home::Advanced].Click();
  EXPECT_EQ(form.CurrentPage(), &form.fraScanComputerLumaro);

  controls::ListView& filters = form.lvwFileFiltersBrasmir;
  filters.Select(1);
  say("Save");
  form.cmdModifyFileFiltersBrasmir.Click();
  EXPECT_EQ(form.txtFilterFileFiltersBrasmir.Text.Get(), filters.Text(1));
  form.txtDescriptionFileFiltersBrasmir.Text = "another one";
  say("Modify");
  form.cmdModifyFileFiltersBrasmir.Click();
  EXPECT_EQ(filters.SubItem(1, 1), "another one");

  form.lblMainMenu[forms::menu::Schedule].Click();
  form.chkIncludeLumaroSchedule.Value = 1;
  form.cboDaySchedule.SetListIndex(0);
  form.cboWeekSchedule.SetListIndex(0);
  say("Stop schedule");
  form.cmdStartSchedule.Click();
  EXPECT_EQ(computer.desktop.CountBoxes("Open the schedule application failed."), 1) << "it was to start";
  form.SetScheduleOn(true);
  say("Start schedule");
  form.cmdStartSchedule.Click();
  EXPECT_FALSE(form.ScheduleIsOn);
}

TEST_F(SessionEndTest, OpenWindowsCloseFirstAndSaveWhatIsTheirs) {
  Start();
  Form().lblGraphDiskView.Click();
  Form().lblUserInformationBrokenShortcuts.Click();
  frmUserInformation& box = *core::LoadedUserInformation();
  box.chkDoNotShowThisMessage.Value = 1;
  app::EndSession();
  EXPECT_TRUE(core::OpenForms().empty());
  EXPECT_EQ(computer.GetValue(kUserInformation, "Broken shortcuts Scan entire drive"), "1");
  EXPECT_EQ(gRegistry, nullptr);
}

TEST_F(SessionEndTest, AnUnattendedCleanRunsHiddenWithItsThreeWaits) {
  InstallUnattended();
  test::Strings seen;
  computer.desktop.onSleep = [&](int milliseconds) {
    if (milliseconds < 1000) return;
    frmCleanOnStartup* window = lumaro::CleanOnStartup().Loaded();
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(window->anm.Playing);
    EXPECT_FALSE(Form().Visible);
    EXPECT_TRUE(gAppRunning->AppLoading);
    seen.push_back(window->lblStatus.Caption.Get() + " " + std::to_string(milliseconds) + " " +
                   std::to_string(TempFiles()));
  };
  ASSERT_EQ(TempFiles(), 40u);
  Start();
  EXPECT_EQ(seen, (test::Strings{"Status: Scanning directories... 5000 40",
                                 "Status: Cleaning directories... 10000 40",
                                 "Status: Finished cleaning (Closing)... 5000 0"}));
  EXPECT_EQ(lumaro::CleanOnStartup().Loaded(), nullptr);
  EXPECT_EQ(gCleaningStatus->FilesDeleted, 40);
  EXPECT_TRUE(Shown("tray main-1-lumaro|Lumaro"));
  EXPECT_FALSE(Form().Visible);
  EXPECT_FALSE(gAppRunning->AppLoading);
  EXPECT_TRUE(Boxes().empty());
}

TEST_F(SessionEndTest, TheCleanNeedsBothOptions) {
  Install({});
  for (bool load : {true, false}) {
    Store(&R::LoadOnWindowsStartupLmro, load ? "1" : "0");
    Store(&R::CleanOnWindowsStartupLmro, load ? "0" : "1");
    Start();
    EXPECT_TRUE(computer.desktop.sleeps.empty());
    EXPECT_EQ(Form().Visible, !load);
    EXPECT_EQ(TempFiles(), 40u);
    Forget();
  }
}

TEST_F(SessionEndTest, TheEndOfTheSessionCutsTheUnattendedCleanShort) {
  InstallUnattended();
  bool ended = false;
  computer.desktop.onDoEvents = [&](long) {
    if (ended || !core::Run::OnStack()) return;
    ended = true;
    app::EndSession();
    EXPECT_TRUE(core::HasMainForm());
  };
  Start();
  EXPECT_TRUE(ended);
  EXPECT_GT(TempFiles(), 0u);
  int waits = 0;
  for (int milliseconds : computer.desktop.sleeps) waits += milliseconds >= 1000;
  EXPECT_EQ(waits, 2) << "the last wait is for nobody";
  EXPECT_TRUE(core::OpenForms().empty());
  EXPECT_EQ(gAppRunning, nullptr);
  EXPECT_EQ(Loading(), "0");
  EXPECT_EQ(computer.desktop.windows.back(), "quit");
}

}  // namespace
}  // namespace test
