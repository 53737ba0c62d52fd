// The handlers of the page "Scan computer..." of the module Brasmir.
#pragma once

#include "forms/frmMain.h"

namespace scan {

// Starts a scan, or stops the one that is running. Starts nothing while any run is on the stack.
void cmdScanComputerBrasmir_Click(frmMain& form);
void cmdOptionsBrasmir_Click(frmMain& form);
// Shows the settings that a scan and a cleaning would use.
void lblViewSettingsScanComputerBrasmir_Click(frmMain& form);

}  // namespace scan
