// The handlers of the page "Scanning results...".
#pragma once

#include "forms/frmMain.h"

namespace scan {

// Shows the page with the garbage files.
void cmdViewResultsScanComputerBrasmir_Click(frmMain& form);
// Shows the page with the category of the label that was clicked on the scan page (forms::ViewResultsLabel).
// Does nothing before the first scan has ended.
void lblViewResultsScanComputer_Click(frmMain& form, int Index);
void cboSelectResultsBrasmir_Click(frmMain& form);
void cmdSelectAllResultsBrasmir_Click(frmMain& form);
void cmdUnSelectAllResultsBrasmir_Click(frmMain& form);
// Narrows the rows by the text beside it; an empty text loads the category anew.
void lblSortListResultsBrasmir_Click(frmMain& form);
// Opens the context menu.
void lvwFilesResultsBrasmir_MouseDown(frmMain& form, controls::MouseButton Button);

}  // namespace scan
