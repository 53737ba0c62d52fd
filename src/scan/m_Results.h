// The lists of what a scan has found, as rows.
#pragma once

#include <string>
#include <vector>

#include "forms/frmMain.h"
#include "platform/CountedList.h"

namespace m_Results {

// Each turns its list into rows of lvwFilesResultsBrasmir, unticked, with sizes in bytes as of now. The
// window paints meanwhile, and lets nothing in but the stop control of a run in progress.
void LoadGarbageFiles(frmMain& form);
void LoadZeroByteFiles(frmMain& form);
void LoadInvalidShortCuts(frmMain& form);

// At least one row is ticked.
bool IsSelectedFiles(frmMain& form);

// Keeps the rows whose folder holds `text` or whose extension stands in `text`, case ignored; their ticks are
// lost and their sizes fetched again. An empty extension stands in every text.
void NarrowRows(frmMain& form, const std::string& text);

// What belongs to a category: its name in cboSelectResultsBrasmir, its loader, the shared list, and the label
// of the scan page that counts it.
struct Category {
  const char* name;
  void (*load)(frmMain&);
  platform::CountedList& list;
  controls::Label& count;
};
Category CategoryOf(frmMain& form, forms::ResultCategory category);

// Makes these the choice of cboSelectResultsBrasmir, and picks none.
void OfferCategories(frmMain& form, const std::vector<forms::ResultCategory>& categories);

}  // namespace m_Results
