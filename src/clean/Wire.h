// Gives this room's handlers to the controls of the main window.
#pragma once

#include "forms/frmMain.h"

namespace clean {

void WireClean(frmMain& form);

}  // namespace clean
