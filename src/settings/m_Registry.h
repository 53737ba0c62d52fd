// The settings between the registry, the cache and the screens.
#pragma once

#include <string>

#include "forms/frmMain.h"

namespace m_Registry {

// Fills the cache gRegistry from the store. False if a failure was raised on the way, of which nothing is
// shown; what was read by then stays. An absent value reads as an empty text and is no failure.
bool ReadRegistrySettings();

// Fills the option controls from the cache, in the order of the table; the page-file option from Windows' own
// value. A text that doesn't convert shows the error report and leaves that row and the rest as the form's
// design has them.
void AssignOptionSettings(frmMain& form);
// Writes the options to the store, and the date to "Last used". A control that a failed fill left untouched,
// and that nothing has changed since, is passed over. The results of the writes are not looked at.
void SaveOptionSettings(frmMain& form);

// The status panel of the welcome page, from the store as it stands.
void AssignCleaningStatus(frmMain& form);
// Folds the session's counters into the store and sets them to 0. A statistic that is missing shows the error
// report, and then nothing is written and the counters stay.
void SaveCleaningStatus();

// The stored lists. Keys are paths below the current user's hive: the list's own and, where there is one,
// that of the ticks. A fill adds to what the list holds; a failure to read the names shows a box. A save
// writes every row and deletes nothing; a write that failed, or that could not be made lasting, shows a box,
// once.
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
// there keeps its row.
void AssignBackups(frmMain& form, const std::string& sSubKey);
void SaveBackupSettings(frmMain& form, const std::string& sSubKey);

// Rebuilds the list of the installed plug-ins from the files below "PlugIns". A file of fewer than eight
// lines, or one that can't be read, ends the load with the error report; the rows by then stay.
void AssignPlugIns(frmMain& form);

}  // namespace m_Registry
