// The run of a scan: what it finds, what the page shows, how it stops.

#include "platform/RuntimeError.h"
#include "scan/ScanFixture.h"
#include "scan/m_FileValidation.h"

namespace test {
namespace {

std::string Status(const frmMain& form) {
  return form.lblProcessInfoScanComputerBrasmir.Caption;
}

TEST_F(ScanTest, FindsGarbageAndZeroByteFiles) {
  Filter(".bak", "False");
  Filter("old", "True");
  Filter(".tmp", "True");
  ExcludeDirectory("\\keep\\");
  ExcludeFile("precious");
  gRegistry->IncludeZeroByteFilesBrsm = "1";
  computer.WriteFile("C:\\Data\\a.tmp", std::string(1500, 'x'));
  computer.WriteFile("C:\\Data\\b.TMP", "");
  computer.WriteFile("C:\\Data\\Deeper\\c.old.bak",
                     std::string(2000, 'x'));          // by the second of its two filters
  computer.WriteFile("C:\\Data\\Deeper\\d.bak", "x");  // by one that isn't selected
  computer.WriteFile("C:\\Data\\empty.txt", "");
  computer.WriteFile("C:\\Data\\empty.bak", "");
  computer.WriteFile("C:\\Data\\full.txt", "x");
  computer.WriteFile("C:\\Keep\\a.tmp", "x");
  computer.WriteFile("C:\\Data\\PRECIOUS.tmp", "x");
  computer.MakeLink("C:\\Data\\link.txt", "C:\\Data\\full.txt");  // a link is never a zero-byte file

  Scan();

  EXPECT_EQ(Sorted(All(gGarbageFiles)),
            Strings({"C:\\Data\\Deeper\\c.old.bak", "C:\\Data\\a.tmp", "C:\\Data\\b.TMP"}));
  EXPECT_EQ(Sorted(All(gZeroByteFiles)), Strings({"C:\\Data\\empty.bak", "C:\\Data\\empty.txt"}));
  EXPECT_EQ(All(gInvalidShortcuts), Strings());
  EXPECT_EQ(gFiles.UpperBound(), 10);
  EXPECT_EQ(form.lblGarbageFilesScanComputerBrasmir.Caption, "3");
  EXPECT_EQ(form.lblZeroByteFilesScanComputerBrasmir.Caption, "2");
  EXPECT_EQ(form.lblTotalSizeScanComputerBrasmir.Caption, "3 KB");
  EXPECT_EQ(Status(form), "Process: Finished scanning computer");
  EXPECT_EQ(form.lblUserInfoScanComputerBrasmir.Caption,
            "Locked files will not be deleted on next Windows boot.");
  EXPECT_TRUE(form.ImgProcessBrasmir[0].Visible && form.ImgProcessBrasmir[1].Visible);
  EXPECT_FALSE(form.ImgProcessBrasmir[2].Visible);
  EXPECT_TRUE(form.ScanHasRun && gAppRunning->NewSession);
  EXPECT_FALSE(gAppRunning->AppRunning || gAppRunning->StopProcess);
  EXPECT_TRUE(form.pictMainMenu.Enabled && form.cmdViewResultsScanComputerBrasmir.Enabled);
  EXPECT_EQ(form.cmdScanComputerBrasmir.Caption, "Scan computer");
  EXPECT_EQ(form.lblScanComputerProcentBrasmir.Caption, "0%");
  EXPECT_EQ(computer.desktop.boxes, Strings());

  // A second scan begins anew, with what the store says by then.
  computer.SetValue(core::keys::kSelectedFileFilters, ".tmp", "False");
  gRegistry->IncludeZeroByteFilesBrsm = "0";
  gRegistry->DeleteOnWindowsStartupBrsm = "1.0";
  form.lvwFilesResultsBrasmir.AddRow("left over", 2);
  Scan();
  EXPECT_EQ(All(gGarbageFiles), Strings({"C:\\Data\\Deeper\\c.old.bak"}));
  EXPECT_EQ(All(gZeroByteFiles), Strings());
  EXPECT_EQ(form.lblTotalSizeScanComputerBrasmir.Caption, "2 KB");
  EXPECT_EQ(form.lblZeroByteFilesScanComputerBrasmir.Caption, "0");
  EXPECT_FALSE(form.ImgProcessBrasmir[1].Visible);
  EXPECT_EQ(form.lvwFilesResultsBrasmir.Count(), 0);
  EXPECT_EQ(form.lblUserInfoScanComputerBrasmir.Caption,
            "Locked files will be deleted on next Windows boot.");
}

TEST_F(ScanTest, TheZeroByteTableKeepsEmptyFilesOut) {
  Filter(".tmp", "True");
  Filter("mark", "True");
  computer.SetValue(core::keys::kExcludeZeroByteFiles, ".tmp", "True");
  computer.SetValue(core::keys::kExcludeZeroByteFiles, ".txt", "True");
  gRegistry->IncludeZeroByteFilesBrsm = "1";
  computer.WriteFile("C:\\D\\mark.tmp", "");  // the first filter that matches decides
  computer.WriteFile("C:\\D\\full.tmp", "x");
  computer.WriteFile("C:\\D\\a.txt", "");
  computer.WriteFile("C:\\D\\plain", "");
  const std::string mark = "C:\\D\\mark.tmp", full = "C:\\D\\full.tmp", text = "C:\\D\\a.txt",
                    plain = "C:\\D\\plain";

  const struct {
    const char *byFilter, *global;
    Strings garbage, zero;
  } cases[] = {{"0", "0", {full, mark}, {text, plain}},
               {"0", "1", {full, mark}, {text, plain}},
               {"1", "0", {full}, {text, plain}},
               {"1", "1", {full}, {plain}}};
  for (const auto& test : cases) {
    gRegistry->ExcludeZeroByteFilesFileFiltersBrsm = test.byFilter;
    gRegistry->ApplyListToGlobalScanningBrsm = test.global;
    Scan();
    EXPECT_EQ(Sorted(All(gGarbageFiles)), test.garbage) << test.byFilter << test.global;
    EXPECT_EQ(Sorted(All(gZeroByteFiles)), test.zero) << test.byFilter << test.global;
  }
}

TEST_F(ScanTest, AFilterWithoutASelectionIsReportedOnceAndMatchesNothing) {
  Filter(".tmp", "");
  Filter("a", "True");
  gRegistry->IncludeZeroByteFilesBrsm = "1";
  for (const char* name : {"a1", "a2", "a3"}) computer.WriteFile("C:\\D\\" + std::string(name) + ".tmp", "");
  computer.WriteFile("C:\\D\\a.txt");
  Scan();
  EXPECT_EQ(All(gGarbageFiles), Strings({"C:\\D\\a.txt"}));
  EXPECT_EQ(gZeroByteFiles.UpperBound(), 3);  // as files that no filter matched
  ASSERT_EQ(computer.desktop.boxes.size(), 1u);
  EXPECT_EQ(computer.desktop.CountBoxes(
                "Module: m_FileValidation\r\nProcedure: ValidateFile \r\nArguments: frmMain \r\n"
                "Arguments: sDirPath = Value C:\\D\\a"),
            1);
  EXPECT_EQ(computer.desktop.CountBoxes(".tmp\r\nArguments: sFileFilters() \r\nDescription: Type mismatch\r\n"
                                        "Error number: 13"),
            1);
  Scan();
  EXPECT_EQ(computer.desktop.boxes.size(), 2u);  // once for each run
}

TEST_F(ScanTest, OnlySelectedDrivesAreScannedAndOneThatHasGoneHoldsNothing) {
  computer.SetValue(core::keys::kDrives, "Q:\\", "Removable drive");
  computer.SetValue(core::keys::kSelectedDrives, "Q:\\", "True");
  Filter(".tmp", "True");
  computer.WriteFile("C:\\D\\a.tmp");
  Scan();
  EXPECT_EQ(All(gGarbageFiles), Strings({"C:\\D\\a.tmp"}));
  EXPECT_EQ(computer.desktop.boxes, Strings());

  computer.SetValue(core::keys::kSelectedDrives, "C:\\", "False");
  gRegistry->IncludeInvalidShortcutsBrsm = "1";
  Scan();
  EXPECT_EQ(gFiles.UpperBound(), 0);
  EXPECT_EQ(form.lblGarbageFilesScanComputerBrasmir.Caption, "0");
  EXPECT_TRUE(form.ImgProcessBrasmir[2].Visible);  // the search for shortcuts goes its own way

  computer.SetValue(core::keys::kSelectedDrives, "C:\\", "often");
  Scan();
  EXPECT_EQ(LastBox(), Report("m_ScanComputer", "ScanComputerBrsm", "Arguments: None ", "Type mismatch", 13));
  EXPECT_FALSE(form.ImgProcessBrasmir[0].Visible);
  EXPECT_TRUE(form.cmdViewResultsScanComputerBrasmir.Enabled);
}

TEST_F(ScanTest, FailuresAreToldAndEndTheScan) {
  Filter(".tmp", "True");
  computer.WriteFile("C:\\D\\a.tmp");
  FaultyMachine faulty(computer.Machine());
  const struct {
    const char* key;
    const char* box;
    bool examined;
  } cases[] = {
      {core::keys::kDrives,
       "critical|Registry error...|Reading drives from registry returned with error\r\n"
       "Scanning drive will be terminated",
       false},
      {core::keys::kFileFilters,
       "critical|Registry error...|Reading registry information returned with error\r\n"
       "Check your permission with administrator or reinstall to correct the settings\r\n"
       "File validation will be terminated",
       true},
      {core::keys::kExcludedDirectories, nullptr, true},
      {core::keys::kExcludedFiles, nullptr, true},
  };
  const char* box = nullptr;
  gRegistry->IncludeInvalidShortcutsBrsm = "1";
  for (const auto& test : cases) {
    if (test.box) box = test.box;
    faulty.registry.refuseNames = [&](std::string_view key) { return key == test.key ? 5L : 0L; };
    computer.desktop.boxes.clear();
    Scan();
    EXPECT_EQ(computer.desktop.boxes, Strings({box})) << test.key;
    EXPECT_EQ(form.ImgProcessBrasmir[0].Visible, test.examined);
    // Only a failed validation keeps the search for shortcuts away by setting the stop flag.
    EXPECT_EQ(gAppRunning->StopProcess, test.examined);
    EXPECT_FALSE(form.ImgProcessBrasmir[2].Visible);
    EXPECT_EQ(gGarbageFiles.UpperBound(), 0);
    EXPECT_TRUE(form.ScanHasRun && form.cmdViewResultsScanComputerBrasmir.Enabled &&
                form.pictMainMenu.Enabled);
    EXPECT_EQ(Status(form), "Process: Finished scanning computer");
  }

  // A drive that can't be listed; what was listed before it stays in the list.
  faulty.registry.refuseNames = nullptr;
  computer.SetValue(core::keys::kDrives, "no drive", "Fixed Drive");
  computer.SetValue(core::keys::kSelectedDrives, "no drive", "True");
  computer.desktop.boxes.clear();
  Scan();
  EXPECT_EQ(computer.desktop.boxes,
            Strings({"critical|Drive error...|Scanning drive returned with error\r\nScanning drive will be "
                     "terminated"}));
  EXPECT_EQ(gFiles.UpperBound(), 1);
  EXPECT_FALSE(form.ImgProcessBrasmir[0].Visible || form.ImgProcessBrasmir[2].Visible);
  EXPECT_TRUE(form.ScanHasRun && form.cmdViewResultsScanComputerBrasmir.Enabled);
}

TEST_F(ScanTest, ASettingThatIsNoNumberDoesNotLeaveThePageInItsRunningForm) {
  computer.WriteFile("C:\\D\\a.txt");
  gRegistry->IncludeZeroByteFilesBrsm = "";
  Scan();
  EXPECT_EQ(LastBox(),
            Report("frmMain", "cmdScanComputerBrasmir_Click", "Arguments: None ", "Type mismatch", 13));
  EXPECT_EQ(form.cmdScanComputerBrasmir.Caption, "Scan computer");
  EXPECT_TRUE(form.pictMainMenu.Enabled);
  EXPECT_FALSE(gAppRunning->AppRunning);
}

TEST_F(ScanTest, StopKeepsWhatWasFoundAndASecondClickStartsNothing) {
  Filter(".tmp", "True");
  gRegistry->IncludeInvalidShortcutsBrsm = "1";
  for (int i = 0; i < 20; ++i)
    computer.WriteFile("C:\\D\\" + std::to_string(i) + ".tmp", std::string(1024, 'x'));
  Strings percents;
  computer.desktop.onDoEvents = [&](long) {
    percents.push_back(form.lblScanComputerProcentBrasmir.Caption);
    EXPECT_EQ(Status(form), "Process: Examine file list...");
    EXPECT_EQ(form.prgScanComputerProgressBrasmir.Value, static_cast<double>(percents.size()));
    EXPECT_EQ(form.lblGarbageFilesScanComputerBrasmir.Caption, std::to_string(percents.size()));
    EXPECT_EQ(form.lblTotalSizeScanComputerBrasmir.Caption, std::to_string(percents.size()) + " KB");
    EXPECT_FALSE(form.UserClick(form.lblMainMenu[0]));  // the menu is off during a scan
    EXPECT_FALSE(form.UserClick(form.cmdViewResultsScanComputerBrasmir));
    EXPECT_EQ(computer.desktop.stopControl, &form.cmdScanComputerBrasmir);
    if (percents.size() != 7) return;
    EXPECT_TRUE(gAppRunning->AppRunning);
    EXPECT_TRUE(form.UserClick(form.cmdScanComputerBrasmir));
    EXPECT_EQ(Status(form), "Current process: Terminating process please wait...");
    EXPECT_TRUE(computer.desktop.WasRefreshed("lblProcessInfoScanComputerBrasmir"));
    EXPECT_FALSE(gAppRunning->AppRunning);
    EXPECT_TRUE(form.UserClick(form.cmdScanComputerBrasmir));  // impatience
    form.cmdOptionsBrasmir.Click();
  };
  Scan();
  EXPECT_EQ(percents, Strings({"0%", "5%", "10%", "15%", "20%", "25%", "30%"}));
  EXPECT_EQ(gGarbageFiles.UpperBound(), 7);
  EXPECT_EQ(gFiles.UpperBound(), 20);
  EXPECT_EQ(form.CurrentPage(), &form.fraOptionsBrasmir);
  EXPECT_TRUE(gAppRunning->StopProcess);
  EXPECT_FALSE(form.ImgProcessBrasmir[2].Visible);
  EXPECT_EQ(form.cmdScanComputerBrasmir.Caption, "Scan computer");
  EXPECT_EQ(Status(form), "Process: Finished scanning computer");

  // Also where something gave the button its first caption back, a run on the stack lets no second one start.
  form.ShowPage(form.fraScanComputerBrasmir);
  computer.desktop.onDoEvents = [&](long) {
    form.cmdScanComputerBrasmir.Caption = "Scan computer";
    form.cmdScanComputerBrasmir.Click();
    gAppRunning->StopProcess = true;
  };
  Scan();
  EXPECT_EQ(gGarbageFiles.UpperBound(), 1);
}

TEST_F(ScanTest, AStopDuringTheListingIsSeenBehindTheDrive) {
  computer.SetValue(core::keys::kDrives, "D:\\", "Fixed Drive");
  computer.SetValue(core::keys::kSelectedDrives, "D:\\", "gibberish, which is never read");
  Filter("f", "True");
  for (int i = 0; i < 600; ++i) computer.WriteFile("C:\\D\\f" + std::to_string(i), "x");
  computer.desktop.onBreathe = [&](long count) {
    if (count > 1) return;
    EXPECT_EQ(Status(form), "Process: Scanning drive...");
    form.UserClick(form.cmdScanComputerBrasmir);
  };
  Scan();
  EXPECT_EQ(gFiles.UpperBound(), 600);
  EXPECT_EQ(gGarbageFiles.UpperBound(), 0);
  EXPECT_EQ(form.lblGarbageFilesScanComputerBrasmir.Caption, "0");
  EXPECT_EQ(computer.desktop.boxes, Strings());
  EXPECT_EQ(computer.desktop.doEvents, 0);
}

TEST_F(ScanTest, ChangesThatAreSavedDuringTheScanCountFromTheNextFileOn) {
  Filter(".tmp", "True");
  for (int i = 0; i < 6; ++i) computer.WriteFile("C:\\D\\" + std::to_string(i) + ".tmp", "");
  computer.desktop.onDoEvents = [&](long count) {
    // As a way home from the options does it: the click of a control saves.
    if (count == 2) form.lblHome[5].Click();
  };
  form.lblHome[5].Click = [&] {
    computer.SetValue(core::keys::kSelectedFileFilters, ".tmp", "False");
    gRegistry->IncludeZeroByteFilesBrsm = "1";
  };
  Scan();
  EXPECT_EQ(gGarbageFiles.UpperBound(), 2);
  EXPECT_EQ(gZeroByteFiles.UpperBound(), 4);
}

TEST_F(ScanTest, AFileThatVanishesDuringTheScanIsJudgedByItsNameAndHasNoSize) {
  Filter(".tmp", "True");
  computer.desktop.onDoEvents = [&](long) {
    computer.Remove("C:\\D\\a.tmp");
    computer.Remove("C:\\D\\b.tmp");
  };
  for (const char* withZeroByteFiles : {"0", "1"}) {
    gRegistry->IncludeZeroByteFilesBrsm = withZeroByteFiles;
    computer.WriteFile("C:\\D\\a.tmp", std::string(5000, 'x'));
    computer.WriteFile("C:\\D\\b.tmp", std::string(5000, 'x'));
    Scan();
    EXPECT_EQ(gGarbageFiles.UpperBound(), 2);
    EXPECT_EQ(gZeroByteFiles.UpperBound(), 0);
    std::string total = form.lblTotalSizeScanComputerBrasmir.Caption;
    // With zero-byte files the size may have been looked at already.
    EXPECT_TRUE(total == "5 KB" || (*withZeroByteFiles == '1' && total == "10 KB")) << total;
  }
}

TEST_F(ScanTest, TheSettingsSummary) {
  form.lvwDrivesBrasmir.SetChecked(form.lvwDrivesBrasmir.AddRow("C:\\", 1), true);
  form.lvwDrivesBrasmir.AddRow("D:\\", 1);
  form.lvwDrivesBrasmir.SetChecked(form.lvwDrivesBrasmir.AddRow("E:\\", 1), true);
  gRegistry->IncludeZeroByteFilesBrsm = "2";
  gRegistry->ErasePassesBrsm = "7";
  auto summary = [](const std::string& method, const std::string& backup) {
    return "information|Selected settings...|Selected drives: C:\\...E:\\...\r\n"
           "Include Zero Byte Files: True\r\nInclude Invalid Shortcuts: False\r\n\r\nCleaning method: " +
           method + "\r\nUse backup: " + backup;
  };
  form.UserClick(form.lblViewSettingsScanComputerBrasmir);
  EXPECT_EQ(LastBox(), summary("Erase files 7 times", "False"));  // also with no method at all
  gRegistry->MoveFilesToRecyclebinBrsm = gRegistry->UseBackupBrsm = "1";
  form.UserClick(form.lblViewSettingsScanComputerBrasmir);
  EXPECT_EQ(LastBox(), summary("Move files to recycle bin", "True"));
  gRegistry->DeleteFilesBrsm = "1";
  form.UserClick(form.lblViewSettingsScanComputerBrasmir);
  EXPECT_EQ(LastBox(), summary("Delete files", "True"));
}

}  // namespace
}  // namespace test
