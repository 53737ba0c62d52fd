// The half of m_FileValidation that judges shortcuts; the other half is in m_FileValidation.h.
#pragma once

#include <string>

#include "forms/frmMain.h"
#include "scan/FoundFile.h"

namespace m_FileValidation {

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
