// The cleaning of the ticked results, by button and by menu.

#include "backup/BackupRestorePage.h"
#include "clean/ShownResults.h"
#include "clean/Wire.h"
#include "clean/m_CleanFiles.h"
#include "scan/ScanFixture.h"
#include "scan/m_Results.h"
#include "support/WatchedFiles.h"

namespace test {
namespace {

using platform::BoxAnswer;

class CleanTest : public ScanTest {
 protected:
  CleanTest() {
    clean::WireClean(form);
    backup::WireBackup(form);
    form.ShowPage(form.fraScanningResultsBrasmir);
    m_Results::OfferCategories(form,
                               {forms::ResultCategory::GarbageFiles, forms::ResultCategory::ZeroByteFiles});
    for (int i = 0; i < 6; ++i) {
      std::string path = Path(i);
      computer.WriteFile(path, std::string(static_cast<std::size_t>(i) * 10, 'x'));
      gGarbageFiles.Add(path);
    }
    form.cboSelectResultsBrasmir.SetListIndex(0);
  }
  static std::string Path(int i) { return "C:\\Data\\f" + std::to_string(i) + ".tmp"; }
  void Tick(std::initializer_list<int> files) {
    for (int i : files)
      form.lvwFilesResultsBrasmir.SetChecked(form.lvwFilesResultsBrasmir.FindPath(Path(i)), true);
  }
  void Clean() { ASSERT_TRUE(form.UserClick(form.cmdDeleteResultsBrasmir)); }
  // The numbers of the files that are left on the disk, in the rows and in the list.
  std::string OnDisk() const {
    std::string left;
    for (int i = 0; i < 6; ++i)
      if (computer.Exists(Path(i))) left += std::to_string(i);
    return left;
  }
  static std::string Numbers(const Strings& paths) {
    std::string numbers;
    for (const std::string& path : paths) numbers += path.substr(9, 1);
    return numbers;
  }
  std::string InRows() const {
    Strings paths;
    for (int row = 1; row <= form.lvwFilesResultsBrasmir.Count(); ++row)
      paths.push_back(form.lvwFilesResultsBrasmir.Path(row));
    return Numbers(paths);
  }
  std::string InList() const { return Numbers(All(gGarbageFiles)); }
  std::string Info(int index) const { return form.lblUserInfoResultsBrasmir[index].Caption; }
  std::string Counted() const { return form.lblGarbageFilesScanComputerBrasmir.Caption; }
  std::string LockedFiles() const {
    return computer.ReadFile(TestComputer::InstallDirectory() + "Temp\\Locked Files.txt");
  }
  void ExpectIdle() {
    EXPECT_EQ(form.cmdDeleteResultsBrasmir.Caption, "Delete files");
    EXPECT_EQ(form.lblStatusBackupResultsBrasmir.Caption, "Status: Ready");
    EXPECT_FALSE(form.prgProgressResultsBrasmir.Visible);
    EXPECT_EQ(form.prgProgressResultsBrasmir.Value, 0.0);
    EXPECT_FALSE(gAppRunning->AppRunning);
  }
  void Menu(int position) { form.MenuClick("FileMenu", position, ""); }
};

TEST_F(CleanTest, DeletesTheTickedFilesAndCountsThem) {
  gAppRunning->NewSession = true;
  form.lblTotalSizeScanComputerBrasmir.Caption = "99 KB";
  Tick({1, 3, 4});
  Strings states;
  computer.desktop.onDoEvents = [&](long) {
    states.push_back(OnDisk() + " " + InRows() + " " + InList() + " " + Counted());
    EXPECT_EQ(form.cmdDeleteResultsBrasmir.Caption, "Stop");
    EXPECT_EQ(form.lblStatusBackupResultsBrasmir.Caption, "Status: Working...");
    EXPECT_EQ(Info(0), "Deleting files...");
    EXPECT_TRUE(gAppRunning->AppRunning && form.prgProgressResultsBrasmir.Visible);
    EXPECT_EQ(form.prgProgressResultsBrasmir.Max, 3.0);
    EXPECT_EQ(form.prgProgressResultsBrasmir.Value, static_cast<double>(states.size() - 1));
    EXPECT_EQ(computer.desktop.pointer, platform::Pointer::Hourglass);
    EXPECT_TRUE(form.pictMainMenu.Enabled);
  };
  Clean();
  EXPECT_EQ(states, Strings({"012345 012345 012345 0", "02345 02345 02345 5", "0245 0245 0245 4"}));
  EXPECT_EQ(OnDisk() + InRows() + InList() + Counted(), "0250250253");
  EXPECT_EQ(gCleaningStatus->FilesDeleted, 3);
  EXPECT_EQ(gCleaningStatus->SizeFreedUp, 80);
  EXPECT_EQ(Numbers(All(gSelectedFiles)), "134");
  EXPECT_FALSE(gAppRunning->NewSession);
  EXPECT_EQ(Info(0), "Finished");
  EXPECT_EQ(Info(1), "");
  EXPECT_EQ(form.lblTotalSizeScanComputerBrasmir.Caption, "99 KB");
  EXPECT_EQ(computer.desktop.boxes, Strings());
  ExpectIdle();

  Clean();  // nothing is ticked any more
  EXPECT_EQ(computer.desktop.doEvents, 3);
  form.lvwFilesResultsBrasmir.Clear();
  Clean();
  EXPECT_EQ(Info(0), "Finished");
}

TEST_F(CleanTest, AsksFirstIfWanted) {
  gRegistry->ConfirmCleaningBrsm = "1";
  gAppRunning->NewSession = true;
  Tick({0});
  form.lblUserInfoResultsBrasmir[0].Caption = "as it was";
  computer.desktop.onBox = [&](const std::string&) {
    form.cmdDeleteResultsBrasmir.Click();  // a second click while the question stands
    Menu(6);
  };
  computer.desktop.Answer(BoxAnswer::No);
  Clean();
  EXPECT_EQ(computer.desktop.boxes, Strings({"information?|Delete files|Confirm delete all selected files"}));
  EXPECT_EQ(OnDisk(), "012345");
  EXPECT_EQ(Info(0), "as it was");
  EXPECT_TRUE(gAppRunning->NewSession);

  form.lvwFilesResultsBrasmir.Select(1);
  form.prgProgressResultsBrasmir.Value = 5;
  computer.desktop.Answer(BoxAnswer::No);
  Menu(6);  // by the menu, a No goes through the closing steps
  EXPECT_EQ(computer.desktop.boxes.size(), 2u);
  EXPECT_EQ(Info(0), "Finished");
  EXPECT_EQ(OnDisk(), "012345");
  EXPECT_TRUE(gAppRunning->NewSession);
  ExpectIdle();

  computer.desktop.Answer(BoxAnswer::Yes);
  Clean();
  EXPECT_EQ(OnDisk(), "12345");
}

TEST_F(CleanTest, TheMethodOfTheSettingsIsReadForEachFile) {
  Tick({1, 2, 3, 4});
  gRegistry->DeleteFilesBrsm = "1";
  gRegistry->EraseFilesBrsm = "1";  // wins over plain deletion, and the recycle bin over both
  computer.desktop.onDoEvents = [&](long count) {
    if (count == 2) gRegistry->MoveFilesToRecyclebinBrsm = "1";
    if (count == 3) gRegistry->MoveFilesToRecyclebinBrsm = gRegistry->EraseFilesBrsm = "0";
    if (count == 4) gRegistry->DeleteFilesBrsm = "0";  // without any method, plain deletion
  };
  // Only the recycle bin takes a file that has two names; erasing refuses it.
  computer.MakeSecondName(Path(1), "C:\\Data\\twin");
  Clean();
  EXPECT_EQ(OnDisk(), "015");
  EXPECT_EQ(InRows(), "015");
  EXPECT_EQ(gCleaningStatus->FilesDeleted, 3);
  EXPECT_EQ(gCleaningStatus->SizeFreedUp, 90);
  EXPECT_EQ(Info(1), "Files are locked and can't be deleted.");
  EXPECT_TRUE(computer.desktop.WasRefreshed("lblUserInfoResultsBrasmir(1)"));
  EXPECT_EQ(computer.InBin(), 1);
}

TEST_F(CleanTest, WhatFailsStaysTickedAndGoesToTheBootTimeCleanerIfWanted) {
  Tick({1, 2, 3});
  Hold second(computer.Native(Path(2)));
  computer.Remove(Path(3));
  Clean();
  EXPECT_EQ(Rows(form.lvwFilesResultsBrasmir),
            Strings({Path(0) + "|0", "+" + Path(2) + "|20", "+" + Path(3) + "|30", Path(4) + "|40",
                     Path(5) + "|50"}));
  EXPECT_EQ(InList(), "02345");
  EXPECT_EQ(Info(1), "Files are locked and can't be deleted.");
  EXPECT_EQ(LockedFiles(), "");
  EXPECT_EQ(gCleaningStatus->FilesDeleted, 1);

  gRegistry->DeleteOnWindowsStartupBrsm = "1";
  Clean();
  EXPECT_EQ(Info(1), "Locked files will be deleted on next Windows boot.");
  EXPECT_EQ(LockedFiles(), Path(2) + "\r\n" + Path(3) + "\r\n");
  EXPECT_TRUE(computer.WillStartKelvish());
  Clean();
  EXPECT_EQ(LockedFiles(), Path(2) + "\r\n" + Path(3) + "\r\n" + Path(2) + "\r\n" + Path(3) + "\r\n");
  EXPECT_EQ(gCleaningStatus->FilesDeleted, 1);
  EXPECT_EQ(gCleaningStatus->SizeFreedUp, 10);
}

TEST_F(CleanTest, StopLeavesTheRestTickedAndASecondClickStartsNothing) {
  Tick({0, 1, 2, 3, 4, 5});
  computer.desktop.onDoEvents = [&](long count) {
    if (count != 3) return;
    EXPECT_TRUE(form.UserClick(form.cmdDeleteResultsBrasmir));
    EXPECT_TRUE(gAppRunning->StopProcess && gAppRunning->AppRunning);
    EXPECT_TRUE(form.UserClick(form.cmdDeleteResultsBrasmir));  // impatience
    form.lvwFilesResultsBrasmir.Select(1);
    for (int position : {6, 7, 8}) Menu(position);
    form.cmdScanComputerBrasmir.Click();
    form.cmdDeleteResultsBrasmir.Caption = "Delete files";
    form.cmdDeleteResultsBrasmir.Click();
  };
  Clean();
  EXPECT_EQ(computer.desktop.doEvents, 3);
  EXPECT_EQ(OnDisk(), "345");  // the file of the round in which the click came is still removed
  EXPECT_EQ(InList(), "345");
  EXPECT_EQ(form.lvwFilesResultsBrasmir.CheckedCount(), 3);
  EXPECT_FALSE(form.ScanHasRun);
  ExpectIdle();
  computer.desktop.onDoEvents = nullptr;
  Clean();
  EXPECT_EQ(OnDisk(), "");
  EXPECT_EQ(Counted(), "0");
}

TEST_F(CleanTest, ANarrowedListTakesTheHiddenEntriesOutOfTheResults) {
  computer.WriteFile("C:\\Data\\f6.log");
  gGarbageFiles.Add("C:\\Data\\f6.log");
  form.cboSelectResultsBrasmir.SetListIndex(0);
  form.txtSortResultsBrasmir.Text = "log";
  form.UserClick(form.lblSortListResultsBrasmir);
  EXPECT_EQ(gGarbageFiles.UpperBound(), 7);
  Hold held(computer.Native("C:\\Data\\f6.log"));
  form.lvwFilesResultsBrasmir.CheckAll(true);
  Clean();
  EXPECT_EQ(All(gGarbageFiles), Strings({"C:\\Data\\f6.log"}));  // although that one could not be removed
  EXPECT_EQ(Counted(), "1");
}

TEST_F(CleanTest, WhatTheUserDoesMeanwhileIsSeenAfterEachFile) {
  gZeroByteFiles.Add(Path(4));
  gZeroByteFiles.Add(Path(5));
  Tick({0, 1, 2, 3, 4});
  Strings states;
  computer.desktop.onDoEvents = [&](long count) {
    states.push_back(InRows() + " " + InList() + " " + Numbers(All(gZeroByteFiles)));
    if (count == 2) form.UserTick(form.lvwFilesResultsBrasmir, 3, false);  // the run has its files already
    if (count == 3) form.UserPick(form.cboSelectResultsBrasmir, 0);        // loads what is left
    if (count == 4) form.UserPick(form.cboSelectResultsBrasmir, 1);        // another category from here on
  };
  Clean();
  EXPECT_EQ(states,
            Strings({"012345 012345 45", "12345 12345 45", "2345 2345 45", "345 345 45", "45 345 45"}));
  EXPECT_EQ(OnDisk(), "5");
  EXPECT_EQ(InRows(), "5");
  EXPECT_EQ(Numbers(All(gZeroByteFiles)), "5");
  EXPECT_EQ(InList(), "345");  // a run changes only the category that is shown
  EXPECT_EQ(form.lblZeroByteFilesScanComputerBrasmir.Caption, "1");
}

TEST_F(CleanTest, OfEqualRowsTheFirstGoes) {
  gGarbageFiles.Add(Path(1));
  form.cboSelectResultsBrasmir.SetListIndex(0);
  controls::ListView& rows = form.lvwFilesResultsBrasmir;
  rows.SetChecked(7, true);
  Clean();
  EXPECT_EQ(InRows(), "023451");
  EXPECT_TRUE(rows.Checked(6));
  m_CleanFiles::ShownResults(form).Update("C:\\DATA\\f1.tmp", 1);  // case counts
  EXPECT_EQ(rows.Count(), 6);
  m_CleanFiles::ShownResults(form).Update(Path(1), 2);  // only 1 is an outcome that takes a row away
  EXPECT_EQ(rows.Count(), 6);
  m_CleanFiles::ShownResults(form).Update(Path(1), 1);
  EXPECT_EQ(InList(), "02345");
  form.cboSelectResultsBrasmir.SetText("none of them");
  m_CleanFiles::ShownResults(form).Update(Path(0), 1);
  EXPECT_EQ(InRows(), "2345");
  EXPECT_EQ(InList(), "02345");
}

TEST_F(CleanTest, TheMenuNamesItsMethodAndCountsBeforeTheRowGoes) {
  gRegistry->MoveFilesToRecyclebinBrsm = "1";
  gAppRunning->NewSession = true;
  form.lvwFilesResultsBrasmir.Select(6);
  Menu(6);  // nothing ticked
  EXPECT_EQ(Info(0), "6 Garbage files");
  Tick({1, 2});
  // The method of the settings would have sent it to the recycle bin.
  Menu(6);
  EXPECT_EQ(OnDisk(), "0345");
  EXPECT_EQ(InRows() + InList(), "03450345");
  EXPECT_EQ(gCleaningStatus->SizeFreedUp, 30);
  EXPECT_FALSE(gAppRunning->NewSession);
  EXPECT_EQ(computer.InBin(), 0);
  gRegistry->MoveFilesToRecyclebinBrsm = "0";
  Tick({3});
  Menu(7);
  EXPECT_EQ(computer.InBin(), 1);
  computer.MakeSecondName(Path(4), "C:\\Data\\twin");
  Tick({4, 5});
  Menu(8);
  EXPECT_EQ(OnDisk(), "04");  // erasing refuses a file with two names
  EXPECT_EQ(Info(1), "Files are locked and can't be deleted.");
  ExpectIdle();
}

TEST_F(CleanTest, ABackupComesFirstAndItsFailureKeepsAllFiles) {
  gRegistry->UseBackupBrsm = "1";
  gAppRunning->NewSession = true;
  Tick({1, 2});
  {
    FaultyMachine faulty(computer.Machine());
    faulty.registry.refuseWrite = [](std::string_view key, std::string_view) {
      return key == core::keys::kBackupFiles ? 5L : 0L;
    };
    Clean();
    EXPECT_EQ(computer.desktop.CountBoxes("Saving backup information to registry failed"), 1);
    EXPECT_EQ(OnDisk(), "012345");
    EXPECT_FALSE(gAppRunning->NewSession);  // also after a failure
    ExpectIdle();
    gAppRunning->NewSession = true;
    form.lvwFilesResultsBrasmir.Select(1);
    Menu(6);
    EXPECT_EQ(OnDisk(), "012345");
    EXPECT_TRUE(gAppRunning->NewSession);  // the menu leaves it
    ExpectIdle();
  }
  Hold second(computer.Native(Path(2)));
  Clean();
  EXPECT_EQ(OnDisk(), "02345");
  EXPECT_EQ(computer.List(TestComputer::InstallDirectory() + "Backup").size(), 1u);
  EXPECT_EQ(computer.ValueNames(core::keys::kBackupFiles).size(), 1u);
}

TEST_F(CleanTest, WhatTheBackupDoesNotHoldAsItIsStays) {
  gRegistry->UseBackupBrsm = "1";
  // Nor does it go at the next boot.
  gRegistry->DeleteOnWindowsStartupBrsm = "1";
  gAppRunning->NewSession = true;
  Tick({1, 2, 3});
  computer.Remove(Path(2));
  // There again once the backup is done; another has changed since.
  computer.desktop.onDoEvents = [&](long count) {
    if (count > 1) return;
    computer.WriteFile(Path(2));
    computer.WriteFile(Path(3), "changed");
  };
  form.lvwFilesResultsBrasmir.Select(1);
  for (bool byMenu : {false, true}) {
    computer.desktop.Clear();
    byMenu ? Menu(6) : Clean();
    EXPECT_EQ(OnDisk(), "02345");
    EXPECT_EQ(Info(1), "Files are locked and can't be deleted.");
    EXPECT_EQ(gCleaningStatus->FilesDeleted, 1);
    EXPECT_FALSE(computer.Exists(TestComputer::InstallDirectory() + "Temp\\Locked Files.txt"));
    EXPECT_EQ(computer.desktop.boxes,
              Strings({"exclamation|Not removed...|2 files were not removed, because the backup of this run "
                       "doesn't hold them as they are now. The first is:\r\n" +
                       Path(2)}));
    if (!byMenu) computer.Remove(Path(2));
  }
  Clean();
  EXPECT_EQ(OnDisk(), "045");
  EXPECT_EQ(computer.desktop.boxes.size(), 1u);
}

TEST_F(CleanTest, WhatHasNoRecycleBinStaysAndIsNotHandedOver) {
  gRegistry->MoveFilesToRecyclebinBrsm = gRegistry->DeleteOnWindowsStartupBrsm = "1";
  Tick({1, 2});
  FaultyMachine faulty(computer.Machine());
  faulty.noBin.emplace();
  Clean();
  EXPECT_EQ(OnDisk(), "012345");
  EXPECT_EQ(LockedFiles(), "");
  EXPECT_EQ(gCleaningStatus->FilesDeleted, 0);
  EXPECT_EQ(Info(1), "Files stay, because there is no recycle bin for them.");
  EXPECT_EQ(
      computer.desktop.boxes,
      Strings({"exclamation|Not removed...|2 files were not removed, because there is no recycle bin for "
               "them. The first is:\r\n" +
               Path(1)}));
}

TEST_F(CleanTest, AFileThatWasOverwrittenAndNotRemovedIsToldAsThat) {
  gRegistry->EraseFilesBrsm = "1";
  gRegistry->ErasePassesBrsm = "2";
  Tick({1, 2});
  WatchedFiles watched(computer.Machine());
  int writes = 0;
  // The second pass over the first file: a pass writes the content, and then the rest of the last cluster.
  watched.onWrite = [&](const std::string&, std::size_t) {
    return ++writes == 3 ? platform::Status::Failed : platform::Status::Done;
  };
  Clean();
  EXPECT_EQ(OnDisk(), "01345");
  EXPECT_EQ(computer.desktop.boxes,
            Strings({"exclamation|Not removed...|1 file was overwritten, but could not be "
                     "removed:\r\n" +
                     Path(1)}));
}

TEST_F(CleanTest, AnUnexpectedFailureInNamingTheBackupKeepsAllFiles) {
  gRegistry->UseBackupBrsm = "1";
  gAppRunning->NewSession = true;
  Tick({1, 2});
  FaultyMachine faulty(computer.Machine());
  faulty.registry.refuseWrite = [](std::string_view key, std::string_view) -> long {
    if (key == core::keys::kBackupFiles) throw platform::DeviceIoError();
    return 0;
  };
  Clean();
  EXPECT_EQ(computer.desktop.CountBoxes("Procedure: CreateBackupFileBrsm "), 1);
  EXPECT_EQ(OnDisk(), "012345");
}

TEST_F(CleanTest, AStopDuringTheBackupKeepsAllFiles) {
  gRegistry->UseBackupBrsm = "1";
  gAppRunning->NewSession = true;
  Tick({1, 2});
  computer.desktop.onBreathe = [&](long) {
    EXPECT_EQ(computer.desktop.stopControl, &form.cmdDeleteResultsBrasmir);
    form.UserClick(form.cmdDeleteResultsBrasmir);
  };
  Clean();
  EXPECT_GT(computer.desktop.breathes, 0);
  EXPECT_EQ(OnDisk(), "012345");
  EXPECT_EQ(form.lvwFilesResultsBrasmir.CheckedCount(), 2);
  ExpectIdle();
}

TEST_F(CleanTest, ASettingThatIsNoNumberEndsTheRunWithAReport) {
  Tick({0, 1});
  gRegistry->EraseFilesBrsm = "1";
  gRegistry->ErasePassesBrsm = "many";
  Clean();
  EXPECT_EQ(LastBox(), Report("m_CleanFiles", "CleanFilesBrsm", "Arguments: frmMain ", "Type mismatch", 13));
  EXPECT_EQ(Numbers(All(gSelectedFiles)), "01");
  EXPECT_EQ(form.cmdDeleteResultsBrasmir.Caption, "Delete files");
  form.lvwFilesResultsBrasmir.Select(1);
  Menu(8);
  EXPECT_EQ(LastBox(),
            Report("m_CleanFiles", "CleanFilesfromMenu",
                   "Arguments: frmMain \r\nArguments: sMethod = Value Erase", "Type mismatch", 13));
  EXPECT_EQ(OnDisk(), "012345");
  ExpectIdle();
}

TEST_F(CleanTest, ALinkIsRemovedAsALinkAndFreesNothing) {
  computer.MakeLink("C:\\Data\\f6.tmp", Path(1));
  gGarbageFiles.Add("C:\\Data\\f6.tmp");
  form.cboSelectResultsBrasmir.SetListIndex(0);
  form.lvwFilesResultsBrasmir.SetChecked(7, true);
  Clean();
  EXPECT_FALSE(computer.Exists("C:\\Data\\f6.tmp"));
  EXPECT_EQ(OnDisk(), "012345");
  EXPECT_EQ(gCleaningStatus->FilesDeleted, 1);
  EXPECT_EQ(gCleaningStatus->SizeFreedUp, 0);
}

}  // namespace
}  // namespace test
