// The handlers of the page "Exclude...".
#pragma once

#include "forms/frmMain.h"

namespace scan {

// Adding and modifying ask with a picker, or with an input box while manual typing is enabled.
void cmdAddDirectorieExcludeBrasmir_Click(frmMain& form);
void cmdRemoveDirectorieExcludeBrasmir_Click(frmMain& form);
void cmdModifyDirectorieExcludeBrasmir_Click(frmMain& form);
void cmdAddFileExcludeBrasmir_Click(frmMain& form);
void cmdRemoveFileExcludeBrasmir_Click(frmMain& form);
void cmdModifyFileExcludeBrasmir_Click(frmMain& form);
// Give one list the whole page, and take it back.
void cmdExpandDirectoryExcludeBrasmir_Click(frmMain& form);
void cmdExpandFileExcludeBrasmir_Click(frmMain& form);

}  // namespace scan
