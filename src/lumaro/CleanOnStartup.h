// The window that accompanies the unattended clean.
#pragma once

#include "core/OpenForms.h"
#include "forms/frmCleanOnStartup.h"

namespace lumaro {

// The window's one instance. Get() loads it just below the screen's bottom edge, flush right; its timer
// slides it up once the message loop runs. Closing it slides it out again. Whoever drives the clean sets
// lblStatus and stops anm through Loaded(), which is null once the window has gone.
core::FormSlot<frmCleanOnStartup>& CleanOnStartup();

}  // namespace lumaro
