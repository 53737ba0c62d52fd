// What a scan and a run of Lumaro show on its page.
#pragma once

#include "forms/frmMain.h"

namespace lumaro {

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

// Tells the news, unless something has been told already; True if it was told. The first message stays.
bool TellIfNothingElse(frmMain& form, forms::LumaroNews news);

}  // namespace lumaro
