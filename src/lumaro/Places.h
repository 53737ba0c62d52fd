// The fixed places of Lumaro, and the marks on their rows.
#pragma once

#include <string>

#include "forms/frmMain.h"

namespace lumaro {

// Each gives a folder, or an empty string when it can't be found.
std::string InternetCacheFolder();
std::string CookiesFolder();
std::string RecentFolder();
std::string TempFolder();
// Below the Windows folder, with a backslash at the end.
std::string DownloadedProgramFilesFolder();
std::string OfflineWebPagesFolder();
// Without one.
std::string PrefetchFolder();

// Empties the shared lists of files and folders.
void ResetLists();

// Highlights a row of the scan page for the length of a scope; nothing for row -1.
class RowHighlight {
 public:
  RowHighlight(frmMain& form, int row);
  ~RowHighlight();
  RowHighlight(const RowHighlight&) = delete;
  RowHighlight& operator=(const RowHighlight&) = delete;

 private:
  controls::Label* label_ = nullptr;
};

// Moves the bar of the scan page to `step` of its maximum and shows the percentage.
void ShowStep(frmMain& form, int step);
// Sets bar and percentage back to nothing done.
void ResetProgress(frmMain& form);

}  // namespace lumaro
