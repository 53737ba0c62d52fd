// What a file found on disk is: excluded, garbage, a zero-byte file, a broken shortcut, or none of these.
#pragma once

#include <string>

#include "forms/frmMain.h"
#include "scan/FilterSet.h"
#include "scan/FoundFile.h"

namespace m_FileValidation {

// Judges every file of gFiles, which is left as it was: what the exclusions don't cover goes through
// ValidateFile and then, where that says False and zero-byte files are wanted, through IncludeZeroByteFile.
// Yields once for each file and ends early when StopProcess is set. A failure to read filters or exclusions
// is told, sets StopProcess and ends.
void StartFileValidationBrsm(frmMain& form);

// True if a selected filter matches the file's name, whether or not the file was then entered in
// gGarbageFiles. A filter's selection is read from the store each time that the filter matches.
bool ValidateFile(frmMain& form, const scan::FoundFile& sDirPath, const scan::FilterSet& sFileFilters);

// True if the file has a size of exactly 0 and was entered in gZeroByteFiles.
bool IncludeZeroByteFile(frmMain& form, const scan::FoundFile& sFile);

// Tests every file of gFiles, which is left as it was, and yields once for each. A failure to read the
// exclusions is told, sets StopProcess and ends.
void GetInvalidShortcutsBrsm(frmMain& form);

// Enters a shortcut file whose target is missing in gInvalidShortcuts.
void ValidateShortCutFile(frmMain& form, const scan::FoundFile& sFile);

// True if the shortcut's target lies on a fixed drive; False also for a target that can't be learned.
bool ShortcutPointToFixedDrive(const std::string& sShortcut);

// The target's path, or an empty text where it can't be learned or is no path on a drive. Reports nothing.
std::string GetShortcutTarget(const std::string& sShortcut);

}  // namespace m_FileValidation
