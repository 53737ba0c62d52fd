// The cache of the scalar settings: plain copies of the registry's texts.
#pragma once

#include <cstdint>
#include <string>

#include "platform/RegistryStore.h"

// Filled by m_Registry::ReadRegistrySettings and read everywhere; only as fresh as the last fill. Each field
// is the text of one registry value, an empty text where the value is absent. The suffix tells the module:
// Brsm Brasmir, Lmro Lumaro, Sch the schedule.
class c_Registry {
 public:
  static constexpr std::uint32_t HKEY_CURRENT_USER = platform::kCurrentUser;
  static constexpr std::uint32_t HKEY_LOCAL_MACHINE = platform::kLocalMachine;

  std::string EnableManualEntriesInExclusionListsBrsm;
  std::string ApplyListToGlobalScanningBrsm;
  std::string CreateReportSch;
  std::string IncludeLumaroSch;
  std::string IncludeBrasmirSch;
  std::string TimeSch;
  std::string WeekSch;
  std::string DaySch;
  std::string EnableScheduleSch;
  std::string EmptyRecycleBinLmro;
  std::string ClearHistoryLmro;
  std::string ErasePassesLmro;
  std::string DeleteOnWindowsStartupLmro;
  std::string EraseFilesLmro;
  std::string MoveFilesToRecyclebinLmro;
  std::string DeleteFilesLmro;
  std::string ConfirmCleaningLmro;
  std::string UseBackupLmro;
  std::string skipReadOnlyfilesLmro;
  std::string ClearRecentFolderLmro;
  std::string ClearTempFolderLmro;
  std::string ClearIndexDatFilesLmro;
  std::string EraseIndexDatOnRebootLmro;
  std::string ClearOfflineFilesLmro;
  std::string ClearDownloadedProgramFilesLmro;
  std::string ClearCookiesLmro;
  std::string ClearTemporaryInternetFilesLmro;
  std::string ClearFirefoxBrowserCacheLmro;
  std::string SkipReadOnlyFilesBrsm;
  std::string DeleteBackupFiles;
  std::string PathProgramFiles;  // ends in a backslash
  std::string BrokenShortCutsScanAllDriveBrsm;
  std::string BrokenShortCutsIncludeAllUsersBrsm;
  std::string SkipShortcutsPointingToRemovableDrivesBrsm;
  std::string DeleteOnWindowsStartupBrsm;
  std::string IncludeInvalidShortcutsBrsm;
  std::string UseBackupBrsm;
  std::string DeleteFilesBrsm;
  std::string ErasePassesBrsm;
  std::string EraseFilesBrsm;
  std::string IncludeZeroByteFilesBrsm;
  std::string MoveFilesToRecyclebinBrsm;
  std::string ConfirmCleaningBrsm;
  std::string ExcludeZeroByteFilesFileFiltersBrsm;
  std::string InstallDirectory;  // ends in a backslash
  std::string AddToSystemTrayLmro;
  std::string LoadOnWindowsStartupLmro;
  std::string CleanOnWindowsStartupLmro;
  std::string ActivateKelvishLog;
};
