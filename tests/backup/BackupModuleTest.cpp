// The backups of both modules, the page of the backups and the window that lists one.
#include <filesystem>

#include "backup/ArchiveTools.h"
#include "backup/BackupRestorePage.h"
#include "backup/ZipControls.h"
#include "backup/m_BackupRestore.h"
#include "core/Keys.h"
#include "core/OpenForms.h"
#include "core/m_SharedProcedures.h"
#include "forms/frmMain.h"
#include "gtest/gtest.h"
#include "platform/RuntimeError.h"
#include "settings/m_Registry.h"
#include "support/FaultyMachine.h"
#include "support/Session.h"

namespace test {

using platform::BoxAnswer;
using Paths = std::vector<std::string>;

namespace {

constexpr char kBrsmName[] = "Backup Brasmir 11.17.2026 22.46.09.zip";
constexpr char kLmroName[] = "Backup Lumaro 11.17.2026 22.46.09.zip";
constexpr char kPermission[] =
    "\r\nCheck your permission with administrator or reinstall to correct the settings";

// A computer whose files are watched and whose registry may refuse.
class BackupMachine : public WatchedFiles {
 public:
  using WatchedFiles::WatchedFiles;
  std::string Folder(platform::KnownFolder folder) override {
    return noFolder == folder ? std::string() : WatchedFiles::Folder(folder);
  }
  std::optional<platform::KnownFolder> noFolder;
};

class BackupTest : public testing::Test {
 protected:
  BackupTest() : machine(computer.Machine()) {
    m_Registry::ReadRegistrySettings();
    for (auto setting : {&c_Registry::ClearDownloadedProgramFilesLmro, &c_Registry::ClearOfflineFilesLmro,
                         &c_Registry::ClearRecentFolderLmro, &c_Registry::ClearTempFolderLmro,
                         &c_Registry::DeleteBackupFiles})
      (*gRegistry).*setting = "0";
    computer.clock.Set({2026, 11, 17, 22, 46, 9});
    backup::WireBackup(form);
    core::SetMainForm(&form);
    form.ShowPage(form.fraBackupRestore);
    gAppRunning->NewSession = true;
  }
  // A row of the results, with its file.
  void AddResult(const std::string& folder, const std::string& name, bool ticked,
                 const std::string& content = "x") {
    computer.WriteFile(folder + name, content);
    int row = form.lvwFilesResultsBrasmir.AddRow(name, 1);
    form.lvwFilesResultsBrasmir.SetSubItem(row, 1, folder);
    form.lvwFilesResultsBrasmir.SetChecked(row, ticked);
  }
  std::string Archive(const std::string& name) {
    return TestComputer::InstallDirectory() + "Backup\\" + name;
  }
  Paths Stored(const std::string& name) {
    backup::AbaleZip zip;
    Paths paths;
    zip.ZipFilename = Archive(name);
    zip.AbaZip_ListingFile = [&](const std::string& path, auto&&...) { paths.push_back(path); };
    if (zip.ListContents() != 0) return {"no archive"};
    std::sort(paths.begin(), paths.end());
    return paths;
  }
  bool Promises(const backup::BackupPromise& made, const std::string& path) {
    return made.Holds(path, machine.Files().Look(path));
  }
  Paths Catalogue() { return computer.ValueNames(core::keys::kBackupFiles); }
  // A backup of one file that has gone since, listed and selected.
  void MakeBackup(const std::string& path = "C:\\Data\\a.txt") {
    AddResult(path.substr(0, path.rfind('\\') + 1), path.substr(path.rfind('\\') + 1), true, "precious");
    ASSERT_TRUE(m_BackupRestore::BackupSelectedFilesBrsm(form, promise));
    computer.Remove(path);
    form.cmdRefreshBackupBrasmir.Click();
    form.lvwBackupsBrasmir.Select(1);
  }

  TestComputer computer;
  BackupMachine machine;
  SessionObjects session;
  frmMain form;
  backup::BackupPromise promise;
  backup::RunBackup saved;
};

TEST_F(BackupTest, BrasmirStoresTheTickedRows) {
  AddResult("C:\\Data\\", "a.tmp", true);
  AddResult("C:\\Data\\", "b.tmp", false);
  AddResult("C:\\Data\\Sub\\", "c.tmp", true);
  ASSERT_TRUE(m_BackupRestore::BackupSelectedFilesBrsm(form, promise));
  EXPECT_EQ(gAppRunning->CurrBackupFileNameBrsm, kBrsmName);
  EXPECT_EQ(Stored(kBrsmName), (Paths{"C:\\Data\\Sub\\c.tmp", "C:\\Data\\a.tmp"}));
  EXPECT_EQ(Catalogue(), Paths{kBrsmName});
  EXPECT_EQ(computer.GetValue(core::keys::kBackupFiles, kBrsmName), "Backup taken by Brasmir");
  EXPECT_EQ(form.prgProgressResultsBrasmir.Max.Get(), 3);
  EXPECT_EQ(form.prgProgressResultsBrasmir.Value.Get(), 0);
  EXPECT_EQ(form.lblUserInfoResultsBrasmir[0].Caption.Get(), "Creating backup...");
  EXPECT_TRUE(backup::MainZip().FilesToProcess.Empty());

  // The same session adds to the same archive, a new one starts another.
  gAppRunning->NewSession = false;
  computer.clock.Set({2026, 11, 17, 22, 50, 0});
  form.lvwFilesResultsBrasmir.CheckAll(false);
  form.lvwFilesResultsBrasmir.SetChecked(2, true);
  ASSERT_TRUE(m_BackupRestore::BackupSelectedFilesBrsm(form, promise));
  EXPECT_EQ(Stored(kBrsmName), (Paths{"C:\\Data\\Sub\\c.tmp", "C:\\Data\\a.tmp", "C:\\Data\\b.tmp"}));
  EXPECT_EQ(Catalogue().size(), 1u);
  gAppRunning->NewSession = true;
  form.lvwFilesResultsBrasmir.CheckAll(false);
  ASSERT_TRUE(m_BackupRestore::BackupSelectedFilesBrsm(form, promise));
  EXPECT_EQ(Catalogue(), (Paths{kBrsmName, "Backup Brasmir 11.17.2026 22.50.00.zip"}));
  EXPECT_FALSE(computer.Exists(Archive("Backup Brasmir 11.17.2026 22.50.00.zip")));
  EXPECT_TRUE(computer.desktop.boxes.empty());
}

TEST_F(BackupTest, BrasmirPromisesWhatIsStored) {
  AddResult("C:\\Data\\", "a.tmp", true);
  AddResult("C:\\Data\\", "held.tmp", true);
  AddResult("C:\\Data\\", "unticked.tmp", false);
  machine.onOpen = [](std::string_view path, platform::OpenMode) {
    return path.ends_with("held.tmp") ? platform::Status::Locked : platform::Status::Done;
  };
  ASSERT_TRUE(m_BackupRestore::BackupSelectedFilesBrsm(form, promise));
  EXPECT_TRUE(Promises(promise, "C:\\Data\\a.tmp"));
  EXPECT_EQ(promise.Count(), 1);
}

TEST_F(BackupTest, AFailedCatalogueEntryOrArchiveStopsBrasmir) {
  AddResult("C:\\Data\\", "a.tmp", true);
  machine.registry.refuseWrite = [](auto&&...) { return 5; };
  EXPECT_FALSE(m_BackupRestore::BackupSelectedFilesBrsm(form, promise));
  EXPECT_EQ(computer.desktop.boxes,
            Paths{std::string("critical|Registry information...|Saving backup information to "
                              "registry failed") +
                  kPermission});
  EXPECT_EQ(gAppRunning->CurrBackupFileNameBrsm, "");
  machine.registry.refuseWrite = nullptr;
  computer.desktop.Clear();

  machine.onWrite = [](const std::string&, std::size_t) { return platform::Status::Full; };
  EXPECT_FALSE(m_BackupRestore::BackupSelectedFilesBrsm(form, promise));
  EXPECT_EQ(
      computer.desktop.boxes,
      Paths{
          "critical|Tidorra (Brasmir)...Error|There has been raised an error: \r\nModule: m_BackupRestore\r\n"
          "Procedure: BackupSelectedFilesBrsm \r\nArguments: frmMain \r\nDescription: Disk full\r\n"
          "Error number: 61"});
  EXPECT_TRUE(backup::MainZip().FilesToProcess.Empty());
  EXPECT_EQ(form.prgProgressResultsBrasmir.Value.Get(), 0);
  machine.onWrite = nullptr;
  computer.desktop.Clear();
  computer.desktop.onBreathe = [](long) { throw platform::DiskFull(); };
  EXPECT_FALSE(m_BackupRestore::BackupSelectedFilesBrsm(form, promise));
  computer.desktop.onBreathe = nullptr;
  ASSERT_EQ(computer.desktop.boxes.size(), 2u);
  EXPECT_NE(computer.desktop.boxes[0].find("Procedure: PrepareBackupBrsm "), std::string::npos);
  EXPECT_EQ(computer.desktop.boxes[1],
            "critical|Error backupfile...|Preparing backup failed\r\nProcess will be terminated");
  EXPECT_TRUE(backup::MainZip().FilesToProcess.Empty());
  // The name stands, so that the next cleaning of the session tries again.
  gAppRunning->NewSession = false;
  EXPECT_TRUE(m_BackupRestore::BackupSelectedFilesBrsm(form, promise));
  EXPECT_EQ(Stored(kBrsmName), Paths{"C:\\Data\\a.tmp"});
}

TEST_F(BackupTest, LumaroStoresTheFoldersOfItsRun) {
  gRegistry->ClearDownloadedProgramFilesLmro = gRegistry->ClearRecentFolderLmro =
      gRegistry->ClearTempFolderLmro = "1";
  std::string windows = machine.Folder(platform::KnownFolder::Windows);
  std::string recent = machine.Folder(platform::KnownFolder::Recent);
  std::string temp = machine.Folder(platform::KnownFolder::Temp);
  Paths expected = {windows + "\\Downloaded Program Files\\x.ocx", recent + "\\a.lnk", temp + "\\t\\t.tmp",
                    "C:\\Mine\\m.txt"};
  for (const std::string& path : expected) computer.WriteFile(path);
  computer.WriteFile(windows + "\\Offline Web Pages\\not.txt");
  computer.WriteFile("C:\\Other\\not.txt");
  computer.SetValue(core::keys::kUserDefinedFolders, "C:\\Mine", "mine");
  computer.SetValue(core::keys::kUserDefinedFolders, "C:\\Other", "other");
  computer.SetValue(core::keys::kUserDefinedFolders, "C:\\Empty", "empty");
  computer.SetValue(core::keys::kSelectedUserDefinedFolders, "C:\\Mine", "True");
  computer.SetValue(core::keys::kSelectedUserDefinedFolders, "C:\\Other", "False");
  computer.SetValue(core::keys::kSelectedUserDefinedFolders, "C:\\Empty", "True");
  computer.MakeFolder("C:\\Empty");
  Paths steps;
  machine.onOpen = [&](std::string_view path, platform::OpenMode mode) {
    std::string shown = form.lblScanComputerProcentLumaro.Caption;
    if (mode == platform::OpenMode::Read && path.starts_with(temp)) steps.push_back(shown);
    return path.ends_with("t.tmp") ? platform::Status::Denied : platform::Status::Done;
  };
  ASSERT_TRUE(m_BackupRestore::StartPrepareBackupProcessLmro(form, saved));
  std::erase(expected, temp + "\\t\\t.tmp");
  for (const std::string& path : expected) EXPECT_TRUE(Promises(saved.promise, path)) << path;
  EXPECT_EQ(saved.promise.Count(), 3);
  EXPECT_EQ(saved.folders, (std::unordered_set<std::string>{"C:\\Mine", "C:\\Empty"}));
  for (const places::Place& place : places::All())
    EXPECT_EQ(saved.places.contains(&place),
              place.backupStep > 0 && &place != &places::ClearedBy("CleanOfflineFilesLmro"))
        << place.cleaner;
  std::sort(expected.begin(), expected.end());
  EXPECT_EQ(Stored(kLmroName), expected);
  ASSERT_FALSE(steps.empty());
  EXPECT_EQ(steps[0], "80%");
  EXPECT_EQ(computer.GetValue(core::keys::kBackupFiles, kLmroName), "Backup taken by Lumaro");
  EXPECT_EQ(form.prgScanComputerProgressLumaro.Max.Get(), 5);
  EXPECT_EQ(form.prgScanComputerProgressLumaro.Value.Get(), 0);
  EXPECT_EQ(form.lblScanComputerProcentLumaro.Caption.Get(), "0%");
  EXPECT_EQ(form.lblProcessInfoScanComputerLumaro.Caption.Get(), "Process: Cleaning computer...Please wait");

  // A second run in the same second adds to the same archive.
  machine.onOpen = nullptr;
  ASSERT_TRUE(m_BackupRestore::StartPrepareBackupProcessLmro(form, saved));
  EXPECT_EQ(Stored(kLmroName).size(), 7u);
  EXPECT_TRUE(Promises(saved.promise, temp + "\\t\\t.tmp"));
  EXPECT_EQ(Catalogue().size(), 1u);
  EXPECT_TRUE(computer.desktop.boxes.empty());
}

TEST_F(BackupTest, LumaroEndsAtTheFirstFailure) {
  // Nothing chosen: named and catalogued, never written.
  ASSERT_TRUE(m_BackupRestore::StartPrepareBackupProcessLmro(form, saved));
  EXPECT_EQ(Catalogue(), Paths{kLmroName});
  EXPECT_FALSE(computer.Exists(Archive(kLmroName)));

  computer.WriteFile(machine.Folder(platform::KnownFolder::Recent) + "\\a.lnk");
  // The first of the places that can't be found is told, and what comes behind it isn't stored.
  using platform::KnownFolder;
  const struct {
    std::string c_Registry::*setting;
    KnownFolder folder;
    const char* place;
  } places[] = {
      {&c_Registry::ClearDownloadedProgramFilesLmro, KnownFolder::Windows, "Downloaded Program Files"},
      {&c_Registry::ClearOfflineFilesLmro, KnownFolder::Windows, "Offline Web Pages"},
      {&c_Registry::ClearTempFolderLmro, KnownFolder::Temp, "temp"},
      {&c_Registry::ClearRecentFolderLmro, KnownFolder::Recent, "Recent"}};
  for (const auto& place : places) {
    gRegistry->ClearRecentFolderLmro = place.folder == KnownFolder::Temp ? "0" : "1";
    (*gRegistry).*place.setting = "1";
    machine.noFolder = place.folder;
    EXPECT_FALSE(m_BackupRestore::StartPrepareBackupProcessLmro(form, saved));
    EXPECT_EQ(computer.desktop.boxes,
              Paths{std::string("critical|Path error...|Retrieving path to ") + place.place +
                    " folder returned with error\r\nBackup process will be terminated"});
    computer.desktop.Clear();
    (*gRegistry).*place.setting = "0";
  }
  machine.noFolder.reset();
  EXPECT_FALSE(computer.Exists(Archive(kLmroName)));
  gRegistry->ClearRecentFolderLmro = "1";
  machine.registry.refuseWrite = [](auto&&...) { return 5; };
  EXPECT_FALSE(m_BackupRestore::StartPrepareBackupProcessLmro(form, saved));
  machine.registry.refuseWrite = nullptr;
  machine.onOpen = [](std::string_view, platform::OpenMode mode) {
    return mode == platform::OpenMode::CreateNew ? platform::Status::Denied : platform::Status::Done;
  };
  EXPECT_FALSE(m_BackupRestore::StartPrepareBackupProcessLmro(form, saved));
  machine.onOpen = nullptr;
  machine.registry.refuseNames = [](auto&&...) { return 5; };
  EXPECT_FALSE(m_BackupRestore::StartPrepareBackupProcessLmro(form, saved));
  machine.registry.refuseNames = nullptr;
  computer.SetValue(core::keys::kUserDefinedFolders, "C:\\Mine", "no twin");
  EXPECT_FALSE(m_BackupRestore::StartPrepareBackupProcessLmro(form, saved));

  const Paths& boxes = computer.desktop.boxes;
  ASSERT_EQ(boxes.size(), 5u);
  EXPECT_EQ(
      boxes[0],
      std::string("critical|Registry information...|Saving backup file information to registry failed") +
          kPermission);
  EXPECT_EQ(boxes[1],
            "critical|Error backupfile...|Creating backup file failed\r\nProcess will be terminated");
  EXPECT_NE(boxes[2].find(
                "Procedure: BackupFilesLmro \r\nArguments: frmMain \r\nArguments: sBackupPath = Value C:\\"),
            std::string::npos);
  EXPECT_NE(boxes[2].find("Error number: 70"), std::string::npos);
  EXPECT_NE(boxes[3].find("Procedure: StartBackupProcessLmro "), std::string::npos);
  EXPECT_NE(boxes[4].find("Error number: 13"), std::string::npos);
  EXPECT_EQ(form.lblScanComputerProcentLumaro.Caption.Get(), "0%");
}

TEST_F(BackupTest, RestoresAWholeBackup) {
  MakeBackup();
  form.cmdRestoreBackupBrasmir.Click();
  EXPECT_FALSE(computer.Exists("C:\\Data\\a.txt"));
  EXPECT_EQ(form.lblUserInfoBackupBrasmir.Caption.Get(), "");
  computer.desktop.Answer(BoxAnswer::Yes);
  std::string during;
  computer.desktop.onBreathe = [&](long) { during = form.lblUserInfoBackupBrasmir.Caption; };
  form.cmdRestoreBackupBrasmir.Click();
  EXPECT_EQ(during, "Restoring backup...");
  EXPECT_EQ(computer.ReadFile("C:\\Data\\a.txt"), "precious");
  EXPECT_EQ(form.lblUserInfoBackupBrasmir.Caption.Get(), "Finished");
  EXPECT_EQ(computer.desktop.pointer, platform::Pointer::Default);
  std::string question = "information?|Restore backup|Confirm restore backup";
  EXPECT_EQ(computer.desktop.boxes, (Paths{question, question}));

  computer.WriteFile(Archive(kBrsmName), "no archive");
  computer.desktop.Clear();
  computer.desktop.Answer(BoxAnswer::Yes);
  form.cmdRestoreBackupBrasmir.Click();
  ASSERT_EQ(computer.desktop.boxes.size(), 2u);
  EXPECT_TRUE(computer.desktop.boxes[1].starts_with(
      "critical|Error...|Restoring backup returned with error\r\nThe archive C:\\"));
  EXPECT_TRUE(computer.desktop.boxes[1].ends_with("\r\nError code: 526"));
  EXPECT_EQ(form.lblUserInfoBackupBrasmir.Caption.Get(), "Finished");
}

TEST_F(BackupTest, ExtractsAWholeBackup) {
  MakeBackup();
  form.cmdExtractBackupBrasmir.Click();
  computer.desktop.unexpected.clear();
  EXPECT_TRUE(computer.desktop.boxes.empty());
  computer.desktop.PickFolder("C:\\Out");
  computer.desktop.Answer(BoxAnswer::Yes);
  std::string during;
  computer.desktop.onBreathe = [&](long) { during = form.lblUserInfoBackupBrasmir.Caption; };
  form.cmdExtractBackupBrasmir.Click();
  EXPECT_EQ(during, "Extracting backup...");
  EXPECT_EQ(computer.desktop.boxes,
            Paths{std::string("information?|Extract backup|Confirm extract backup: ") + kBrsmName +
                  "\r\nExtract folder: C:\\Out"});
  EXPECT_EQ(computer.ReadFile("C:\\Out\\a.txt"), "precious");
  EXPECT_FALSE(computer.Exists("C:\\Data\\a.txt"));
  EXPECT_EQ(form.lblUserInfoBackupBrasmir.Caption.Get(), "Finished");
  EXPECT_EQ(backup::MainZip().TargetFolder, "");

  computer.Remove(Archive(kBrsmName));
  computer.desktop.Clear();
  m_BackupRestore::StartExtractBackup(form, "C:\\Out", kBrsmName);
  EXPECT_EQ(computer.desktop.boxes,
            Paths{"critical|Error...|Extracting backup returned with error\r\nThe archive " +
                  Archive(kBrsmName) + " isn't there.\r\nError code: 526"});
  EXPECT_EQ(backup::MainZip().TargetFolder, "");
}

TEST_F(BackupTest, DeletesABackup) {
  MakeBackup();
  gAppRunning->NewSession = false;
  form.cmdDeleteBackupBrasmir.Click();
  EXPECT_TRUE(computer.Exists(Archive(kBrsmName)));
  EXPECT_EQ(computer.desktop.boxes,
            Paths{std::string("information?|Delete backup|Confirm delete backup\r\n") + kBrsmName});
  computer.desktop.Clear();
  computer.desktop.AnswerAlways("Confirm delete", BoxAnswer::Yes);
  machine.registry.removalCode = 5;
  form.cmdDeleteBackupBrasmir.Click();
  EXPECT_FALSE(computer.Exists(Archive(kBrsmName)));
  EXPECT_EQ(form.lvwBackupsBrasmir.Count(), 1);
  EXPECT_EQ(computer.desktop.boxes.back(),
            std::string("critical|Registry information...|Delete backup information from registry failed") +
                kPermission);
  machine.registry.removalCode = 0;
  form.cmdDeleteBackupBrasmir.Click();
  EXPECT_EQ(form.lvwBackupsBrasmir.Count(), 0);
  EXPECT_TRUE(Catalogue().empty());
  EXPECT_EQ(computer.desktop.pointer, platform::Pointer::Default);
  // The session's archive has gone: the next backup starts a new one, with an entry of its own.
  EXPECT_TRUE(gAppRunning->NewSession);
  ASSERT_TRUE(computer.desktop.unexpected.empty());

  // Without rows, and without a selected one, nothing happens.
  computer.desktop.Clear();
  for (int rows = 0; rows < 2; ++rows) {
    for (controls::Button* button : {&form.cmdRestoreBackupBrasmir, &form.cmdExtractBackupBrasmir,
                                     &form.cmdDeleteBackupBrasmir, &form.cmdListBackupBrasmir})
      button->Click();
    form.lvwBackupsBrasmir.AddRow("Backup Lumaro 1.zip", 4);
  }
  EXPECT_TRUE(computer.desktop.boxes.empty() && computer.desktop.windows.empty());
}

TEST_F(BackupTest, ListsSearchesAndRestoresOneBackup) {
  AddResult("C:\\Data\\readme\\", "b.txt", true, std::string(1000, 'b'));
  computer.SetModified("C:\\Data\\readme\\b.txt", 1'500'000'000'000'000'000);
  MakeBackup("C:\\Data\\Readme.txt");
  computer.Remove("C:\\Data\\readme\\b.txt");
  form.cmdListBackupBrasmir.Click();
  EXPECT_EQ(gAppRunning->SelectedBackupFile, kBrsmName);
  frmBackupFileInformation* window = backup::BackupFileInformation().Loaded();
  ASSERT_TRUE(window);
  EXPECT_EQ(window->lblZipfileName.Caption.Get(), std::string("Name Backup File: ") + kBrsmName);
  EXPECT_EQ(window->skn.Picture, TestComputer::InstallDirectory() + "Skin\\Zinc-blue2.bmp");
  controls::ListView& rows = window->lvwZipFileInformation;
  ASSERT_EQ(rows.Count(), 2);
  EXPECT_EQ(rows.Text(1), "C:\\Data\\readme\\b.txt");
  EXPECT_EQ(rows.SubItem(1, 1), "1000");
  EXPECT_LT(std::stoi(std::string(rows.SubItem(1, 2))), 100);
  EXPECT_GT(std::stoi(std::string(rows.SubItem(1, 3))), 90);
  platform::DateTime local = computer.clock.ToLocal(1'500'000'000'000'000'000);
  EXPECT_EQ(rows.SubItem(1, 4),
            machine.GetLocale().ShortDate(local) + " " + machine.GetLocale().LongTime(local));
  EXPECT_FALSE(rows.SubItem(1, 6).empty());

  // The last name is searched, and nothing is ticked.
  window->txtSearchFileName.Text = "README";
  window->lblSearch.Click();
  EXPECT_EQ(window->lblSearchFound.Caption.Get(), "Found: 1 File(s)");
  EXPECT_EQ(rows.ForeColor(1), 0u);
  EXPECT_EQ(rows.ForeColor(2), 0xFF0000u);
  EXPECT_EQ(rows.SelectedIndex(), 2);
  EXPECT_EQ(rows.TakeEnsureVisible(), 2);
  EXPECT_EQ(rows.CheckedCount(), 0);
  window->txtSearchFileName.Text = "";
  window->lblSearch.Click();
  EXPECT_EQ(window->lblSearchFound.Caption.Get(), "Found: 2 File(s)");
  window->txtSearchFileName.Text = "none";
  window->lblSearch.Click();
  EXPECT_EQ(window->lblSearchFound.Caption.Get(), "Found: 0 File(s)");
  EXPECT_EQ(rows.ForeColor(2), 0u);

  window->lblRestore.Click();
  EXPECT_EQ(computer.desktop.boxes, Paths{"exclamation|Restore files...|No files are selected to restore"});
  rows.SetChecked(2, true);
  window->lblRestore.Click();
  EXPECT_EQ(computer.desktop.boxes.back(),
            "information|Restore files...|Restoring files returned with success");
  EXPECT_EQ(computer.ReadFile("C:\\Data\\Readme.txt"), "precious");
  EXPECT_FALSE(computer.Exists("C:\\Data\\readme\\b.txt"));
  EXPECT_EQ(computer.desktop.pointer, platform::Pointer::Default);

  // A second archive is listed below the first, and only its own entries can be restored.
  computer.clock.Set({2026, 11, 18, 1, 0, 0});
  form.lvwFilesResultsBrasmir.Clear();
  MakeBackup("C:\\Data\\later.txt");
  form.lvwBackupsBrasmir.Select(2);
  form.cmdListBackupBrasmir.Click();
  EXPECT_EQ(rows.Count(), 3);
  computer.Remove("C:\\Data\\Readme.txt");
  rows.SetChecked(3, true);
  window->lblRestore.Click();
  EXPECT_EQ(computer.desktop.boxes.back(),
            "critical|Error...|Restoring backup returned with error\r\n1 of 2 files could not be restored. "
            "The first "
            "is C:\\Data\\Readme.txt: the archive doesn't hold it.\r\nError code: 526");
  EXPECT_EQ(computer.ReadFile("C:\\Data\\later.txt"), "precious");
  EXPECT_TRUE(backup::WindowZip().FilesToProcess.Empty());

  // Closing releases the window.
  window->lblClose.Click();
  EXPECT_FALSE(backup::BackupFileInformation().Loaded());
  computer.WriteFile(Archive(kBrsmName), "no archive");
  form.lvwBackupsBrasmir.Select(1);
  form.cmdListBackupBrasmir.Click();
  EXPECT_TRUE(computer.desktop.boxes.back().starts_with(
      "exclamation|Error...|Listing the backup file content returned with error\r\nThe archive C:\\"));
  EXPECT_EQ(backup::BackupFileInformation().Loaded()->lvwZipFileInformation.Count(), 0);
}

TEST_F(BackupTest, RefreshLoadsTheCatalogueAnew) {
  computer.SetValue(core::keys::kBackupFiles, "Backup Lumaro 1.zip", "Backup taken by Lumaro");
  form.lvwBackupsBrasmir.AddRow("old", 4);
  form.cmdRefreshBackupBrasmir.Click();
  ASSERT_EQ(form.lvwBackupsBrasmir.Count(), 1);
  EXPECT_EQ(form.lvwBackupsBrasmir.Text(1), "Backup Lumaro 1.zip");
  EXPECT_EQ(form.lvwBackupsBrasmir.SubItem(1, 1), "Backup taken by Lumaro");
  EXPECT_EQ(computer.desktop.doEvents, 1);
}

}  // namespace
}  // namespace test
