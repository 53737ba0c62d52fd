// The handlers of the page "Cleaning..." of the module Brasmir.
#pragma once

#include "forms/frmMain.h"

namespace clean {

// Opens the list of files that were handed to the boot-time cleaner.
void lblViewLockedFilesCleaningBrasmir_Click();
// Copies the cleaning methods to the page of the module Lumaro; they are saved with the rest when the page is
// left.
void lblApplySettingsToLumaroCleaningBrasmir_Click(frmMain& form);

}  // namespace clean
