// The click handlers that are live while the options are filled, on whatever page their controls lie, and the
// two other handlers of the settings that no page's room owns.
#pragma once

#include "forms/frmMain.h"

namespace settings {

// Of the three cleaning methods at most one is ticked. A click that unticks clears nothing.
void chkDeleteFilesCleaningBrasmir_Click(frmMain& form);
void chkRecycleBinCleaningBrasmir_Click(frmMain& form);
void chkEraseFilesCleaningBrasmir_Click(frmMain& form);
void chkDeleteFilesAdvancedLumaro_Click(frmMain& form);
void chkRecycleBinAdvancedLumaro_Click(
    frmMain& form);  // warns first, as chkEmptyRecycleBinOptionsLumaro does
void chkEraseFilesAdvancedLumaro_Click(frmMain& form);

// Warns if files would be moved to the recycle bin and the bin would be emptied.
void chkEmptyRecycleBinOptionsLumaro_Click(frmMain& form);
// Enables chkEraseIndexDatOnRebootOptionsLumaro while ticked.
void chkClearIndexDatOptionsLumaro_Click(frmMain& form);
// Ticking starts a new session for the backup.
void chkUseBackupCleaningBrasmir_Click(frmMain& form);
// Enables the link to the list of excluded zero byte files while ticked.
void chkExcludeZeroByteFilesFilterFileFiltersBrasmir_Click(frmMain& form);

// Exclude each other, and warn of shortcuts to removable drives, unless the program is loading, the user
// wants no such warning or those shortcuts are skipped.
void chkScanAllUsersProfileIncludeBrasmir_Click(frmMain& form);
void chkScanEntireDriveBrokenShortcutsIncludeBrasmir_Click(frmMain& form);
// Shows that warning in any case, with its check box as stored.
void lblUserInformationBrokenShortcuts_Click();

// Asks, and sets the statistics, the panel and the session's counters to 0.
void lblResetCleaningStatus_Click(frmMain& form);

void WireSettings(frmMain& form);

}  // namespace settings
