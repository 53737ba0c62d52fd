// The lists of what a scan has found, as rows.
#pragma once

#include <string>

#include "forms/frmMain.h"
#include "platform/CountedList.h"

namespace m_Results {

// The names of the three categories in cboSelectResultsBrasmir.
inline constexpr char kGarbageFiles[] = "Garbage files";
inline constexpr char kZeroByteFiles[] = "Zero byte files";
inline constexpr char kInvalidShortcuts[] = "Invalid shortcuts";

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

// What the combo box shows: the shared list and the label of the scan page that counts it. Null where the box
// shows no category.
struct Category {
  platform::CountedList* list = nullptr;
  controls::Label* count = nullptr;
};
Category ShownCategory(frmMain& form);

}  // namespace m_Results
