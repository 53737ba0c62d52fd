// Gives this room's handlers to the controls of the main window.
#pragma once

#include "forms/frmMain.h"

namespace scan {

void WireScan(frmMain& form);

}  // namespace scan
