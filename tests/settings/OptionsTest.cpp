// The options between the store, the cache and their controls.
#include <map>

#include "SettingsFixture.h"
#include "core/Numbers.h"

namespace {

using R = c_Registry;
using F = frmMain;
using namespace core::keys;

class OptionsTest : public SettingsFixture {
 protected:
  // A digit for each box.
  std::string Ticked(std::initializer_list<controls::CheckBox*> boxes) {
    std::string values;
    for (controls::CheckBox* box : boxes) values += std::to_string(box->Value);
    return values;
  }
  std::map<std::string, std::string> AllStored() {
    std::map<std::string, std::string> all;
    for (const settings::Setting& setting : settings::AllSettings())
      all[std::string(setting.key) + "|" + setting.name] = computer.GetValue(setting.key, setting.name);
    return all;
  }
};

// What the store calls each setting, letter by letter, in the order in which they are read; and the option
// that shows it, with its place in the fill and in the save. Other programs read these values too.
struct Name {
  std::string R::*property;
  const char* key;  // below Software\Orvane
  const char* name;
  const char* control = nullptr;  // null for a setting that is no option
  std::size_t fill = 0, write = 0;
};
constexpr char kRoot[] = "Software\\Orvane\\";
constexpr Name kNames[] = {
    {&R::InstallDirectory, "Tidorra", "Install Directory"},
    {&R::ExcludeZeroByteFilesFileFiltersBrsm, "Tidorra\\Brasmir\\File Filters\\Exclude", "Zero Byte Files",
     "chkExcludeZeroByteFilesFilterFileFiltersBrasmir", 1, 2},
    {&R::ConfirmCleaningBrsm, "Tidorra\\Brasmir\\Cleaning", "Confirm Cleaning",
     "chkConfirmCleaningCleaningBrasmir", 2, 3},
    {&R::EraseFilesBrsm, "Tidorra\\Brasmir\\Cleaning", "Erase files", "chkEraseFilesCleaningBrasmir", 5, 6},
    {&R::ErasePassesBrsm, "Tidorra\\Brasmir\\Cleaning", "Erase passes", "spnEraseTimesCleaningBrasmir", 6, 7},
    {&R::DeleteFilesBrsm, "Tidorra\\Brasmir\\Cleaning", "Delete files", "chkDeleteFilesCleaningBrasmir", 3,
     4},
    {&R::MoveFilesToRecyclebinBrsm, "Tidorra\\Brasmir\\Cleaning", "Move files To Recycle bin",
     "chkRecycleBinCleaningBrasmir", 4, 8},
    {&R::UseBackupBrsm, "Tidorra\\Brasmir\\Backup", "Use Backup Brasmir", "chkUseBackupCleaningBrasmir", 8,
     9},
    {&R::DeleteOnWindowsStartupBrsm, "Tidorra\\Brasmir\\Cleaning", "Delete on windows startup",
     "chkDeleteFilesOnWindowsStartupCleaningBrasmir", 7, 5},
    {&R::EnableManualEntriesInExclusionListsBrsm, "Tidorra\\Brasmir\\Excluded",
     "EnableManualEntriesInExclusionLists", "chkEnableManualTypingExcludeBrasmir", 15, 17},
    {&R::SkipReadOnlyFilesBrsm, "Tidorra\\Brasmir\\Excluded\\Files", "Skip read-only files",
     "chkSkipReadOnlyFilesExcludeBrasmir", 9, 10},
    {&R::IncludeZeroByteFilesBrsm, "Tidorra\\Brasmir\\Include", "Zero byte files",
     "chkZeroByteFilesIncludeBrasmir", 11, 12},
    {&R::IncludeInvalidShortcutsBrsm, "Tidorra\\Brasmir\\Include", "Invalid shortcuts",
     "chkBrokenShortcutsIncludeBrasmir", 10, 11},
    {&R::BrokenShortCutsIncludeAllUsersBrsm, "Tidorra\\Brasmir\\Include", "Broken shortcuts all users",
     "chkScanAllUsersProfileIncludeBrasmir", 12, 13},
    {&R::BrokenShortCutsScanAllDriveBrsm, "Tidorra\\Brasmir\\Include", "Broken shortcuts scan drive",
     "chkScanEntireDriveBrokenShortcutsIncludeBrasmir", 14, 14},
    {&R::SkipShortcutsPointingToRemovableDrivesBrsm, "Tidorra\\Brasmir\\Include",
     "Skip shortcuts pointing to removable drives", "chkSkipShortcutsPointingToRemovableDrives", 13, 15},
    {&R::ClearTemporaryInternetFilesLmro, "Tidorra\\Brasmir\\Lumaro\\Internet files",
     "Temporary Internet Files", "chkTemporaryInternetFilesOptionsLumaro", 16, 18},
    {&R::ClearFirefoxBrowserCacheLmro, "Tidorra\\Brasmir\\Lumaro\\Internet files", "Firefox Browser Cache",
     "chkFireFoxCacheOptionsLumaro", 17, 19},
    {&R::ClearHistoryLmro, "Tidorra\\Brasmir\\Lumaro\\Internet files", "History", "chkHistoryOptionsLumaro",
     18, 20},
    {&R::ClearCookiesLmro, "Tidorra\\Brasmir\\Lumaro\\Internet files", "Cookies", "chkCookiesOptionsLumaro",
     19, 21},
    {&R::ClearDownloadedProgramFilesLmro, "Tidorra\\Brasmir\\Lumaro\\Internet files",
     "Downloaded Program Files", "chkDownloadedProgramFilesOptionsLumaro", 20, 22},
    {&R::ClearOfflineFilesLmro, "Tidorra\\Brasmir\\Lumaro\\Internet files", "Offline files",
     "chkOfflineFilesOptionsLumaro", 21, 23},
    {&R::ClearIndexDatFilesLmro, "Tidorra\\Brasmir\\Lumaro\\Internet files", "Clear Index dat files",
     "chkClearIndexDatOptionsLumaro", 22, 24},
    {&R::EraseIndexDatOnRebootLmro, "Tidorra\\Brasmir\\Lumaro\\Internet files",
     "Erase Index Dat Files on boot", "chkEraseIndexDatOnRebootOptionsLumaro", 23, 25},
    {&R::ClearTempFolderLmro, "Tidorra\\Brasmir\\Lumaro\\Directories", "Temp folder",
     "chkClearTempFolderOptionsLumaro", 24, 26},
    {&R::ClearRecentFolderLmro, "Tidorra\\Brasmir\\Lumaro\\Directories", "Recent folder",
     "chkClearRecentFolderOptionsLumaro", 25, 28},
    {&R::EmptyRecycleBinLmro, "Tidorra\\Brasmir\\Lumaro\\Directories", "Recycle bin",
     "chkEmptyRecycleBinOptionsLumaro", 26, 27},
    {&R::skipReadOnlyfilesLmro, "Tidorra\\Brasmir\\Lumaro\\Advanced", "Skip read only files",
     "chkSkipReadOnlyFilesAdvancedLumaro", 27, 29},
    {&R::UseBackupLmro, "Tidorra\\Brasmir\\Backup", "Use Backup Lumaro", "chkUseBackupAdvancedLumaro", 28,
     30},
    {&R::ConfirmCleaningLmro, "Tidorra\\Brasmir\\Lumaro\\Advanced", "Confirm deleting file(s)",
     "chkConfirmCleaningAdvancedLumaro", 29, 31},
    {&R::DeleteFilesLmro, "Tidorra\\Brasmir\\Lumaro\\Advanced", "Delete files",
     "chkDeleteFilesAdvancedLumaro", 30, 32},
    {&R::MoveFilesToRecyclebinLmro, "Tidorra\\Brasmir\\Lumaro\\Advanced", "Move files to recycle bin ",
     "chkRecycleBinAdvancedLumaro", 31, 33},
    {&R::EraseFilesLmro, "Tidorra\\Brasmir\\Lumaro\\Advanced", "Erase files", "chkEraseFilesAdvancedLumaro",
     32, 34},
    {&R::ErasePassesLmro, "Tidorra\\Brasmir\\Lumaro\\Advanced", "Erase passes", "spnEraseTimesAdvancedLumaro",
     33, 35},
    {&R::DeleteOnWindowsStartupLmro, "Tidorra\\Brasmir\\Lumaro\\Advanced",
     "Delete locked files on next windows startup", "chkDeleteFilesOnWindowsStartupAdvancedLumaro", 34, 36},
    {&R::CleanOnWindowsStartupLmro, "Tidorra\\Brasmir\\Lumaro\\Advanced", "Clean on Windows startup",
     "chkCleanOnWindowsStartupAdvancedLumaro", 37, 39},
    {&R::AddToSystemTrayLmro, "Tidorra\\Brasmir\\Lumaro", "Add To System Tray",
     "chkAddToSystemTrayOptionsLumaro", 35, 37},
    {&R::LoadOnWindowsStartupLmro, "Tidorra\\Brasmir\\Lumaro", "Load on Windows startup",
     "chkLoadOnWindowsStartupOptionsLumaro", 36, 38},
    {&R::CreateReportSch, "Tidorra\\Schedule", "Create report", "chkCreateReportSchedule", 41, 44},
    {&R::DaySch, "Tidorra\\Schedule", "Day"},
    {&R::IncludeBrasmirSch, "Tidorra\\Schedule", "Brasmir", "chkIncludeBrasmirSchedule", 39, 42},
    {&R::IncludeLumaroSch, "Tidorra\\Schedule", "Lumaro", "chkIncludeLumaroSchedule", 40, 43},
    {&R::EnableScheduleSch, "Tidorra\\Schedule", "Schedule"},
    {&R::TimeSch, "Tidorra\\Schedule", "Time"},
    {&R::WeekSch, "Tidorra\\Schedule", "Week"},
    {&R::DeleteBackupFiles, "Tidorra\\Brasmir\\Backup", "Delete backup files",
     "chkDeleteBackupFilesBackupBrasmir", 42, 16},
    {&R::ActivateKelvishLog, "Tidorra\\Kelvish", "Log actions", "chkActivateKelvishLog", 43, 40},
    {&R::PathProgramFiles, "Tidorra\\Valdrin\\Paths", "Program Files"},
    {&R::ApplyListToGlobalScanningBrsm, "Tidorra\\Brasmir\\File Filters\\Exclude",
     "Apply list in global scanning"},
};

TEST_F(OptionsTest, EverySettingIsReadFromItsOwnValue) {
  for (const Name& row : kNames) computer.SetValue(kRoot + std::string(row.key), row.name, row.name);
  ASSERT_TRUE(m_Registry::ReadRegistrySettings());
  for (const Name& row : kNames) {
    const bool isPath = row.property == &R::InstallDirectory || row.property == &R::PathProgramFiles;
    EXPECT_EQ((*gRegistry).*row.property, row.name + std::string(isPath ? "\\" : "")) << row.key;
  }
  ASSERT_EQ(settings::AllSettings().size(), std::size(kNames));
  for (std::size_t i = 0; i < std::size(kNames); ++i)
    EXPECT_EQ(settings::AllSettings()[i].property, kNames[i].property) << kNames[i].name;
}

TEST_F(OptionsTest, EveryOptionShowsAndSavesItsOwnValue) {
  // Without handlers, so that no row changes another.
  frmMain plain;
  auto shown = [&](const Name& row) {
    controls::Control* control = plain.Find(row.control);
    if (auto* box = dynamic_cast<controls::CheckBox*>(control)) return std::to_string(box->Value.Get());
    return core::NumberText(dynamic_cast<controls::SpinBox&>(*control).Value);
  };
  auto set = [&](const Name& row, const char* data) {
    computer.SetValue(kRoot + std::string(row.key), row.name, data);
  };
  for (const Name& each : kNames) {
    if (!each.control) continue;
    bool spin = std::string_view(each.name) == "Erase passes";
    for (const Name& other : kNames)
      if (other.control) set(other, std::string_view(other.name) == "Erase passes" ? "1" : "0");
    set(each, spin ? "7" : "1");
    ASSERT_TRUE(m_Registry::ReadRegistrySettings());
    m_Registry::AssignOptionSettings(plain);
    for (const Name& other : kNames) {
      if (!other.control) continue;
      const char* rest = std::string_view(other.name) == "Erase passes" ? "1" : "0";
      EXPECT_EQ(shown(other), &other != &each ? rest : spin ? "7" : "1") << other.control;
    }
    set(each, "?");
    m_Registry::SaveOptionSettings(plain);
    EXPECT_EQ(computer.GetValue(kRoot + std::string(each.key), each.name), spin ? "7" : "1");
  }
  EXPECT_TRUE(computer.desktop.boxes.empty());
}

TEST_F(OptionsTest, TheCacheTakesWhatIsThereAndEndsPathsInOneBackslash) {
  computer.SetValue(kTidorra, "Install Directory", "C:\\Program Files\\Tidorra");
  computer.RemoveValue(kCleaning, "Erase passes");
  ASSERT_TRUE(m_Registry::ReadRegistrySettings());
  EXPECT_EQ(gRegistry->InstallDirectory, "C:\\Program Files\\Tidorra\\");
  EXPECT_EQ(gRegistry->PathProgramFiles, "C:\\Program Files\\");
  EXPECT_EQ(gRegistry->ErasePassesBrsm, "");
  EXPECT_EQ(gRegistry->ConfirmCleaningBrsm, "1");
}

TEST_F(OptionsTest, AStoreThatFailsMidwayLeavesWhatWasReadAndSaysNothing) {
  ASSERT_TRUE(m_Registry::ReadRegistrySettings());
  Store(&R::ConfirmCleaningBrsm, "0");
  Store(&R::WeekSch, "Every second Week");
  test::FaultyMachine faulty(computer.Machine());
  faulty.registry.raiseOnRead = [](std::string_view key, std::string_view) { return key == kSchedule; };
  EXPECT_FALSE(m_Registry::ReadRegistrySettings());
  EXPECT_EQ(gRegistry->ConfirmCleaningBrsm, "0");
  EXPECT_EQ(gRegistry->WeekSch, "Every Week");
  EXPECT_TRUE(computer.desktop.boxes.empty());
}

TEST_F(OptionsTest, OfContradictingMethodsTheOneFilledLastStays) {
  for (auto setting : {&R::DeleteFilesBrsm, &R::MoveFilesToRecyclebinBrsm, &R::DeleteFilesLmro,
                       &R::MoveFilesToRecyclebinLmro, &R::EraseFilesLmro,
                       &R::BrokenShortCutsIncludeAllUsersBrsm, &R::BrokenShortCutsScanAllDriveBrsm})
    Store(setting, "1");
  computer.SetValue(kBrasmir, "Loading", "1");
  Fill();
  EXPECT_EQ(Ticked({&form.chkDeleteFilesCleaningBrasmir, &form.chkRecycleBinCleaningBrasmir}), "01");
  EXPECT_EQ(Ticked({&form.chkDeleteFilesAdvancedLumaro, &form.chkRecycleBinAdvancedLumaro,
                    &form.chkEraseFilesAdvancedLumaro}),
            "001");
  EXPECT_EQ(Ticked({&form.chkScanEntireDriveBrokenShortcutsIncludeBrasmir,
                    &form.chkScanAllUsersProfileIncludeBrasmir}),
            "10");
  m_Registry::SaveOptionSettings(form);
  EXPECT_EQ(Stored(&R::DeleteFilesBrsm) + Stored(&R::MoveFilesToRecyclebinBrsm), "01");
  EXPECT_EQ(Stored(&R::MoveFilesToRecyclebinLmro) + Stored(&R::EraseFilesLmro), "01");
  EXPECT_TRUE(computer.desktop.boxes.empty());

  // None of them is forced either.
  Store(&R::MoveFilesToRecyclebinBrsm, "0");
  Fill();
  EXPECT_EQ(form.chkRecycleBinCleaningBrasmir.Value, 0);
}

TEST_F(OptionsTest, AFailedFillNeverReachesTheStore) {
  // The fourth row is ticked and so unticks the fifth, which is the one that fails.
  Store(&R::EraseFilesBrsm, "often");
  Store(&R::ErasePassesLmro, "9");
  for (auto behind : {&R::IncludeZeroByteFilesBrsm, &R::CleanOnWindowsStartupLmro, &R::DeleteBackupFiles})
    Store(behind, "1");
  auto before = AllStored();
  Fill();
  ASSERT_EQ(computer.desktop.boxes.size(), 1u);
  EXPECT_EQ(computer.desktop.boxes[0],
            test::Report("m_Registry", "AssignOptionSettings", "Arguments: frmMain ", "Type mismatch", 13));
  m_Registry::SaveOptionSettings(form);
  EXPECT_EQ(AllStored(), before);

  // What a handler sets to what it is says nothing about it.
  form.chkCleanOnWindowsStartupAdvancedLumaro.Value = 0;
  m_Registry::SaveOptionSettings(form);
  EXPECT_EQ(AllStored(), before);

  // The rows before the failure are the user's, and so is what the user changes behind it.
  form.chkConfirmCleaningCleaningBrasmir.Value = 0;
  form.chkEraseFilesCleaningBrasmir.Value = 1;
  form.spnEraseTimesAdvancedLumaro.Value = 4;
  form.chkHistoryOptionsLumaro.Value = 1;
  form.chkHistoryOptionsLumaro.Value = 0;
  Store(&R::ClearHistoryLmro, "1");
  m_Registry::SaveOptionSettings(form);
  const std::pair<std::string R::*, const char*> expected[] = {
      {&R::ConfirmCleaningBrsm, "0"},       {&R::EraseFilesBrsm, "1"},   {&R::MoveFilesToRecyclebinBrsm, "0"},
      {&R::ErasePassesLmro, "4"},           {&R::ClearHistoryLmro, "0"}, {&R::IncludeZeroByteFilesBrsm, "1"},
      {&R::CleanOnWindowsStartupLmro, "1"}, {&R::DeleteBackupFiles, "1"}};
  for (auto [property, data] : expected)
    EXPECT_EQ(Stored(property), data) << settings::SettingOf(property).name;
}

TEST_F(OptionsTest, OptionsThatWereNeverFilledAreNotSaved) {
  auto before = AllStored();
  m_Registry::SaveOptionSettings(form);
  EXPECT_EQ(AllStored(), before);
  EXPECT_EQ(computer.GetValue(kTidorra, "Last used"), "03/31/2026");
}

TEST_F(OptionsTest, ValuesThatNoControlHoldsAreRefusedOrBrought) {
  Store(&R::ErasePassesBrsm, "100");
  Store(&R::ConfirmCleaningBrsm, " 1.0 ");
  Fill();
  EXPECT_EQ(form.spnEraseTimesCleaningBrasmir.Value, 35);
  EXPECT_EQ(form.chkConfirmCleaningCleaningBrasmir.Value, 1);
  EXPECT_TRUE(computer.desktop.boxes.empty());
  Store(&R::ConfirmCleaningBrsm, "2");
  Fill();
  EXPECT_EQ(computer.desktop.CountBoxes("Description: Invalid property value\r\nError number: 380"), 1);
  EXPECT_EQ(form.chkConfirmCleaningCleaningBrasmir.Value, 1);
}

TEST_F(OptionsTest, ThePageFileIsWindowsOwnAndADWord) {
  constexpr char kName[] = "ClearPageFileAtShutdown";
  Fill();
  EXPECT_EQ(form.chkCleanPageFileAdvancedLumaro.Value, 0);
  computer.Registry().Write(platform::kLocalMachine, kMemoryManagement, kName,
                            {platform::ValueType::DWord, {}, 1});
  Fill();
  EXPECT_EQ(form.chkCleanPageFileAdvancedLumaro.Value, 1);
  form.chkCleanPageFileAdvancedLumaro.Value = 0;
  m_Registry::SaveOptionSettings(form);
  auto value = computer.Registry().Read(platform::kLocalMachine, kMemoryManagement, kName);
  EXPECT_EQ(value.type, platform::ValueType::DWord);
  EXPECT_EQ(value.number, 0u);
}

TEST_F(OptionsTest, ASaveIsOneTransactionInTheOrderOfTheTableAndSilentWhenItFails) {
  Fill();
  test::FaultyMachine faulty(computer.Machine());
  m_Registry::SaveOptionSettings(form);
  EXPECT_EQ(faulty.registry.transactions, 1);
  test::Strings fill(43), written(44);
  written[0] = kRoot + std::string("Tidorra|Last used");
  fill[37] = "chkCleanPageFileAdvancedLumaro";
  written[40] = std::string(kMemoryManagement) + "|ClearPageFileAtShutdown";
  for (const Name& row : kNames) {
    if (!row.control) continue;
    fill[row.fill - 1] = row.control;
    written[row.write - 1] = kRoot + std::string(row.key) + "|" + row.name;
  }
  EXPECT_EQ(faulty.registry.writes, written);
  test::Strings options;
  for (const settings::Option& option : settings::AllOptions())
    options.push_back(std::visit([&](auto control) { return (form.*control).Name(); }, option.control));
  EXPECT_EQ(options, fill);

  faulty.registry.refuseWrite = [](std::string_view, std::string_view) { return 5; };
  faulty.registry.commitCode = 5;
  m_Registry::SaveOptionSettings(form);
  EXPECT_TRUE(computer.desktop.boxes.empty());
}

}  // namespace
