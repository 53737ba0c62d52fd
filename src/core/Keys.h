// The registry keys of the program.
#pragma once

namespace core::keys {

inline constexpr char kTidorra[] = "Software\\Orvane\\Tidorra";
inline constexpr char kBrasmir[] = "Software\\Orvane\\Tidorra\\Brasmir";
inline constexpr char kFileFilters[] = "Software\\Orvane\\Tidorra\\Brasmir\\File Filters";
inline constexpr char kSelectedFileFilters[] =
    "Software\\Orvane\\Tidorra\\Brasmir\\File Filters\\Selected File Filters";
inline constexpr char kFileFiltersExclude[] = "Software\\Orvane\\Tidorra\\Brasmir\\File Filters\\Exclude";
inline constexpr char kExcludeZeroByteFiles[] =
    "Software\\Orvane\\Tidorra\\Brasmir\\File Filters\\Exclude Zero byte files";
inline constexpr char kDrives[] = "Software\\Orvane\\Tidorra\\Brasmir\\Drives";
inline constexpr char kSelectedDrives[] = "Software\\Orvane\\Tidorra\\Brasmir\\Drives\\Selected Drives";
inline constexpr char kCleaning[] = "Software\\Orvane\\Tidorra\\Brasmir\\Cleaning";
inline constexpr char kCleaningStatus[] = "Software\\Orvane\\Tidorra\\Brasmir\\Cleaning Status";
inline constexpr char kExcluded[] = "Software\\Orvane\\Tidorra\\Brasmir\\Excluded";
inline constexpr char kExcludedDirectories[] = "Software\\Orvane\\Tidorra\\Brasmir\\Excluded\\Directories";
inline constexpr char kExcludedFilesOptions[] = "Software\\Orvane\\Tidorra\\Brasmir\\Excluded\\Files";
inline constexpr char kExcludedFiles[] = "Software\\Orvane\\Tidorra\\Brasmir\\Excluded\\Files\\Excluded";
inline constexpr char kInclude[] = "Software\\Orvane\\Tidorra\\Brasmir\\Include";
inline constexpr char kBackup[] = "Software\\Orvane\\Tidorra\\Brasmir\\Backup";
inline constexpr char kBackupFiles[] = "Software\\Orvane\\Tidorra\\Brasmir\\Backup\\Backup files";
inline constexpr char kLumaro[] = "Software\\Orvane\\Tidorra\\Brasmir\\Lumaro";
inline constexpr char kLumaroInternetFiles[] = "Software\\Orvane\\Tidorra\\Brasmir\\Lumaro\\Internet files";
inline constexpr char kLumaroDirectories[] = "Software\\Orvane\\Tidorra\\Brasmir\\Lumaro\\Directories";
inline constexpr char kLumaroAdvanced[] = "Software\\Orvane\\Tidorra\\Brasmir\\Lumaro\\Advanced";
inline constexpr char kUserDefinedFolders[] =
    "Software\\Orvane\\Tidorra\\Brasmir\\Lumaro\\User Defined Folders";
inline constexpr char kSelectedUserDefinedFolders[] =
    "Software\\Orvane\\Tidorra\\Brasmir\\Lumaro\\User Defined Folders\\Selected User Defined Folders";
inline constexpr char kUserInformation[] = "Software\\Orvane\\Tidorra\\Brasmir\\User Information";
inline constexpr char kSchedule[] = "Software\\Orvane\\Tidorra\\Schedule";
inline constexpr char kKelvish[] = "Software\\Orvane\\Tidorra\\Kelvish";
inline constexpr char kValdrinPaths[] = "Software\\Orvane\\Tidorra\\Valdrin\\Paths";
inline constexpr char kRun[] = "Software\\Microsoft\\Windows\\CurrentVersion\\Run";
inline constexpr char kRunOnce[] = "Software\\Microsoft\\Windows\\CurrentVersion\\RunOnce";
inline constexpr char kMemoryManagement[] =
    "SYSTEM\\CurrentControlSet\\Control\\Session Manager\\Memory Management";

}  // namespace core::keys
