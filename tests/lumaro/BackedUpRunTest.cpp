// What stays in a run of Lumaro: what its backup doesn't hold, what the user has unticked, what is never
// cleared.
#include "LumaroFixture.h"
#include "core/Run.h"
#include "lumaro/CleanFilesLmro.h"
#include "support/FaultyMachine.h"

namespace test {
namespace {

using namespace m_CleanFiles;

class LumaroKeepsTest : public LumaroTest {
 protected:
  // Calls `change` once the backup is done and the first cleaner yields.
  void RunWithBackup(const std::function<void()>& change) {
    gRegistry->UseBackupLmro = gRegistry->ClearCookiesLmro = "1";
    computer.WriteFile(Cookies("me@a[1].txt"));
    desktop.onDoEvents = [change](long count) {
      if (count == 1) change();
    };
    form.cmdCleanUpScanComputerLumaro.Click();
    EXPECT_FALSE(computer.Exists(Cookies("me@a[1].txt"))) << "no backup covers the cookies";
  }
  const Strings folders = {"C:\\Windows\\Downloaded Program Files", "C:\\Windows\\Offline Web Pages",
                           Recent(), Temp(), "C:\\Stuff"};
};

TEST_F(LumaroKeepsTest, OnlyWhatTheBackupHoldsAsItIsGoes) {
  TurnPlacesOn();
  gRegistry->DeleteOnWindowsStartupLmro = "1";
  StoreFolder("C:\\Stuff", "True");
  for (const std::string& folder : folders)
    computer.WriteFiles({folder + "\\saved.tmp", folder + "\\changed.tmp"});
  RunWithBackup([&] {
    for (const std::string& folder : folders) {
      computer.WriteFile(folder + "\\changed.tmp", "longer than before");
      computer.WriteFile(folder + "\\late.tmp", "new");
    }
  });
  for (const std::string& folder : folders)
    EXPECT_EQ(computer.List(folder), (Strings{"changed.tmp", "late.tmp"})) << folder;
  EXPECT_EQ(LockedFiles(), "");
  EXPECT_EQ(gCleaningStatus->FilesDeleted, 1 + 5);
  ASSERT_EQ(desktop.boxes.size(), 1u);
  EXPECT_EQ(
      desktop.boxes[0].find("exclamation|Not removed...|10 files were not removed, because the backup of "
                            "this run doesn't hold them as they are now. The first is:\r\n" +
                            folders[0] + "\\"),
      0u)
      << desktop.boxes[0];

  // Without a backup they go.
  desktop.onDoEvents = nullptr;
  gRegistry->UseBackupLmro = "0";
  form.cmdCleanUpScanComputerLumaro.Click();
  for (const std::string& folder : folders) EXPECT_TRUE(computer.List(folder).empty()) << folder;
  EXPECT_EQ(desktop.boxes.size(), 1u);
}

TEST_F(LumaroKeepsTest, WhatIsSwitchedOnAfterTheBackupIsPassedOver) {
  StoreFolder("C:\\Stuff", "False");
  computer.WriteFiles({Temp("a.tmp"), "C:\\Stuff\\a.txt"});
  RunWithBackup([&] {
    gRegistry->ClearTempFolderLmro = "1";
    StoreFolder("C:\\Stuff", "True");
  });
  EXPECT_TRUE(computer.Exists(Temp("a.tmp")) && computer.Exists("C:\\Stuff\\a.txt"));
  EXPECT_EQ(desktop.boxes,
            (Strings{"exclamation|Not removed...|2 folders were passed over, because they were "
                     "switched on after the backup of this run. The first is:\r\n" +
                     Temp()}));
}

TEST_F(LumaroKeepsTest, AFolderThatThePageShowsUntickedStaysAndIsNotBackedUp) {
  StoreFolder("C:\\Stuff", "True");
  StoreFolder("C:\\Other", "True");
  ShowFolder("C:\\STUFF", false);
  computer.WriteFiles({"C:\\Stuff\\a.txt", "C:\\Other\\a.txt"});
  RunWithBackup([&] { ShowFolder("C:\\Other", false); });
  EXPECT_TRUE(computer.Exists("C:\\Stuff\\a.txt") && computer.Exists("C:\\Other\\a.txt"));
  EXPECT_TRUE(desktop.boxes.empty());
}

TEST_F(LumaroKeepsTest, AFolderThatIsNeverClearedIsToldAndNotMeasured) {
  computer.WriteFile("C:\\Windows\\notepad.exe", std::string(5000, 'x'));
  StoreFolder("C:\\Windows", "True");
  ShowFolder("C:\\Windows", true);
  form.cmdCleanUpScanComputerLumaro.Click();
  EXPECT_EQ(desktop.boxes,
            (Strings{"exclamation|Not removed...|1 folder was not cleared, because it is never "
                     "cleared as a whole:\r\nC:\\Windows"}));
  EXPECT_TRUE(computer.Exists("C:\\Windows\\notepad.exe"));
  EXPECT_EQ(form.lblUserDefinedFoldersScanComputerLumaro.Caption, "0");
  EXPECT_EQ(form.lblTotalSizeScanComputerLumaro.Caption, "0 KB");
}

TEST_F(LumaroKeepsTest, AnUnexpectedFailureInNamingTheBackupLeavesWhatItCovers) {
  gRegistry->ClearTempFolderLmro = "1";
  computer.WriteFile(Temp("a.tmp"));
  FaultyMachine faulty(computer.Machine());
  faulty.registry.refuseWrite = [](std::string_view key, std::string_view) -> long {
    if (key == core::keys::kBackupFiles) throw platform::DeviceIoError();
    return 0;
  };
  RunWithBackup([] {});
  EXPECT_TRUE(computer.Exists(Temp("a.tmp")));
  EXPECT_EQ(desktop.CountBoxes("Procedure: CreateBackupFileLmro "), 1);
  EXPECT_EQ(desktop.CountBoxes("Creating backup file failed"), 1);
}

TEST_F(LumaroKeepsTest, ListsOfTheStoreThatCannotBeReadLeaveEverything) {
  StoreFolder("C:\\Stuff", "True");
  computer.WriteFiles(
      {"C:\\Stuff\\a.txt", Temp("a.tmp"), Temp("sub\\b.tmp"), Cache("Content.IE5\\AB\\a.gif")});
  FaultyMachine faulty(computer.Machine());
  const char* unreadable = core::keys::kUserDefinedFolders;
  faulty.registry.refuseNames = [&](std::string_view key) { return key == unreadable ? 5L : 0L; };
  CleanUserDefinedFoldersLmro(form, remover);
  EXPECT_EQ(desktop.boxes,
            (Strings{"critical|Unexpected error|Error retrieve included User Defined Folders from "
                     "registry\r\nCheck your permission with administrator or reinstall to correct the "
                     "settings\r\nError code: 5"}));

  unreadable = core::keys::kExcludedFiles;
  CleanTempFolderLmro(form, remover);
  unreadable = core::keys::kExcludedDirectories;
  CleanTempFolderLmro(form, remover);
  EXPECT_EQ(desktop.CountBoxes("Procedure: CleanTempFolderLmro "), 2);
  // The folders of the cache go by the same list.
  CleanTemporaryInternetFilesLmro(form, remover);
  EXPECT_EQ(desktop.CountBoxes("Procedure: DeleteFoldersLmro "), 1);
  for (const std::string& file :
       {std::string("C:\\Stuff\\a.txt"), Temp("a.tmp"), Temp("sub\\b.tmp"), Cache("Content.IE5\\AB\\a.gif")})
    EXPECT_TRUE(computer.Exists(file)) << file;
}

TEST_F(LumaroKeepsTest, WhatHasNoRecycleBinStaysAndIsNotHandedOver) {
  gRegistry->MoveFilesToRecyclebinLmro = gRegistry->DeleteOnWindowsStartupLmro = "1";
  StoreFolder("C:\\Stuff", "True");
  computer.WriteFile("C:\\Stuff\\a.txt");
  FaultyMachine faulty(computer.Machine());
  faulty.noBin.emplace();
  form.cmdCleanUpScanComputerLumaro.Click();
  EXPECT_TRUE(computer.Exists("C:\\Stuff\\a.txt"));
  EXPECT_EQ(LockedFiles(), "");
  EXPECT_EQ(gCleaningStatus->FilesDeleted, 0);
  EXPECT_EQ(
      desktop.CountBoxes("1 file was not removed, because there is no recycle bin for it:\r\nC:\\Stuff"), 1);
}

// A user whose click on the button has been waiting when the run ends.
class LateClick : public CaptionDesktop {
 public:
  explicit LateClick(frmMain& form) : form_(form) {}
  void SetStopControl(controls::Control* control) override {
    if (!control && !clicked) {
      clicked = true;
      form_.UserClick(form_.cmdCleanUpScanComputerLumaro);
    }
    ScriptedDesktop::SetStopControl(control);
  }
  bool clicked = false;

 private:
  frmMain& form_;
};

TEST_F(LumaroTest, AClickThatComesTooLateToStopARunStartsNoOther) {
  LateClick late(form);
  platform::SetCurrentDesktop(&late);
  gRegistry->ClearTempFolderLmro = "1";
  form.cmdCleanUpScanComputerLumaro.Enabled = true;
  form.cmdCleanUpScanComputerLumaro.Click();
  EXPECT_TRUE(late.clicked);
  const Strings percents = late.captions["lblScanComputerProcentLumaro"];
  EXPECT_EQ(std::count(percents.begin(), percents.end(), "60%"), 1);
  platform::SetCurrentDesktop(&desktop);
}

}  // namespace
}  // namespace test
