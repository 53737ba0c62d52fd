// The handlers that remove files from the results page, and its context menu.
#pragma once

#include <string>

#include "forms/frmMain.h"

namespace clean {

// Removes the ticked files by the configured method, or stops the run that does. Starts nothing while any run
// is on the stack.
void cmdDeleteResultsBrasmir_Click(frmMain& form);

// An entry of the results' context menu, by its position from 1 with separators counted. Most work on the
// selected row; the three that remove work on the ticked ones.
void mnuFile_Click(frmMain& form, const std::string& menuName, int itemNum, const std::string& itemText);

}  // namespace clean
