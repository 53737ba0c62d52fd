// The two option pages of the module Lumaro, and the links of its scan page.
#pragma once

#include "forms/frmMain.h"

namespace lumaro {

void cmdOptionsLumaro_Click(frmMain& form);
// Also lets the clean on start-up be chosen only together with the start in the tray.
void lblAdvancedLumaro_Click(frmMain& form);
void lblMoreFoldersOptionsLumaro_Click(frmMain& form);
void lblManageCookiesOptionsLumaro_Click();
void lblViewLockedFilesAdvancedLumaro_Click(frmMain& form);
// Copies the cleaning methods to the page of the module Brasmir.
void lblApplySettingsToBrasmirAdvancedLumaro_Click(frmMain& form);
// Restarts the computer; asks nothing.
void lblRebootScanComputerLumaro_Click(frmMain& form);

}  // namespace lumaro
