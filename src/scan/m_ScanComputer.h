// Which files a scan looks at.
#pragma once

#include "forms/frmMain.h"

namespace m_ScanComputer {

// Empties the four lists of a scan and lists the files of every drive that is selected in the store into
// gFiles. A stop is seen between two drives and counts as success; False means that an error was told to the
// user.
bool ScanComputerBrsm();

// Fills gFiles anew with what may be a shortcut, from the places that the options name. False means that an
// error was told to the user.
bool ScanShortcutsBrsm(frmMain& form);

}  // namespace m_ScanComputer
