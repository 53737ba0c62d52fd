#include "LumaroFixture.h"
#include "core/Run.h"
#include "forms/frmCleanOnStartup.h"
#include "lumaro/CleanOnStartup.h"

namespace test {
namespace {

using platform::BoxAnswer;

const Strings kScanPercents = {"0%", "14%", "29%", "43%", "57%", "71%", "86%", "100%", "0%"};

Strings Then(Strings first, const Strings& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

TEST_F(LumaroTest, RunWithEverythingOffWalksAllStepsAndScans) {
  computer.WriteFile(Temp("a.tmp"));
  form.cmdCleanUpScanComputerLumaro.Enabled = true;
  EXPECT_TRUE(form.UserClick(form.cmdCleanUpScanComputerLumaro));
  EXPECT_EQ(Percents(),
            Then({"10%", "20%", "30%", "40%", "50%", "60%", "70%", "80%", "90%", "100%"}, kScanPercents));
  EXPECT_TRUE(computer.Exists(Temp("a.tmp")));
  EXPECT_EQ(form.cmdCleanUpScanComputerLumaro.Caption, "Clean up");
  EXPECT_EQ(form.lblProcessInfoScanComputerLumaro.Caption, "Process: Finished cleaning computer");
  EXPECT_FALSE(gAppRunning->AppRunning);
  EXPECT_FALSE(core::Run::OnStack());
  EXPECT_EQ(desktop.pointer, platform::Pointer::Default);
  EXPECT_TRUE(desktop.boxes.empty());
}

TEST_F(LumaroTest, RunCleansEveryPlaceAndShowsWhatIsLeft) {
  TurnPlacesOn();
  gRegistry->ClearHistoryLmro = gRegistry->ClearIndexDatFilesLmro = gRegistry->EmptyRecycleBinLmro =
      gRegistry->MoveFilesToRecyclebinLmro = "1";
  form.chkEmptyXPPrefetchDirOptionsLumaro.Value = 1;
  form.chkFireFoxCacheOptionsLumaro.Value = 1;
  const std::string firefox = Roaming("Mozilla\\Firefox\\Profiles\\ab.default\\Cache\\data");
  StoreFolder("C:\\Stuff", "True");
  ShowFolder("C:\\Stuff", true);
  computer.AddCacheEntry("http://a/", "Content.IE5\\AB\\a.gif");
  const Strings windows = {"C:\\Windows\\Downloaded Program Files\\a.ocx",
                           "C:\\Windows\\Offline Web Pages\\a.htm", "C:\\Windows\\Prefetch\\A.pf"};
  const Strings own = {Cache("Content.IE5\\AB\\a.gif"),
                       Cookies("me@a[1].txt"),
                       Recent("a.lnk"),
                       Temp("a.tmp"),
                       "C:\\Stuff\\a.txt",
                       firefox};
  const Strings gone = Then(windows, own);
  computer.WriteFiles(gone);
  computer.WriteFiles({History("index.dat"), Temp("held.tmp")});
  Hold held(computer.Native(Temp("held.tmp")));

  form.cmdCleanUpScanComputerLumaro.Click();
  EXPECT_EQ(computer.Left(gone), Strings{});
  EXPECT_EQ(computer.ReadFile(History("index.dat")), "");
  EXPECT_EQ(form.lblTempFolderScanComputerLumaro.Caption, "1");
  EXPECT_EQ(form.lblRecentFolderScanComputerLumaro.Caption, "0");
  EXPECT_EQ(form.lblUserDefinedFoldersScanComputerLumaro.Caption, "0");
  EXPECT_EQ(UserInfo(), "Files are locked and can't be deleted.");
  EXPECT_TRUE(desktop.boxes.empty());
}

TEST_F(LumaroTest, RunAsksFirstAndGoesOnOnlyOnYes) {
  gRegistry->ConfirmCleaningLmro = "1";
  gRegistry->ClearTempFolderLmro = "1";
  computer.WriteFile(Temp("a.tmp"));
  desktop.Answer(BoxAnswer::No);
  form.cmdCleanUpScanComputerLumaro.Click();
  EXPECT_EQ(desktop.boxes, (Strings{"information?|Confirm deleting|Confirm deleting files with Lumaro"}));
  EXPECT_TRUE(computer.Exists(Temp("a.tmp")));
  EXPECT_TRUE(Percents().empty());
  EXPECT_EQ(form.cmdCleanUpScanComputerLumaro.Caption, "Clean up");

  desktop.Answer(BoxAnswer::Yes);
  form.cmdCleanUpScanComputerLumaro.Click();
  EXPECT_FALSE(computer.Exists(Temp("a.tmp")));
}

TEST_F(LumaroTest, StopInTheFirstCleanerPassesOverTheRestAndStillScans) {
  gRegistry->ClearCookiesLmro = gRegistry->ClearTempFolderLmro = "1";
  for (char name = 'a'; name <= 'd'; ++name) computer.WriteFile(Cookies(std::string(1, name)));
  computer.WriteFile(Temp("a.tmp"));
  desktop.onDoEvents = [&](long count) {
    EXPECT_TRUE(gAppRunning->AppRunning || gAppRunning->StopProcess);
    EXPECT_TRUE(core::Run::OnStack());
    EXPECT_EQ(desktop.stopControl, &form.cmdCleanUpScanComputerLumaro);
    // Nothing else can be started meanwhile.
    form.cmdScanComputerLumaro.Click();
    if (count == 2) form.UserClick(form.cmdCleanUpScanComputerLumaro);
  };
  form.cmdCleanUpScanComputerLumaro.Enabled = true;
  form.cmdCleanUpScanComputerLumaro.Click();
  EXPECT_EQ(Percents(), Then({"10%"}, kScanPercents));
  EXPECT_EQ(computer.List(Cookies()).size(), 3u);
  EXPECT_EQ(form.lblCookiesScanComputerLumaro.Caption, "2");
  EXPECT_EQ(form.lblTempFolderScanComputerLumaro.Caption, "1");
  EXPECT_TRUE(gAppRunning->StopProcess);
  EXPECT_EQ(form.cmdCleanUpScanComputerLumaro.Caption, "Clean up");

  // The next run isn't stopped by it.
  desktop.onDoEvents = nullptr;
  form.cmdCleanUpScanComputerLumaro.Click();
  EXPECT_FALSE(gAppRunning->StopProcess);
  EXPECT_TRUE(computer.List(Cookies()).empty());
  EXPECT_TRUE(computer.List(Temp()).empty());
}

TEST_F(LumaroTest, FailedBackupPassesOverTheRowsThatNeedIt) {
  gRegistry->UseBackupLmro = gRegistry->ClearOfflineFilesLmro = gRegistry->ClearTempFolderLmro = "1";
  gRegistry->ClearCookiesLmro = "1";
  StoreFolder("C:\\Stuff", "True");
  computer.WriteFiles({"C:\\Stuff\\a.txt", Temp("a.tmp"), Cookies("me@a[1].txt")});
  computer.Remove("C:\\Windows");
  form.cmdCleanUpScanComputerLumaro.Click();
  // The backup itself shows its second step and goes back.
  EXPECT_EQ(Percents(), Then({"40%", "0%", "10%", "20%", "70%", "90%", "100%"}, kScanPercents));
  EXPECT_EQ(computer.Left({Temp("a.tmp"), "C:\\Stuff\\a.txt", Cookies("me@a[1].txt")}),
            (Strings{Temp("a.tmp"), "C:\\Stuff\\a.txt"}));
}

TEST_F(LumaroTest, NothingStartsInsideAnotherRun) {
  core::Run plugIns(core::Running::PlugIns, nullptr);
  form.cmdScanComputerLumaro.Click();
  form.cmdCleanUpScanComputerLumaro.Click();
  EXPECT_TRUE(Percents().empty());
  EXPECT_TRUE(desktop.pointers.empty());
}

TEST_F(LumaroTest, RunThatIsCutShortLeavesTheButtonReady) {
  gRegistry->ClearTempFolderLmro = "";
  form.cmdCleanUpScanComputerLumaro.Click();
  EXPECT_EQ(desktop.CountBoxes("Procedure: cmdCleanUpScanComputerLumaro_Click "), 1);
  EXPECT_EQ(form.cmdCleanUpScanComputerLumaro.Caption, "Clean up");
  EXPECT_FALSE(gAppRunning->AppRunning);
  EXPECT_EQ(desktop.pointer, platform::Pointer::Default);
  EXPECT_FALSE(core::Run::OnStack());
}

TEST_F(LumaroTest, StartUpWindowStopsTheRun) {
  frmCleanOnStartup& window = lumaro::CleanOnStartup().Get();
  core::ShowForm(window);
  gRegistry->ClearTempFolderLmro = "1";
  computer.WriteFile(Temp("a.tmp"));
  desktop.onDoEvents = [&](long) {
    EXPECT_EQ(desktop.stopControl, &window.lblStop);
    window.UserClick(window.lblStop);
  };
  form.cmdCleanUpScanComputerLumaro.Click();
  EXPECT_TRUE(computer.Exists(Temp("a.tmp")));
}

}  // namespace
}  // namespace test
