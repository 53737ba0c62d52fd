// Which files a scan of the module Brasmir looks at. Lumaro's half of this module is in
// lumaro/ScanComputerLmro.h.
#pragma once

#include <memory>

#include "forms/frmMain.h"
#include "platform/FileSystem.h"

namespace m_ScanComputer {

// Empties the four lists of a scan and lists the files of every drive that is selected in the store into
// gFiles. A stop is seen between two drives and counts as success; False means that an error was told to the
// user.
bool ScanComputerBrsm();

// What looks at the files of gFiles ahead, under their indexes, since ScanComputerBrsm; null where zero-byte
// files aren't wanted, where the platform has nothing of the kind, and from the second call on. It works on
// as long as it lives: a scan that ends takes it too.
std::unique_ptr<platform::SizesAhead> TakeSizesAhead();

// Fills gFiles anew with what may be a shortcut, from the places that the options name. False means that an
// error was told to the user.
bool ScanShortcutsBrsm(frmMain& form);

}  // namespace m_ScanComputer
