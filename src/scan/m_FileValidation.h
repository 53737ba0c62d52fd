// What a file found on disk is: excluded, garbage, a zero-byte file, or none of these. The other half of this
// module, which judges shortcuts, is in m_FileValidationShortcuts.h.
#pragma once

#include "forms/frmMain.h"
#include "scan/FilterSet.h"
#include "scan/FoundFile.h"

namespace m_FileValidation {

// Judges every file of gFiles, which is left as it was: what the exclusions don't cover goes through
// ValidateFile and then, where that says False and zero-byte files are wanted, through IncludeZeroByteFile.
// Yields once for each file and ends early when StopProcess is set. A failure to read filters or exclusions
// is told, sets StopProcess and ends. `ahead`, if given, is what ScanComputerBrsm told of these files.
void StartFileValidationBrsm(frmMain& form, platform::SizesAhead* ahead = nullptr);

// True if a selected filter matches the file's name, whether or not the file was then entered in
// gGarbageFiles. A filter's selection is read from the store each time that the filter matches.
bool ValidateFile(frmMain& form, const scan::FoundFile& sDirPath, const scan::FilterSet& sFileFilters);

// True if the file has a size of exactly 0 and was entered in gZeroByteFiles.
bool IncludeZeroByteFile(frmMain& form, const scan::FoundFile& sFile);

}  // namespace m_FileValidation
