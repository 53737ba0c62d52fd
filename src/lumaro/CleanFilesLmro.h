// The cleaners of the module Lumaro: each removes what lies in one of its places. The other half of this
// module is in clean/m_CleanFiles.h.
#pragma once

#include "forms/frmMain.h"
#include "places/Places.h"
#include "platform/CountedList.h"
#include "removal/Remover.h"

// The lines of "Cookies.txt", loaded by the two cleaners that cookies matter to.
extern platform::CountedList gExcludedCookies;

namespace m_CleanFiles {

using removal::Remover;

// Clears a place in the way that its row in the table of the places says.
//
// Each cleaner lists its place afresh into gFiles and gFolders, removes what it may, keeps the count on the
// page up to date and adds to the statistics. A place that can't be found is told in a box. While a cleaner
// yields it works on the two lists moved aside, so that nobody can pull them away; when it ends they hold
// what it listed.
//
// A failure that nobody expected ends the cleaner with the error report. In particular a cleaner whose
// exclusions can't be read removes nothing.
void CleanPlace(frmMain& form, const places::Place& place, Remover& remover);

// The same by name.
void CleanCookieFilesLmro(frmMain& form, Remover& remover);
void CleanTemporaryInternetFilesLmro(frmMain& form, Remover& remover);
void CleanHistoryLmro(frmMain& form, Remover& remover);
void CleanDownloadedProgramFilesLmro(frmMain& form, Remover& remover);
void CleanOfflineFilesLmro(frmMain& form, Remover& remover);
void ClearIndexDatFiles(frmMain& form, Remover& remover);
void CleanRecentFolderLmro(frmMain& form, Remover& remover);
void CleanTempFolderLmro(frmMain& form, Remover& remover);
void CleanXPPrefetchFolderLmro(frmMain& form, Remover& remover);
void CleanUserDefinedFoldersLmro(frmMain& form, Remover& remover);
void CleanFirefoxBrowserCacheLmro(frmMain& form, Remover& remover);
void EmptyRecycleBinLmro(frmMain& form, Remover& remover);

// Removes the folders of gFolders from the last to the first, but for those that an excluded directory
// claims: with all that they hold if `bForce`, otherwise only those that are empty.
void DeleteFoldersLmro(bool bForce);

}  // namespace m_CleanFiles
