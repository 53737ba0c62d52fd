// The stored lists between the store and the list views, and the catalogue of plug-ins.
#include <chrono>
#include <variant>

#include "SettingsFixture.h"
#include "settings/StoredRow.h"
#include "support/Hold.h"

namespace {

using R = c_Registry;
using namespace core::keys;

using One = void (*)(frmMain&, const std::string&);
using Two = void (*)(frmMain&, const std::string&, const std::string&);
using Action = std::variant<One, Two>;

struct ListCase {
  const char* key;
  const char* selectionKey;  // null for a list without ticks
  controls::ListView frmMain::*list;
  int icon;
  Action fill, save;
  const char *fillFailure, *saveFailure;

  void Do(Action action, frmMain& form) const {
    if (auto* one = std::get_if<One>(&action))
      (*one)(form, key);
    else
      std::get<Two>(action)(form, key, selectionKey);
  }
};

const ListCase kLists[] = {
    {kFileFilters, kSelectedFileFilters, &frmMain::lvwFileFiltersBrasmir, 2, m_Registry::AssignFileFilters,
     m_Registry::SaveFileFilterSettings, "Error retrieve file filters from registry",
     "Saving file filters to registry failed"},
    {kDrives, kSelectedDrives, &frmMain::lvwDrivesBrasmir, 1, m_Registry::AssignDrives,
     m_Registry::SaveDriveSettings, "Error retrieve drives from registry",
     "Saving drives to registry failed"},
    {kUserDefinedFolders, kSelectedUserDefinedFolders, &frmMain::lvwUserDefinedFoldersLumaro, 8,
     m_Registry::AssignUserDefinedFolders, m_Registry::SaveUserDefinedFoldersSettings,
     "Error retrieve included User Defined Folders from registry",
     "Saving included User Defined Folders to registry failed"},
    {kExcludedDirectories, nullptr, &frmMain::lvwExcludedFoldersBrasmir, 3, m_Registry::AssignExcludedFolders,
     m_Registry::SaveExcludedFoldersSettings, "Error retrieve excluded directories from registry",
     "Saving excluded directories to registry failed"},
    {kExcludedFiles, nullptr, &frmMain::lvwExcludedFilesBrasmir, 7, m_Registry::AssignExcludedFiles,
     m_Registry::SaveExcludedFilesSettings, "Error retrieve excluded files from registry",
     "Saving excluded files to registry failed"},
    {kBackupFiles, nullptr, &frmMain::lvwBackupsBrasmir, 4, m_Registry::AssignBackups,
     m_Registry::SaveBackupSettings, "Error retrieve backup files information from registry",
     "Saving backup information to registry failed"},
};

class StoredListsTest : public SettingsFixture {
 protected:
  StoredListsTest() { EXPECT_TRUE(m_Registry::ReadRegistrySettings()); }

  void Assign(const ListCase& which, frmMain& to) { which.Do(which.fill, to); }
  void Save(const ListCase& which, frmMain& from) { which.Do(which.save, from); }
  void Empty(const ListCase& which) {
    for (const std::string& name : computer.ValueNames(which.key)) computer.RemoveValue(which.key, name);
  }
};

TEST_F(StoredListsTest, RowsRoundTripInTheOrderOfTheirMaking) {
  for (const ListCase& which : kLists) {
    Empty(which);
    controls::ListView& list = form.*which.list;
    for (auto [text, reason] : std::vector<std::pair<const char*, const char*>>{
             {"Zulu", "User Defined"}, {"alpha", ""}, {"~", "résumé \"quoted\""}, {"C:\\Path\\", "why"}})
      list.SetSubItem(list.AddRow(text, 5), 1, reason);
    if (which.selectionKey) {
      list.SetChecked(2, true);
      list.SetChecked(4, true);
    }
    Save(which, form);
    frmMain fresh;
    Assign(which, fresh);
    controls::ListView& read = fresh.*which.list;
    ASSERT_EQ(read.Count(), 4) << which.key;
    for (int row = 1; row <= 4; ++row) {
      EXPECT_EQ(read.Text(row), list.Text(row));
      EXPECT_EQ(read.SubItem(row, 1), list.SubItem(row, 1));
      EXPECT_EQ(read.Checked(row), list.Checked(row)) << which.key << row;
      EXPECT_EQ(read.SmallIcon(row), which.icon);
    }
    if (which.selectionKey) {
      EXPECT_EQ(computer.GetValue(which.selectionKey, "Zulu"), "False");
      EXPECT_EQ(computer.GetValue(which.selectionKey, "ALPHA"), "True");
      list.CheckAll(false);
      Save(which, form);
      EXPECT_EQ(computer.GetValue(which.selectionKey, "alpha"), "False");
    }
    // A row that goes leaves its value behind, and an empty key fills nothing.
    list.RemoveRow(1);
    Save(which, form);
    EXPECT_TRUE(computer.HasValue(which.key, "Zulu"));
    Empty(which);
    frmMain empty;
    Assign(which, empty);
    EXPECT_EQ((empty.*which.list).Count(), 0);
  }
  EXPECT_TRUE(computer.desktop.boxes.empty());
}

TEST_F(StoredListsTest, AMissingTwinStopsAtItsRow) {
  for (const char* twin : {"", "perhaps"}) {
    computer.desktop.Clear();
    for (const std::string& name : computer.ValueNames(kDrives)) computer.RemoveValue(kDrives, name);
    for (const char* drive : {"C:\\", "D:\\", "E:\\"}) {
      computer.SetValue(kDrives, drive, "Fixed Drive");
      computer.SetValue(kSelectedDrives, drive, "True");
    }
    if (*twin)
      computer.SetValue(kSelectedDrives, "D:\\", twin);
    else
      computer.RemoveValue(kSelectedDrives, "D:\\");
    frmMain fresh;
    m_Registry::AssignDrives(fresh, kDrives, kSelectedDrives);
    EXPECT_EQ(computer.desktop.boxes,
              std::vector{test::Report("m_Registry", "AssignDrives",
                                       std::string("Arguments: frmMain \r\nArguments: sSubKey1 = Value ") +
                                           kDrives + "\r\nArguments: sSubKey2 = Value " + kSelectedDrives,
                                       "Type mismatch", 13)});
    ASSERT_EQ(fresh.lvwDrivesBrasmir.Count(), 2);
    EXPECT_TRUE(fresh.lvwDrivesBrasmir.Checked(1));
    EXPECT_FALSE(fresh.lvwDrivesBrasmir.Checked(2));
    // Half a list isn't saved: what is wrong in the store stays to be seen, and what the fill didn't reach
    // stays.
    fresh.lvwDrivesBrasmir.SetChecked(1, false);
    m_Registry::SaveDriveSettings(fresh, kDrives, kSelectedDrives);
    EXPECT_EQ(computer.GetValue(kSelectedDrives, "C:\\"), "True");
    EXPECT_EQ(computer.GetValue(kSelectedDrives, "D:\\"), twin);
    EXPECT_EQ(computer.GetValue(kSelectedDrives, "E:\\"), "True");
  }
}

TEST_F(StoredListsTest, EachFailureHasItsOwnLineInTheCommonBox) {
  const std::string advice =
      "\r\nCheck your permission with administrator or reinstall to correct the settings\r\nError code: ";
  for (const ListCase& which : kLists) {
    computer.desktop.Clear();
    frmMain fresh;
    {
      test::FaultyMachine faulty(computer.Machine());
      faulty.registry.refuseNames = [](std::string_view) { return 1010; };
      Assign(which, fresh);
    }
    EXPECT_EQ(computer.desktop.boxes,
              std::vector{"critical|Unexpected error|" + (which.fillFailure + advice) + "1010"});
    EXPECT_EQ((fresh.*which.list).Count(), 0);

    controls::ListView& list = form.*which.list;
    list.Clear();
    for (const char* text : {"one", "two", "three"}) list.AddRow(text, 1);
    // A write that fails, one box whatever the number of rows; and a commit that fails.
    for (bool commit : {false, true}) {
      computer.desktop.Clear();
      test::FaultyMachine faulty(computer.Machine());
      if (commit)
        faulty.registry.commitCode = 112;
      else
        faulty.registry.refuseWrite = [](std::string_view, std::string_view name) {
          return name == "one" ? 0 : 5;
        };
      Save(which, form);
      EXPECT_EQ(computer.desktop.boxes, std::vector{"critical|Unexpected error|" +
                                                    (which.saveFailure + advice) + (commit ? "112" : "5")});
      EXPECT_EQ(faulty.registry.transactions, 1);
    }
    // Nothing to write, nothing to fail.
    computer.desktop.Clear();
    list.Clear();
    test::FaultyMachine faulty(computer.Machine());
    faulty.registry.commitCode = 112;
    Save(which, form);
    EXPECT_TRUE(computer.desktop.boxes.empty());
  }
}

TEST_F(StoredListsTest, TheWholeFillAndTheWholeSaveGoInOrder) {
  computer.SetValue(kUserDefinedFolders, "C:\\Scratch", "Garbage folder");
  computer.SetValue(kSelectedUserDefinedFolders, "C:\\Scratch", "True");
  settings::AssignRegistrySettings(form);
  EXPECT_TRUE(computer.desktop.boxes.empty());
  EXPECT_GT(form.lvwFileFiltersBrasmir.Count(), 10);
  EXPECT_EQ(form.lvwDrivesBrasmir.Count() + form.lvwUserDefinedFoldersLumaro.Count(), 2);
  form.chkConfirmCleaningCleaningBrasmir.Value = 0;
  gRegistry->ConfirmCleaningBrsm = "stale";
  form.lvwExcludedFilesBrasmir.AddRow("keep.me", 7);
  form.lvwBackupsBrasmir.AddRow("Backup Brasmir 1.zip", 4);
  test::FaultyMachine watched(computer.Machine());
  settings::SaveAndReread(form);
  const auto& writes = watched.registry.writes;
  auto last = writes.begin();
  for (const char* key : {kFileFilters, kDrives, kExcludedDirectories, kExcludedFiles, kBackupFiles,
                          kUserDefinedFolders, kTidorra}) {
    auto first = std::find_if(writes.begin(), writes.end(),
                              [&](const auto& write) { return write.starts_with(std::string(key) + "|"); });
    EXPECT_NE(first, writes.end()) << key;
    EXPECT_GE(first - last, 0) << key;
    last = first;
  }
  EXPECT_EQ(gRegistry->ConfirmCleaningBrsm, "0");
}

// A row that is given another text is never without its values, whatever fails.
TEST_F(StoredListsTest, ARowIsRenamedWholeOrNotAtAll) {
  auto values = [&](const char* name) {
    return computer.GetValue(kFileFilters, name) + computer.GetValue(kSelectedFileFilters, name);
  };
  auto rename = [&](const char* old, const char* name, const char* ticked) {
    return settings::RenameRow(old, name, {{kFileFilters, "why "}, {kSelectedFileFilters, ticked}});
  };
  computer.SetValue(kFileFilters, ".one", "why ");
  computer.SetValue(kSelectedFileFilters, ".one", "True");
  for (const char* refused : {kFileFilters, kSelectedFileFilters}) {
    test::FaultyMachine faulty(computer.Machine());
    faulty.registry.refuseWrite = [&](std::string_view key, std::string_view) {
      EXPECT_EQ(values(".one"), "why True") << "the old values go last";
      return key == refused ? 5 : 0;
    };
    EXPECT_EQ(rename(".one", ".two", "False"), 5);
    EXPECT_EQ(values(".one") + values(".two"), "why True");
  }
  EXPECT_EQ(rename(".one", ".two", "False"), 0);
  EXPECT_FALSE(computer.HasValue(kFileFilters, ".one") || computer.HasValue(kSelectedFileFilters, ".one"));
  EXPECT_EQ(values(".two"), "why False");
  EXPECT_EQ(rename(".two", ".TWO", "True"), 0);
  EXPECT_EQ(values(".two"), "why True");
}

class BackupExpiryTest : public StoredListsTest {
 protected:
  void MakeBackup(const std::string& name) {
    computer.WriteFile(computer.InstallDirectory() + "Backup\\" + name);
    computer.SetValue(kBackupFiles, name, "Backup taken by Brasmir");
  }
  // So many days after the backup was made, at this hour of the day.
  void Wait(const std::string& name, int days, int hour, int minute) {
    auto created = computer.Files().Look(computer.InstallDirectory() + "Backup\\" + name).created;
    platform::DateTime made = computer.clock.ToLocal(created);
    std::chrono::year_month_day day =
        std::chrono::sys_days(std::chrono::year(made.year) / made.month / made.day) + std::chrono::days(days);
    computer.clock.Set(
        {int(day.year()), int(unsigned(day.month())), int(unsigned(day.day())), hour, minute, 0});
  }
  bool InStoreAndOnDisk(const std::string& name) {
    bool stored = computer.HasValue(kBackupFiles, name);
    EXPECT_EQ(stored, computer.Exists(computer.InstallDirectory() + "Backup\\" + name)) << name;
    return stored;
  }
};

TEST_F(BackupExpiryTest, ABackupOfThirtyDaysAgoGoesAndOneOfTwentyNineStays) {
  struct {
    const char* option;
    int days, hour, minute;
    bool stays;
  } cases[] = {{"0", 400, 12, 0, true}, {"1", 0, 23, 59, true},    {"1", 29, 23, 59, true},
               {"1", 30, 0, 0, false},  {"1.0", 31, 12, 0, false}, {"1", 400, 0, 0, false}};
  for (const auto& each : cases) {
    MakeBackup("a.zip");
    computer.SetValue(kBackupFiles, "gone.zip", "Backup taken by Lumaro");
    Store(&R::DeleteBackupFiles, each.option);
    ASSERT_TRUE(m_Registry::ReadRegistrySettings());
    Wait("a.zip", each.days, each.hour, each.minute);
    form.lvwBackupsBrasmir.Clear();
    gAppRunning->CurrBackupFileNameBrsm = "A.zip";
    gAppRunning->NewSession = false;
    m_Registry::AssignBackups(form, kBackupFiles);
    EXPECT_EQ(InStoreAndOnDisk("a.zip"), each.stays) << each.days;
    EXPECT_EQ(gAppRunning->NewSession, !each.stays) << "what has gone can't be added to";
    EXPECT_EQ(form.lvwBackupsBrasmir.FindText("a.zip") != 0, each.stays) << each.days;
    // A backup whose file has gone has no date to go by.
    EXPECT_NE(form.lvwBackupsBrasmir.FindText("gone.zip"), 0);
  }
  EXPECT_TRUE(computer.desktop.boxes.empty());
}

TEST_F(BackupExpiryTest, ABackupThatCannotBeDeletedStaysInTheCatalogue) {
  MakeBackup("a.zip");
  Wait("a.zip", 31, 0, 0);
  gRegistry->DeleteBackupFiles = "1";
  test::Hold held(computer.Native(computer.InstallDirectory() + "Backup\\a.zip"));
  m_Registry::AssignBackups(form, kBackupFiles);
  EXPECT_TRUE(InStoreAndOnDisk("a.zip"));
  EXPECT_NE(form.lvwBackupsBrasmir.FindText("a.zip"), 0);
}

TEST_F(BackupExpiryTest, ANameThatLeadsElsewhereRemovesNothingThere) {
  computer.WriteFile("C:\\Users\\User\\precious.zip");
  computer.clock.Set({2100, 1, 1, 0, 0, 0});
  computer.SetValue(kBackupFiles, "..\\..\\..\\Users\\User\\precious.zip", "");
  computer.MakeLink(computer.InstallDirectory() + "Backup\\link.zip", "C:\\Users\\User\\precious.zip");
  computer.SetValue(kBackupFiles, "link.zip", "");
  Store(&R::DeleteBackupFiles, "1");
  ASSERT_TRUE(m_Registry::ReadRegistrySettings());
  m_Registry::AssignBackups(form, kBackupFiles);
  EXPECT_TRUE(computer.Exists("C:\\Users\\User\\precious.zip"));
}

TEST_F(BackupExpiryTest, AnOptionThatIsNoNumberIsReportedAndDeletesNothing) {
  MakeBackup("old.zip");
  Wait("old.zip", 100, 0, 0);
  gRegistry->DeleteBackupFiles = "";
  m_Registry::AssignBackups(form, kBackupFiles);
  EXPECT_EQ(computer.desktop.boxes,
            std::vector{
                test::Report("m_Registry", "AssignBackups",
                             std::string("Arguments: frmMain \r\nArguments: sSubKey = Value ") + kBackupFiles,
                             "Type mismatch", 13)});
  EXPECT_TRUE(InStoreAndOnDisk("old.zip"));
}

class PlugInCatalogueTest : public StoredListsTest {
 protected:
  void WritePlugIn(const std::string& path, const std::string& name) {
    computer.WriteFile(
        computer.InstallDirectory() + "PlugIns\\" + path,
        "[Plug-In Name]\r\n" + name +
            "\r\n\r\n[Plug-In Description]\r\nRemoves \xe4\r\n\r\n[Plug-In Category]\r\nViewers"
            "\r\n\r\n[File Rules]\r\n");
  }
};

TEST_F(PlugInCatalogueTest, EveryFileBelowPlugInsIsARow) {
  WritePlugIn("Viewers\\Old Viewer.plg", "Old Viewer");
  WritePlugIn("Viewers\\Deep\\Twice.txt", "Old Viewer");
  computer.WriteFile(computer.InstallDirectory() + "PlugIns\\unix.txt", "1\n2\n3\n4\n5\n6\n7\n8");
  form.lvwPlugInLists.AddRow("former", 1);
  m_Registry::AssignPlugIns(form);
  EXPECT_TRUE(computer.desktop.boxes.empty());
  ASSERT_EQ(form.lvwPlugInLists.Count(), 3);
  int row = form.lvwPlugInLists.FindText("Old Viewer");
  ASSERT_NE(row, 0);
  EXPECT_EQ(form.lvwPlugInLists.SubItem(row, 1), "Removes ä");
  EXPECT_EQ(form.lvwPlugInLists.SubItem(row, 2), "Viewers");
  row = form.lvwPlugInLists.FindText("2");
  ASSERT_NE(row, 0);
  EXPECT_EQ(form.lvwPlugInLists.SubItem(row, 2), "8");
}

TEST_F(PlugInCatalogueTest, AFileOfSevenLinesEndsTheLoadAndKeepsTheRowsByThen) {
  computer.WriteFile(computer.InstallDirectory() + "PlugIns\\short.plg",
                     "1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n");
  m_Registry::AssignPlugIns(form);
  EXPECT_EQ(computer.desktop.boxes,
            std::vector{test::Report("m_Registry", "AssignPlugIns", "Arguments: frmMain ",
                                     "Input past end of file", 62)});
  EXPECT_EQ(form.lvwPlugInLists.Count(), 0);
  computer.Remove(computer.InstallDirectory() + "PlugIns");
  computer.desktop.Clear();
  m_Registry::AssignPlugIns(form);
  EXPECT_TRUE(computer.desktop.boxes.empty());
}

}  // namespace
