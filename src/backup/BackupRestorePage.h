// Gives the page of the backups its handlers.
#pragma once

#include "forms/frmMain.h"

namespace backup {

// Call it once for each main window.
void WireBackup(frmMain& form);

}  // namespace backup
