// What several rooms do with the controls of the main window: the lists, the results' context menu, and the
// forms that the pages take before and after a long run.
#pragma once

#include <string_view>

#include "forms/frmMain.h"

namespace m_Controls {

// True if a row of the list has exactly this text, case included.
bool IsAlreadyAddedToListView(std::string_view Item, const controls::ListView& List);

// Takes the button style off the list's column heads.
void SetFlatHeaders(controls::ListView& list);

// Builds the results' context menu: fifteen positions with the pictures of ilsMenuIcons. `menu` is where the
// form keeps it.
void LoadMouseMenus(frmMain& form, controls::PopupMenu& menu);

// The scan of the module Brasmir.
void SetControlsBeforeScanningBrsm(frmMain& form);
void SetControlsAfterScanningBrsm(frmMain& form);

// The cleaning of the results.
void SetControlsBeforeCleaningBrsm(frmMain& form);
void SetControlsAfterCleaningBrsm(frmMain& form);

// The scan of the module Lumaro.
void SetControlsBeforeScanningLumaro(frmMain& form);
void SetControlsAfterScanningLumaro(frmMain& form);

// The cleaning of the module Lumaro.
void SetControlsBeforeCleaningLumaro(frmMain& form);
void SetControlsAfterCleaningLumaro(frmMain& form);

}  // namespace m_Controls
