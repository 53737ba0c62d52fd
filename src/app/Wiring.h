// Which handler answers which control of the main window: all rooms' together.
#pragma once

#include "forms/frmMain.h"

namespace app {

void WireAll(frmMain& form);

}  // namespace app
