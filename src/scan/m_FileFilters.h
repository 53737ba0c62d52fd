// Editing the list of file filters, and trying one.
#pragma once

#include <string>

#include "forms/frmMain.h"

namespace m_FileFilters {

// Adds a ticked row, with "User Defined" for an empty description, and enters the filter in the table of
// zero-byte exclusions at once; the rest reaches the store with the next save. A filter that the list holds
// is refused with a box.
void AddFileFilter(frmMain& form, const std::string& sFilter, const std::string& sDescription);

// `iSelectedIndex` is a row's number from 1. At first the row goes into the text boxes for the user to edit;
// during an edit the boxes go into the row, and the store has its new values instead of the old ones at once.
// Refuses, with a box, an empty filter, the filter of another row, and an edit that changes nothing.
void ModifyFileFilter(frmMain& form, int iSelectedIndex);

// Ends an edit, and empties the text boxes.
void AbandonEdit(frmMain& form);
// The box for a filter that has been left empty.
void AskForFilter();

// Asks, and takes the row and its values in the store away.
void RemoveFileFilter(frmMain& form, int iSelectedIndex);

// Whether the filter would match a file of that name. Unlike a scan it takes the name as it is typed: in a
// path a filter without a dot may hit a folder.
bool TestFileFilter(const std::string& sFilename, const std::string& sFileFilter);

// A row has this filter, case ignored.
bool DuplicateFilterAddNew(const frmMain& form, const std::string& sFilter);
// A row has this filter, case ignored, and this description, case respected.
bool DuplicateFilterModifyExisting(const frmMain& form, const std::string& sFilter,
                                   const std::string& sDescription);

}  // namespace m_FileFilters
