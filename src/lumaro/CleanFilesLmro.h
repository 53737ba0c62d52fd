// The cleaners of the module Lumaro: each removes what lies in one of its places.
#pragma once

#include "forms/frmMain.h"
#include "platform/CountedList.h"

// The lines of "Cookies.txt", loaded by the two cleaners that cookies matter to.
extern platform::CountedList gExcludedCookies;

namespace m_CleanFiles {

// Each lists its place afresh into gFiles and gFolders, removes what it may, keeps the count on the page up
// to date and adds to the statistics. A place that can't be found is told in a box. While a cleaner yields it
// works on the two lists moved aside, so that nobody can pull them away; when it ends they hold what it
// listed.
//
// A failure that nobody expected ends the cleaner with the error report. In particular a cleaner whose
// exclusions can't be read removes nothing.
void CleanCookieFilesLmro(frmMain& form);
void CleanTemporaryInternetFilesLmro(frmMain& form);
void CleanHistoryLmro(frmMain& form);
void CleanDownloadedProgramFilesLmro(frmMain& form);
void CleanOfflineFilesLmro(frmMain& form);
void ClearIndexDatFiles(frmMain& form);
void CleanRecentFolderLmro(frmMain& form);
void CleanTempFolderLmro(frmMain& form);
void CleanXPPrefetchFolderLmro(frmMain& form);
void CleanUserDefinedFoldersLmro(frmMain& form);
void CleanFirefoxBrowserCacheLmro(frmMain& form);
void EmptyRecycleBinLmro(frmMain& form);

// Removes the folders of gFolders from the last to the first, but for those that an excluded directory
// claims: with all that they hold if `bForce`, otherwise only those that are empty.
void DeleteFoldersLmro(bool bForce);

// While one lives, a backup has been taken in the run under way: the cleaners of what it covers take a file
// that it had to leave out for one that can't be removed.
class AfterBackup {
 public:
  AfterBackup();
  ~AfterBackup();
  AfterBackup(const AfterBackup&) = delete;
  AfterBackup& operator=(const AfterBackup&) = delete;
  static bool Lives();
};

}  // namespace m_CleanFiles
