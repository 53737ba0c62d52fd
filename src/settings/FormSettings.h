// All screens of the main window from the store and into it, in one go.
#pragma once

#include "forms/frmMain.h"

namespace settings {

// The stored lists, the plug-ins, and last of all the options: the fill of a start.
void AssignRegistrySettings(frmMain& form);

// All lists and options: at each close request and each way back from the settings.
void SaveRegistrySettings(frmMain& form);

// SaveRegistrySettings, and then the cache anew: from here on the changes count.
void SaveAndReread(frmMain& form);

}  // namespace settings
