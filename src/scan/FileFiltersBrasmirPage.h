// The handlers of the page "File filters...".
#pragma once

#include "forms/frmMain.h"

namespace scan {

void cmdAddFileFiltersBrasmir_Click(frmMain& form);
void cmdModifyFileFiltersBrasmir_Click(frmMain& form);
void cmdRemoveFileFiltersBrasmir_Click(frmMain& form);
void cmdSelectAllFileFiltersBrasmir_Click(frmMain& form);
void cmdUnSelectAllFileFiltersBrasmir_Click(frmMain& form);
void lblTestFilterFileFiltersBrasmir_Click(frmMain& form);
// A click on the list abandons an edit.
void lvwFileFiltersBrasmir_Click(frmMain& form);
void lblExcludeZeroByteFilesFileFiltersBrasmir_Click();

}  // namespace scan
