// The two ZIP controls. Forms hold screen data only, so they stand here.
#pragma once

#include "backup/AbaleZip.h"
#include "core/OpenForms.h"
#include "forms/frmBackupFileInformation.h"

namespace backup {

// The main window's AbaZip: an entry is stored under its file's full path, and a listing goes to the window
// frmBackupFileInformation.
AbaleZip& MainZip();

// frmBackupFileInformation's own AbaZip, made anew with the window.
AbaleZip& WindowZip();

core::FormSlot<frmBackupFileInformation>& BackupFileInformation();

// The box of a failed ZIP operation: the line, what the control says of the result, the result.
void TellZipFailure(const std::string& line, long result);

}  // namespace backup
