// The window of the file filters whose zero-byte files are left alone.
#pragma once

#include "forms/frmExcludedZeroByteFilesFileFilters.h"

namespace scan {

// Shows the window, not modal; there is one. It loads when it opens and saves when it closes, by whatever
// means.
frmExcludedZeroByteFilesFileFilters& ShowExcludedZeroByteFilesFileFilters();

void Wire(frmExcludedZeroByteFilesFileFilters& form);

// One row for each value of the table of exclusions, ticked as stored. A failure to read the names is told.
void LoadFileFilters(frmExcludedZeroByteFilesFileFilters& form);
// Writes every row. The result of the last write, or of making them all lasting, is told if it is a failure.
void SaveFileFilters(frmExcludedZeroByteFilesFileFilters& form);
// The check box from the store, and into it; both keep gRegistry in step.
void RetrieveRegistrySettings(frmExcludedZeroByteFilesFileFilters& form);
void SaveRegistrySettings(frmExcludedZeroByteFilesFileFilters& form);

}  // namespace scan
