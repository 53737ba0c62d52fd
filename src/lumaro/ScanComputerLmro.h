// The scan of the module Lumaro, which is the other half of scan/m_ScanComputer.h, and what its page's
// buttons and links do.
#pragma once

#include "forms/frmMain.h"

namespace m_ScanComputer {

// Measures the places that are switched on: writes the number of items of each to its label and the size of
// all together. Removes nothing, keeps nothing for the cleaners, doesn't yield and can't be stopped. The
// shared lists of files and folders hold the user-defined folders afterwards.
void ScanComputerLmro(frmMain& form);

}  // namespace m_ScanComputer

namespace lumaro {

// Does nothing while a run is on the stack.
void cmdScanComputerLumaro_Click(frmMain& form);
// Opens the place of a row in the shell; row 6 leads to the page of the user-defined folders.
void lblDirLumaro_Click(frmMain& form, int Index);
// Shows the settings in force.
void lblViewSettingsScanComputerLumaro_Click();

}  // namespace lumaro
