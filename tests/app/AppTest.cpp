// The start, and the main window's life, with all rooms behind it.
#include <fstream>

#include "AppFixture.h"
#include "app/MainWindow.h"
#include "core/Run.h"
#include "settings/SettingsTable.h"
#include "support/FaultyMachine.h"
#include "support/Session.h"

namespace test {
namespace {

using platform::BoxAnswer;
using R = c_Registry;

class StartTest : public AppTest {};

TEST_F(StartTest, AFirstStartMakesItsSettingsAndComesUpWithoutAWord) {
  Start();
  EXPECT_TRUE(Boxes().empty());
  ASSERT_TRUE(core::HasMainForm());
  EXPECT_TRUE(Form().Visible);
  EXPECT_EQ(Form().CurrentPage(), &Form().fraWelcome);
  EXPECT_EQ(Form().HelpFile, "C:\\Program Files\\Tidorra\\Help\\Tidorra.chm");
  EXPECT_EQ(Form().skn.Picture, "C:\\Program Files\\Tidorra\\Skin\\Zinc-blue2.bmp");
  EXPECT_EQ(Form().lvwDrivesBrasmir.Count(), 1);
  EXPECT_EQ(Form().chkRecycleBinCleaningBrasmir.Value, 1);
  EXPECT_EQ(Form().lblTotalSizeFreedUpCleaningStatus.Caption.Get(), "0 KB");
  EXPECT_EQ(Form().mnuFile.Entries.size(), 15u);
  EXPECT_FALSE(gAppRunning->AppLoading);
  EXPECT_TRUE(gAppRunning->AppIsLoaded);
  EXPECT_EQ(Loading(), "0");
  EXPECT_EQ(installed, test::Strings{"C:\\Program Files\\Tidorra\\ first"});
  EXPECT_TRUE(computer.Exists("C:\\Program Files\\Tidorra\\Temp"));

  // The next one keeps what the user has made of them.
  computer.SetValue(kCleaning, "Erase passes", "9");
  Forget();
  Start();
  EXPECT_EQ(Form().spnEraseTimesCleaningBrasmir.Value, 9);
  EXPECT_EQ(installed.back(), "C:\\Program Files\\Tidorra\\");
}

TEST_F(StartTest, TheFlagIsUpWhileTheWindowIsFilled) {
  Install({{&R::BrokenShortCutsScanAllDriveBrsm, "1"},
           {&R::SkipShortcutsPointingToRemovableDrivesBrsm, "0"},
           {&R::MoveFilesToRecyclebinLmro, "1"},
           {&R::EmptyRecycleBinLmro, "1"},
           {&R::EnableScheduleSch, "1"}});
  std::string flag;
  computer.desktop.onBox = [&](const std::string&) {
    flag = Loading();
    EXPECT_TRUE(gAppRunning->AppLoading);
    EXPECT_FALSE(core::CloseForm(Form())) << "a start can't be closed";
  };
  Start();
  EXPECT_EQ(Boxes().size(), 1u) << "the recycle bin's warning, and none of shortcuts";
  EXPECT_EQ(flag, "1");
  EXPECT_EQ(core::OpenForms().size(), 1u);
  EXPECT_TRUE(Form().imgUser[forms::ScheduleMark].Visible);
  EXPECT_EQ(Form().lblScheduleStatus.Caption.Get(), "Brasmir is configured to run automatically...");
  Form().UserClick(Form().lblScheduleStatus);
  EXPECT_EQ(Form().CurrentPage(), &Form().fraSchedule);
}

TEST_F(StartTest, ASecondInstanceAsksForTheScreenAndEndsWithoutTouchingAnything) {
  auto running = computer.AnotherMachine();
  ASSERT_TRUE(running->GetProcesses().ClaimInstance("Brasmir"));
  for (int width : {320, 639, 641, 1920}) {
    computer.desktop.screenSize = {width, 480};
    Start();
  }
  EXPECT_TRUE(Boxes().empty()) << "only exactly 640 pixels are asked";
  computer.desktop.screenSize = {640, 480};
  computer.desktop.Answer(BoxAnswer::No);
  Start();
  EXPECT_EQ(Boxes(), test::Strings{
                         "exclamation?|Screen resolution|You are using Low Screen Resolution:\r\n"
                         "Current: 640*480\r\nFor Tidorra to work properly, change to Resolution: 800*600\r\n"
                         "\r\nWould you like to change screen resolution?"});
  EXPECT_TRUE(computer.desktop.resolutions.empty());
  computer.desktop.Answer(BoxAnswer::Yes);
  Start();
  ASSERT_EQ(computer.desktop.resolutions.size(), 1u);
  EXPECT_EQ(computer.desktop.resolutions[0].width, 800);
  EXPECT_EQ(computer.desktop.resolutions[0].height, 600);
  EXPECT_TRUE(core::OpenForms().empty());
  EXPECT_FALSE(computer.HasValue(kBrasmir, "Loading"));
  EXPECT_TRUE(installed.empty());
  EXPECT_FALSE(gAppRunning->AppLoading);
  running.reset();
  computer.desktop.screenSize = {1024, 768};
  Start();
  EXPECT_TRUE(core::HasMainForm());
}

TEST_F(StartTest, SettingsThatCannotBeSavedAreToldAtTheStartAndAtTheEnd) {
  Install({});
  test::FaultyMachine faulty(computer.Machine());
  faulty.registry.state = {platform::StoreHealth::ReadOnly, "/there", "No right.", "Get one."};
  Start();
  EXPECT_EQ(exitCode, 0);
  const std::string box =
      "exclamation|Registry error|The settings of Brasmir can't be saved. "
      "What you change is lost when the program closes.\r\n/there\r\nNo right.\r\nGet one.";
  EXPECT_EQ(Boxes(), std::vector{box});
  EXPECT_TRUE(core::CloseForm(Form()));
  EXPECT_EQ(Boxes(), (std::vector{box, box}));
}

TEST_F(StartTest, WithoutSettingsThatCanBeReadOrMadeItTellsAndEnds) {
#ifndef _WIN32
  // A damaged file of the played computer's registry, which stays as it is.
  Start();
  Forget();
  std::string file = computer.DataFolder() + "/registry.sqlite";
  std::ofstream(file, std::ios::binary | std::ios::trunc) << std::string(8192, 'x');
  computer.Restart();
  Start();
  // Named, with what to do about it.
  const platform::StoreState damaged = computer.Registry().State();
  EXPECT_EQ(damaged.place, file);
  EXPECT_EQ(
      Boxes(),
      std::vector{"critical|Registry error|Error retrieving the registry settings for Brasmir\r\n" + file +
                  "\r\n" + damaged.fault + "\r\n" + damaged.advice + "\r\nBrasmir will shutdown!"});
  EXPECT_EQ(exitCode, 1);
  EXPECT_TRUE(core::OpenForms().empty());
  EXPECT_FALSE(gAppRunning->AppLoading);
  std::ifstream after(file, std::ios::binary);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(after), {}), std::string(8192, 'x'));
  std::filesystem::remove(file);
  computer.Restart();
#endif

  // A fresh store that can't be written, and one without the packaged file: nothing is left that the next
  // start would take for settings.
  for (bool unwritable : {true, false}) {
    computer.desktop.Clear();
    std::string text = settingsText;
    if (!unwritable) settingsText.clear();
    {
      test::FaultyMachine faulty(computer.Machine());
      if (unwritable) faulty.registry.refuseWrite = [](std::string_view, std::string_view) { return 5; };
      Start();
    }
    settingsText = text;
    EXPECT_EQ(Boxes(), std::vector{registryError});
    EXPECT_TRUE(core::OpenForms().empty());
    EXPECT_FALSE(computer.Registry().KeyExists(platform::kCurrentUser, kTidorra));
    computer.Restart();
  }
  computer.desktop.Clear();
  Start();
  EXPECT_TRUE(Boxes().empty());
  EXPECT_TRUE(core::HasMainForm());
}

TEST_F(StartTest, AValueThatIsGoneIsReportedAndTheWindowCanStillBeSeenAndClosed) {
  Install({});
  const auto& setting = settings::SettingOf(&R::LoadOnWindowsStartupLmro);
  computer.RemoveValue(setting.key, setting.name);
  Start();
  EXPECT_EQ(Boxes(),
            (std::vector{test::Report("m_Registry", "AssignOptionSettings", "Arguments: frmMain ",
                                      "Type mismatch", 13),
                         test::Report("frmMain", "Form_Load", "Arguments: None ", "Type mismatch", 13),
                         test::Report("m_SubMain", "Main", "Arguments: None ", "Type mismatch", 13)}));
  ASSERT_TRUE(core::HasMainForm());
  EXPECT_TRUE(Form().Visible);
  EXPECT_EQ(Loading(), "0");
  EXPECT_GT(Form().lvwFileFiltersBrasmir.Count(), 0) << "the steps before the failure are done";
  EXPECT_TRUE(core::CloseForm(Form()));
  EXPECT_FALSE(computer.HasValue(setting.key, setting.name)) << "what wasn't filled isn't saved";
}

TEST_F(StartTest, EveryButtonAndLinkOfEveryPageAnswers) {
  Start();
  for (controls::Control* control : Form().Controls()) {
    if (auto* button = dynamic_cast<controls::Button*>(control)) {
      EXPECT_TRUE(static_cast<bool>(button->Click)) << control->Name();
    } else if (auto* label = dynamic_cast<controls::Label*>(control)) {
      bool link =
          label->Style == controls::LabelStyle::Link || label->Style == controls::LabelStyle::MenuEntry;
      EXPECT_TRUE(!link || label->Click) << control->Name();
    }
  }
  EXPECT_TRUE(Form().lblWelcomeScreen.Click && Form().lblOpenHelp.Click && Form().MenuClick &&
              Form().lvwFilesResultsBrasmir.MouseDown);
}

class CloseTest : public AppTest {
 protected:
  void StartIdle() {
    Start();
    ASSERT_TRUE(gAppRunning->AppIsLoaded);
    computer.desktop.windows.clear();
  }
};

TEST_F(CloseTest, EachStateAnswersACloseAsToldAndTheEndOfTheSessionNever) {
  struct State {
    bool loaded, loading, running, otherWindow, tray;
    bool accepted;
  } states[] = {{true, false, false, false, false, true}, {false, false, false, false, false, false},
                {true, true, false, false, false, false}, {true, false, true, false, false, false},
                {false, true, true, true, true, false},   {true, false, false, true, false, false},
                {true, false, false, false, true, false}, {true, false, true, true, true, false}};
  int uses = 0;
  for (const State& state : states)
    for (int mode : {0, 2}) {
      SCOPED_TRACE(testing::Message() << &state - states << " mode " << mode);
      Start();
      gAppRunning->AppIsLoaded = state.loaded;
      gAppRunning->AppLoading = state.loading;
      gAppRunning->AppRunning = state.running;
      if (state.otherWindow) Form().lblGraphDiskView.Click();
      Form().chkAddToSystemTrayOptionsLumaro.Value = state.tray;
      gCleaningStatus->FilesDeleted = 5;
      int cancel = -1;
      app::Form_QueryUnload(Form(), cancel, mode);
      EXPECT_EQ(cancel, state.accepted || mode == 2 ? 0 : 1);
      // Refused or not, everything has been saved and counted.
      EXPECT_EQ(gRegistry->AddToSystemTrayLmro, state.tray ? "1" : "0");
      EXPECT_EQ(Uses(), std::to_string(++uses));
      EXPECT_EQ(computer.GetValue(kCleaningStatus, "Files deleted"), "5");
      EXPECT_EQ(gCleaningStatus->FilesDeleted, 0);
      Store(&R::AddToSystemTrayLmro, "0");
      bool told = state.loaded && !state.loading && !state.running && state.otherWindow;
      EXPECT_EQ(Boxes(), told ? test::Strings{"exclamation|Open Windows|Windows are open in the "
                                              "application.\r\nClose all Windows before closing Brasmir"}
                              : test::Strings{});
      Forget();
    }
}

TEST_F(CloseTest, AnAcceptedCloseReleasesTheSessionAndEndsTheProgram) {
  StartIdle();
  EXPECT_TRUE(Form().UserClick(Form().cmdCloseApplication));
  EXPECT_FALSE(core::HasMainForm() || gRegistry || gAppRunning || gCleaningStatus);
  EXPECT_EQ(computer.desktop.windows.back(), "quit");
  EXPECT_TRUE(Boxes().empty());
}

TEST_F(CloseTest, TheRunKeyFollowsTheOptionOnlyAtAnAcceptedClose) {
  StartIdle();
  Form().chkLoadOnWindowsStartupOptionsLumaro.Value = 1;
  gAppRunning->AppRunning = true;
  EXPECT_FALSE(core::CloseForm(Form()));
  EXPECT_FALSE(computer.HasValue(kRun, "Brasmir"));
  gAppRunning->AppRunning = false;
  EXPECT_TRUE(core::CloseForm(Form()));
  EXPECT_EQ(computer.GetValue(kRun, "Brasmir"), "C:\\Program Files\\Tidorra\\Brasmir.exe");
  Forget();
  Start();
  EXPECT_FALSE(Form().Visible) << "it starts in the tray now";
  Form().chkLoadOnWindowsStartupOptionsLumaro.Value = 0;
  EXPECT_FALSE(core::CloseForm(Form())) << "never shown, so a close can't reach it";
  EXPECT_EQ(computer.GetValue(kRun, "Brasmir"), "C:\\Program Files\\Tidorra\\Brasmir.exe");
  core::ShowForm(Form());
  EXPECT_TRUE(core::CloseForm(Form()));
  EXPECT_FALSE(computer.HasValue(kRun, "Brasmir"));
}

TEST_F(CloseTest, WithTheTrayTheWindowHidesAndItsDoubleClickOpensLumaro) {
  StartIdle();
  Form().chkAddToSystemTrayOptionsLumaro.Value = 1;
  EXPECT_FALSE(core::CloseForm(Form()));
  EXPECT_FALSE(Form().Visible);
  EXPECT_EQ(computer.desktop.windows, (test::Strings{"tray main-1-lumaro|Lumaro", "hide frmMain"}));
  computer.SetValue(kCleaningStatus, "Date used", "seen from outside");
  int scans = 0;
  Form().cmdScanComputerLumaro.Click = [&] {
    ++scans;
    EXPECT_TRUE(Form().Visible);
    EXPECT_EQ(Form().lblUserMap.Caption.Get(), "Lumaro...");
    EXPECT_EQ(Form().lblDateUsedCleaningStatus.Caption.Get(), "seen from outside");
  };
  {
    core::Run run(core::Running::ScanLumaro, nullptr);
    Form().TrayDoubleClick();
    EXPECT_EQ(scans, 0);
    EXPECT_FALSE(Form().Visible) << "nothing while a run goes on";
  }
  Form().TrayDoubleClick();
  EXPECT_EQ(scans, 1);
  EXPECT_EQ(Form().CurrentPage(), &Form().fraScanComputerLumaro);
  EXPECT_TRUE(Shown("activate frmMain"));
  EXPECT_TRUE(Shown("show frmMain"));
}

TEST_F(CloseTest, WithoutATrayTheWindowIsMinimisedWhereItWouldBeHidden) {
  computer.desktop.trayIsThere = false;
  Install({{&R::LoadOnWindowsStartupLmro, "1"}, {&R::AddToSystemTrayLmro, "1"}});
  Start();
  EXPECT_TRUE(Shown("minimise frmMain"));
  EXPECT_FALSE(Shown("hide frmMain"));
  EXPECT_FALSE(Shown("show frmMain"));
  EXPECT_TRUE(Form().Visible);
  EXPECT_FALSE(gAppRunning->AppIsLoaded);
  Form().Activate();
  EXPECT_TRUE(gAppRunning->AppIsLoaded);
  EXPECT_FALSE(core::CloseForm(Form()));
  EXPECT_FALSE(Shown("hide frmMain"));
}

}  // namespace
}  // namespace test
