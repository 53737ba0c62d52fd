// The page of the folders that the user names for clearing.
#pragma once

#include "forms/frmMain.h"

namespace lumaro {

// Measures the selected folder and all ticked ones. A folder that is ticked and lies in another ticked one is
// counted in both.
void lvwUserDefinedFoldersLumaro_Click(frmMain& form);
void lvwUserDefinedFoldersLumaro_DblClick(frmMain& form);
void cmdAddUserDefinedFoldersLumaro_Click(frmMain& form);
// Takes the folder off the list and out of the store; the folder itself stays.
void cmdRemoveUserDefinedFoldersLumaro_Click(frmMain& form);
void cmdModifyUserDefinedFoldersLumaro_Click(frmMain& form);
void cmdSelectAllUserDefinedFoldersLumaro_Click(frmMain& form);
void cmdUnselectAllUserDefinedFoldersLumaro_Click(frmMain& form);
// Adds the folders of the name in the text box, from all drives or from one folder.
void cmdSearchUserDefinedFoldersLumaro_Click(frmMain& form);

}  // namespace lumaro
