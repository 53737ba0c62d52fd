// Gives the main window's menu, its ways between the pages and the drives their handlers.
#pragma once

#include "forms/frmMain.h"

namespace ui {

void WireUi(frmMain& form);

}  // namespace ui
