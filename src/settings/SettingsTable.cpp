#include "settings/SettingsTable.h"

#include <algorithm>
#include <stdexcept>

#include "core/Keys.h"

namespace settings {

using namespace core::keys;

const std::vector<Setting>& AllSettings() {
  using R = c_Registry;
  static const std::vector<Setting> settings = {
      {&R::InstallDirectory, kTidorra, "Install Directory"},
      {&R::ExcludeZeroByteFilesFileFiltersBrsm, kFileFiltersExclude, "Zero Byte Files"},
      {&R::ConfirmCleaningBrsm, kCleaning, "Confirm Cleaning"},
      {&R::EraseFilesBrsm, kCleaning, "Erase files"},
      {&R::ErasePassesBrsm, kCleaning, "Erase passes"},
      {&R::DeleteFilesBrsm, kCleaning, "Delete files"},
      {&R::MoveFilesToRecyclebinBrsm, kCleaning, "Move files To Recycle bin"},
      {&R::UseBackupBrsm, kBackup, "Use Backup Brasmir"},
      {&R::DeleteOnWindowsStartupBrsm, kCleaning, "Delete on windows startup"},
      {&R::EnableManualEntriesInExclusionListsBrsm, kExcluded, "EnableManualEntriesInExclusionLists"},
      {&R::SkipReadOnlyFilesBrsm, kExcludedFilesOptions, "Skip read-only files"},
      {&R::IncludeZeroByteFilesBrsm, kInclude, "Zero byte files"},
      {&R::IncludeInvalidShortcutsBrsm, kInclude, "Invalid shortcuts"},
      {&R::BrokenShortCutsIncludeAllUsersBrsm, kInclude, "Broken shortcuts all users"},
      {&R::BrokenShortCutsScanAllDriveBrsm, kInclude, "Broken shortcuts scan drive"},
      {&R::SkipShortcutsPointingToRemovableDrivesBrsm, kInclude,
       "Skip shortcuts pointing to removable drives"},
      {&R::ClearTemporaryInternetFilesLmro, kLumaroInternetFiles, "Temporary Internet Files"},
      {&R::ClearFirefoxBrowserCacheLmro, kLumaroInternetFiles, "Firefox Browser Cache"},
      {&R::ClearHistoryLmro, kLumaroInternetFiles, "History"},
      {&R::ClearCookiesLmro, kLumaroInternetFiles, "Cookies"},
      {&R::ClearDownloadedProgramFilesLmro, kLumaroInternetFiles, "Downloaded Program Files"},
      {&R::ClearOfflineFilesLmro, kLumaroInternetFiles, "Offline files"},
      {&R::ClearIndexDatFilesLmro, kLumaroInternetFiles, "Clear Index dat files"},
      {&R::EraseIndexDatOnRebootLmro, kLumaroInternetFiles, "Erase Index Dat Files on boot"},
      {&R::ClearTempFolderLmro, kLumaroDirectories, "Temp folder"},
      {&R::ClearRecentFolderLmro, kLumaroDirectories, "Recent folder"},
      {&R::EmptyRecycleBinLmro, kLumaroDirectories, "Recycle bin"},
      {&R::skipReadOnlyfilesLmro, kLumaroAdvanced, "Skip read only files"},
      {&R::UseBackupLmro, kBackup, "Use Backup Lumaro"},
      {&R::ConfirmCleaningLmro, kLumaroAdvanced, "Confirm deleting file(s)"},
      {&R::DeleteFilesLmro, kLumaroAdvanced, "Delete files"},
      {&R::MoveFilesToRecyclebinLmro, kLumaroAdvanced, "Move files to recycle bin "},
      {&R::EraseFilesLmro, kLumaroAdvanced, "Erase files"},
      {&R::ErasePassesLmro, kLumaroAdvanced, "Erase passes"},
      {&R::DeleteOnWindowsStartupLmro, kLumaroAdvanced, "Delete locked files on next windows startup"},
      {&R::CleanOnWindowsStartupLmro, kLumaroAdvanced, "Clean on Windows startup"},
      {&R::AddToSystemTrayLmro, kLumaro, "Add To System Tray"},
      {&R::LoadOnWindowsStartupLmro, kLumaro, "Load on Windows startup"},
      {&R::CreateReportSch, kSchedule, "Create report"},
      {&R::DaySch, kSchedule, "Day"},
      {&R::IncludeBrasmirSch, kSchedule, "Brasmir"},
      {&R::IncludeLumaroSch, kSchedule, "Lumaro"},
      {&R::EnableScheduleSch, kSchedule, "Schedule"},
      {&R::TimeSch, kSchedule, "Time"},
      {&R::WeekSch, kSchedule, "Week"},
      {&R::DeleteBackupFiles, kBackup, "Delete backup files"},
      {&R::ActivateKelvishLog, kKelvish, "Log actions"},
      {&R::PathProgramFiles, kValdrinPaths, "Program Files"},
      {&R::ApplyListToGlobalScanningBrsm, kFileFiltersExclude, "Apply list in global scanning"},
  };
  return settings;
}

const Setting& SettingOf(std::string c_Registry::*property) {
  for (const Setting& setting : AllSettings())
    if (setting.property == property) return setting;
  throw std::logic_error("a setting without a registry value");
}

const std::vector<Option>& AllOptions() {
  using F = frmMain;
  using R = c_Registry;
  static const std::vector<Option> options = {
      {2, &F::chkExcludeZeroByteFilesFilterFileFiltersBrasmir, &R::ExcludeZeroByteFilesFileFiltersBrsm},
      {3, &F::chkConfirmCleaningCleaningBrasmir, &R::ConfirmCleaningBrsm},
      {4, &F::chkDeleteFilesCleaningBrasmir, &R::DeleteFilesBrsm},
      {8, &F::chkRecycleBinCleaningBrasmir, &R::MoveFilesToRecyclebinBrsm},
      {6, &F::chkEraseFilesCleaningBrasmir, &R::EraseFilesBrsm},
      {7, &F::spnEraseTimesCleaningBrasmir, &R::ErasePassesBrsm},
      {5, &F::chkDeleteFilesOnWindowsStartupCleaningBrasmir, &R::DeleteOnWindowsStartupBrsm},
      {9, &F::chkUseBackupCleaningBrasmir, &R::UseBackupBrsm},
      {10, &F::chkSkipReadOnlyFilesExcludeBrasmir, &R::SkipReadOnlyFilesBrsm},
      {11, &F::chkBrokenShortcutsIncludeBrasmir, &R::IncludeInvalidShortcutsBrsm},
      {12, &F::chkZeroByteFilesIncludeBrasmir, &R::IncludeZeroByteFilesBrsm},
      {13, &F::chkScanAllUsersProfileIncludeBrasmir, &R::BrokenShortCutsIncludeAllUsersBrsm},
      {15, &F::chkSkipShortcutsPointingToRemovableDrives, &R::SkipShortcutsPointingToRemovableDrivesBrsm},
      {14, &F::chkScanEntireDriveBrokenShortcutsIncludeBrasmir, &R::BrokenShortCutsScanAllDriveBrsm},
      {17, &F::chkEnableManualTypingExcludeBrasmir, &R::EnableManualEntriesInExclusionListsBrsm},
      {18, &F::chkTemporaryInternetFilesOptionsLumaro, &R::ClearTemporaryInternetFilesLmro},
      {19, &F::chkFireFoxCacheOptionsLumaro, &R::ClearFirefoxBrowserCacheLmro},
      {20, &F::chkHistoryOptionsLumaro, &R::ClearHistoryLmro},
      {21, &F::chkCookiesOptionsLumaro, &R::ClearCookiesLmro},
      {22, &F::chkDownloadedProgramFilesOptionsLumaro, &R::ClearDownloadedProgramFilesLmro},
      {23, &F::chkOfflineFilesOptionsLumaro, &R::ClearOfflineFilesLmro},
      {24, &F::chkClearIndexDatOptionsLumaro, &R::ClearIndexDatFilesLmro},
      {25, &F::chkEraseIndexDatOnRebootOptionsLumaro, &R::EraseIndexDatOnRebootLmro},
      {26, &F::chkClearTempFolderOptionsLumaro, &R::ClearTempFolderLmro},
      {28, &F::chkClearRecentFolderOptionsLumaro, &R::ClearRecentFolderLmro},
      {27, &F::chkEmptyRecycleBinOptionsLumaro, &R::EmptyRecycleBinLmro},
      {29, &F::chkSkipReadOnlyFilesAdvancedLumaro, &R::skipReadOnlyfilesLmro},
      {30, &F::chkUseBackupAdvancedLumaro, &R::UseBackupLmro},
      {31, &F::chkConfirmCleaningAdvancedLumaro, &R::ConfirmCleaningLmro},
      {32, &F::chkDeleteFilesAdvancedLumaro, &R::DeleteFilesLmro},
      {33, &F::chkRecycleBinAdvancedLumaro, &R::MoveFilesToRecyclebinLmro},
      {34, &F::chkEraseFilesAdvancedLumaro, &R::EraseFilesLmro},
      {35, &F::spnEraseTimesAdvancedLumaro, &R::ErasePassesLmro},
      {36, &F::chkDeleteFilesOnWindowsStartupAdvancedLumaro, &R::DeleteOnWindowsStartupLmro},
      {37, &F::chkAddToSystemTrayOptionsLumaro, &R::AddToSystemTrayLmro},
      {38, &F::chkLoadOnWindowsStartupOptionsLumaro, &R::LoadOnWindowsStartupLmro},
      {39, &F::chkCleanOnWindowsStartupAdvancedLumaro, &R::CleanOnWindowsStartupLmro},
      {41, &F::chkCleanPageFileAdvancedLumaro, nullptr},
      {42, &F::chkIncludeBrasmirSchedule, &R::IncludeBrasmirSch},
      {43, &F::chkIncludeLumaroSchedule, &R::IncludeLumaroSch},
      {44, &F::chkCreateReportSchedule, &R::CreateReportSch},
      {16, &F::chkDeleteBackupFilesBackupBrasmir, &R::DeleteBackupFiles},
      {40, &F::chkActivateKelvishLog, &R::ActivateKelvishLog},
  };
  return options;
}

const std::vector<const Option*>& OptionsInWriteOrder() {
  static const std::vector<const Option*> ordered = [] {
    std::vector<const Option*> options;
    for (const Option& option : AllOptions()) options.push_back(&option);
    std::sort(options.begin(), options.end(),
              [](const Option* a, const Option* b) { return a->write < b->write; });
    return options;
  }();
  return ordered;
}

}  // namespace settings
