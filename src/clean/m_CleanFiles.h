// Removing the ticked results of a scan. Lumaro's half of this module is in lumaro/CleanFilesLmro.h.
#pragma once

#include <string>

#include "forms/frmMain.h"
#include "platform/CountedList.h"
#include "removal/Remover.h"

// The full paths that the latest run was given, in the order of the rows.
extern platform::CountedList gSelectedFiles;

namespace m_CleanFiles {

// Removes the ticked rows' files by the method of the settings, which are read afresh for each file; yields
// once before each file, and ends early when StopProcess is set. What is removed leaves the rows and counts
// in the statistics; what isn't stays ticked, and goes to the boot-time cleaner if that is wanted.
// `remover` is the run's, with its backup if it took one.
void CleanFilesBrsm(frmMain& form, removal::Remover& remover);

// Takes the backup of the run, if the settings want one. False: it has told the user, and no file may be
// touched.
bool BackUp(frmMain& form, removal::Remover& remover);

// Asks, if the settings want it; True to go on.
bool ConfirmCleaning();

// A whole run from the question to the end, with the method named by `sMethod`: "Recycle bin", "Erase",
// anything else plain deletion. Does nothing while a run is on the stack.
void CleanFilesfromMenu(frmMain& form, const std::string& sMethod);

// The full paths of the ticked rows, in place of what the list holds.
void CollectSelectedFiles(frmMain& form, platform::CountedList& sFiles);

}  // namespace m_CleanFiles
