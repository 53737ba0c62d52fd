// The ways in which places are cleared, as CleanPlace calls them. Each may raise.
#pragma once

#include "forms/frmMain.h"
#include "places/Places.h"
#include "removal/Remover.h"

namespace lumaro {

using Cleaner = void(frmMain& form, const places::Place& place, removal::Remover& remover);

Cleaner CleanFiles, CleanCacheEntries, CleanHistory, ClearIndexDat, CleanFirefox, EmptyRecycleBin;

// The box for a place that can't be found.
void TellPathError(const places::Place& place);

}  // namespace lumaro
