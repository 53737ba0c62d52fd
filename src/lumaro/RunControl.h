// The button that starts and stops a cleaning run of the module Lumaro.
#pragma once

#include "forms/frmMain.h"

namespace lumaro {

// "Stop": asks the run under way to stop. Otherwise, unless a run is on the stack: asks if that is wanted,
// takes the backup if that is wanted, calls the cleaners in their order and ends with a scan.
void cmdCleanUpScanComputerLumaro_Click(frmMain& form);

}  // namespace lumaro
