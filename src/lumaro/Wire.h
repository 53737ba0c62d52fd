// Gives the pages of the module Lumaro their handlers.
#pragma once

#include "forms/frmMain.h"

namespace lumaro {

void WireLumaro(frmMain& form);

}  // namespace lumaro
