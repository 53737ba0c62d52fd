// The half of m_Registry that fills and saves the lists; the other half is in m_Registry.h.
#pragma once

#include <cstdint>
#include <string>

#include "forms/frmMain.h"

namespace m_Registry {

// The stored lists. Keys are paths below the current user's hive: the list's own and, where there is one,
// that of the ticks. A fill adds to what the list holds; a failure to read the names shows a box. A tick that
// is missing or no Boolean ends a fill with the error report, and the list isn't whole: it holds the rows by
// then, and isn't saved. A save writes every row and deletes nothing; a write that failed, or that could not
// be made lasting, shows a box, once.
void AssignFileFilters(frmMain& form, const std::string& sSubKey1, const std::string& sSubKey2);
void SaveFileFilterSettings(frmMain& form, const std::string& sSubKey1, const std::string& sSubKey2);
void AssignDrives(frmMain& form, const std::string& sSubKey1, const std::string& sSubKey2);
void SaveDriveSettings(frmMain& form, const std::string& sSubKey1, const std::string& sSubKey2);
void AssignUserDefinedFolders(frmMain& form, const std::string& sSubKey1, const std::string& sSubKey2);
void SaveUserDefinedFoldersSettings(frmMain& form, const std::string& sSubKey1, const std::string& sSubKey2);
void AssignExcludedFolders(frmMain& form, const std::string& sSubKey);
void SaveExcludedFoldersSettings(frmMain& form, const std::string& sSubKey);
void AssignExcludedFiles(frmMain& form, const std::string& sSubKey);
void SaveExcludedFilesSettings(frmMain& form, const std::string& sSubKey);
// With the option DeleteBackupFiles on, a backup that was made 30 days ago or earlier is deleted, with its
// value, and gets no row; if it was this session's, the next one starts a new archive. One whose file isn't
// there, or can't be deleted, keeps its value and its row.
void AssignBackups(frmMain& form, const std::string& sSubKey);
void SaveBackupSettings(frmMain& form, const std::string& sSubKey);

// The largest plug-in file that is read, in bytes.
inline constexpr std::uint64_t kLargestPlugIn = 1 << 20;
// Rebuilds the list of the installed plug-ins from the files below "PlugIns". A file of fewer than eight
// lines, or one that can't be read, ends the load with the error report; the rows by then stay.
void AssignPlugIns(frmMain& form);

}  // namespace m_Registry
