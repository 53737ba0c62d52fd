// The results' context menu, the hand-over to the boot-time cleaner, and the page "Cleaning...".

#include "clean/Wire.h"
#include "core/HandOver.h"
#include "removal/m_Log.h"
#include "scan/ScanFixture.h"

namespace test {
namespace {

class MenuTest : public ScanTest {
 protected:
  MenuTest() {
    clean::WireClean(form);
    computer.WriteFile(kFile);
    int row = form.lvwFilesResultsBrasmir.AddRow("a.tmp", 2);
    form.lvwFilesResultsBrasmir.SetSubItem(row, 1, "C:\\Data\\");
    form.lvwFilesResultsBrasmir.Select(row);
  }
  void Menu(int position) { form.MenuClick("FileMenu", position, "caption"); }
  std::string Log(const std::string& name) const {
    return computer.ReadFile(TestComputer::InstallDirectory() + "Temp\\" + name);
  }

  const std::string kFile = "C:\\Data\\a.tmp";
};

TEST_F(MenuTest, OpensShowsAndTellsFailures) {
  for (int position : {1, 2, 4, 12}) Menu(position);
  EXPECT_EQ(computer.desktop.opened,
            Strings({"document " + kFile, "content " + kFile, "folder C:\\Data\\", "properties " + kFile}));
  EXPECT_EQ(computer.desktop.boxes, Strings());

  computer.desktop.openDocumentResult = 32;
  computer.desktop.viewContentResult = computer.desktop.openFolderResult = 1;
  computer.desktop.propertiesResult = 0;
  for (int position : {1, 2, 4, 12}) Menu(position);
  EXPECT_EQ(
      computer.desktop.boxes,
      Strings({"information|Missing file association...|This file does not have a program associated with it",
               "information|Open file content...|Open the file content failed",
               "information|File container...|Open the file container failed",
               "information|File properties...|Open the file properties failed"}));
  computer.desktop.boxes.clear();
  computer.Remove(kFile);  // vanished since the scan
  for (int position : {1, 2, 12}) Menu(position);
  EXPECT_EQ(computer.desktop.boxes.size(), 3u);
}

TEST_F(MenuTest, NeedsASelectedRowAndItsOwnName) {
  form.MenuClick("filemenu", 2, "");
  for (int separator : {3, 5, 9, 11, 13}) Menu(separator);
  form.lvwFilesResultsBrasmir.Select(0);
  for (int position = 1; position <= 15; ++position) Menu(position);
  EXPECT_EQ(computer.desktop.opened, Strings());
  EXPECT_EQ(computer.desktop.boxes, Strings());
  EXPECT_EQ(Log("Locked Files.txt"), "");
}

TEST_F(MenuTest, ExcludesTheFileOrItsFolder) {
  computer.desktop.Type("because");
  Menu(14);
  computer.desktop.Type("");
  Menu(15);
  EXPECT_EQ(Entries(form.lvwExcludedFilesBrasmir), Strings({kFile + "|because"}));
  EXPECT_EQ(Entries(form.lvwExcludedFoldersBrasmir), Strings({"C:\\Data\\|"}));
  EXPECT_EQ(form.lvwExcludedFilesBrasmir.SmallIcon(1), 7);
  EXPECT_EQ(form.lvwExcludedFoldersBrasmir.SmallIcon(1), 3);
  Menu(14);
  Menu(15);
  EXPECT_EQ(computer.desktop.boxes,
            Strings({"input|Exclude file|Why exclude this file|Dangerous to remove",
                     "input|Exclude directory|Why exclude this directory|Dangerous to remove",
                     "information|Exclude file...|File is already added to the list " + kFile,
                     "information|Exclude directory...|Directory is already added to the list C:\\Data\\"}));
  form.lvwExcludedFilesBrasmir.SetText(1, "C:\\DATA\\a.tmp");
  computer.desktop.Type("again");
  Menu(14);  // the same path in other capitals counts as new
  EXPECT_EQ(form.lvwExcludedFilesBrasmir.Count(), 2);
}

TEST_F(MenuTest, HandsAFileToTheBootTimeCleaner) {
  Menu(10);
  EXPECT_EQ(Log("Locked Files.txt"), kFile + "\r\n");
  EXPECT_TRUE(computer.Exists(kFile));
  EXPECT_EQ(form.lvwFilesResultsBrasmir.Count(), 1);
  m_Log::WriteLockedFilesToLog("C:\\Data\\café.txt");
  m_Log::WriteIndexDatFilesToLog("C:\\index.dat");
  EXPECT_EQ(Log("Locked Files.txt"), kFile + "\r\nC:\\Data\\caf\xE9.txt\r\n");
  EXPECT_EQ(Log("Index Files.txt"), "C:\\index.dat\r\n");
  EXPECT_EQ(core::handover::Lines(core::handover::kLockedFiles).size(), 2u);
  EXPECT_TRUE(core::handover::Lines(core::handover::kLockedFiles)[0].mark);
  EXPECT_EQ(computer.desktop.boxes, Strings());
}

TEST_F(MenuTest, AHandOverThatFailsIsReportedBehindTheStartEntry) {
  m_Log::WriteLockedFilesToLog("C:\\Data\\\xD0\xB6.txt");  // has no place in the code page
  EXPECT_EQ(LastBox(),
            Report("m_Log", "WriteLockedFilesToLog", "Arguments: sFile = Value C:\\Data\\\xD0\xB6.txt",
                   "Invalid procedure call or argument", 5));
  EXPECT_EQ(Log("Locked Files.txt"), "");
  EXPECT_TRUE(core::handover::IsEmpty(core::handover::kLockedFiles)) << "a file that isn't shown doesn't go";
  computer.Remove(TestComputer::InstallDirectory() + "Temp");
  m_Log::WriteIndexDatFilesToLog("C:\\index.dat");
  EXPECT_EQ(LastBox(), Report("m_Log", "WriteIndexDatFilesToLog", "Arguments: sFile = Value C:\\index.dat",
                              "Path not found", 76));
  EXPECT_TRUE(computer.WillStartKelvish());

  // Where the entry can't be written, the file is handed over all the same.
  computer.MakeFolder(TestComputer::InstallDirectory() + "Temp");
  computer.desktop.boxes.clear();
  FaultyMachine faulty(computer.Machine());
  faulty.registry.refuseWrite = [](std::string_view key, std::string_view) {
    return key == core::keys::kRunOnce ? 5L : 0L;
  };
  m_Log::WriteLockedFilesToLog(kFile);
  EXPECT_EQ(Log("Locked Files.txt"), kFile + "\r\n");
  EXPECT_EQ(computer.desktop.boxes, Strings());
}

TEST_F(MenuTest, ThePageShowsTheLogAndAppliesItsSettingsToLumaro) {
  form.ShowPage(form.fraCleaningBrasmir);
  form.UserClick(form.lblViewLockedFilesCleaningBrasmir);
  EXPECT_EQ(
      computer.desktop.boxes,
      Strings(
          {"information|Log file...|Open the log file for locked files failed\r\nFile doesn't exist. (No log "
           "has been written)"}));
  m_Log::WriteLockedFilesToLog(kFile);
  form.UserClick(form.lblViewLockedFilesCleaningBrasmir);
  EXPECT_EQ(computer.desktop.opened,
            Strings({"document " + TestComputer::InstallDirectory() + "Temp\\Locked Files.txt"}));

  computer.desktop.boxes.clear();
  form.chkRecycleBinAdvancedLumaro.Value = 1;
  form.chkConfirmCleaningCleaningBrasmir.Value = 1;
  form.chkEraseFilesCleaningBrasmir.Value = 1;
  form.chkDeleteFilesOnWindowsStartupCleaningBrasmir.Value = 1;
  form.chkUseBackupCleaningBrasmir.Value = 1;
  form.spnEraseTimesCleaningBrasmir.Value = 7;
  form.UserClick(form.lblApplySettingsToLumaroCleaningBrasmir);
  EXPECT_EQ(
      computer.desktop.boxes,
      Strings(
          {"information|Synchronize settings...|Settings are Synchronized with Lumaro Cleaning Methods"}));
  EXPECT_EQ(form.chkConfirmCleaningAdvancedLumaro.Value, 1);
  EXPECT_EQ(form.chkDeleteFilesAdvancedLumaro.Value, 0);
  EXPECT_EQ(form.chkRecycleBinAdvancedLumaro.Value, 0);  // the tick has moved
  EXPECT_EQ(form.chkEraseFilesAdvancedLumaro.Value, 1);
  EXPECT_EQ(form.chkDeleteFilesOnWindowsStartupAdvancedLumaro.Value, 1);
  EXPECT_EQ(form.chkUseBackupAdvancedLumaro.Value, 1);
  EXPECT_EQ(form.spnEraseTimesAdvancedLumaro.Value, 7.0);
}

}  // namespace
}  // namespace test
