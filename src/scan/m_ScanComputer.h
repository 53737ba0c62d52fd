// Which files a scan of the module Brasmir looks at. Lumaro's half of this module is in
// lumaro/ScanComputerLmro.h.
#pragma once

#include "forms/frmMain.h"
#include "platform/FileSystem.h"

namespace m_ScanComputer {

// Empties the four lists of a scan and lists the files of every drive that is selected in the store into
// gFiles. A stop is seen between two drives and counts as success; False means that an error was told to the
// user.
//
// `ahead`, if given, is told of each file, under its index in gFiles, and looks at them on its own.
bool ScanComputerBrsm(platform::SizesAhead* ahead = nullptr);

// Fills gFiles anew with what may be a shortcut, from the places that the options name. False means that an
// error was told to the user.
bool ScanShortcutsBrsm(frmMain& form);

}  // namespace m_ScanComputer
