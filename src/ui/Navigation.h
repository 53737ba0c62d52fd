// The ways between the pages of the main window. A page is a frame; showing it brings it to the front, and
// all pages keep their content. The form notes which module the user is in.
#pragma once

#include "forms/frmMain.h"

namespace ui {

// Index is one of forms::menu. All entries but the plug-ins save and reread the settings. Also a plain call:
// the tray icon's double click and the schedule's line make it.
void lblMainMenu_Click(frmMain& form, int Index);
void lblMainMenu_MouseMove(frmMain& form, int Index);
void pictMainMenu_MouseMove(frmMain& form);

void lblWelcomeScreen_Click(frmMain& form);
// To the page of the current module, with save and reread; from the backup page to the welcome page.
void lblHome_Click(frmMain& form, int Index);
void cmdNext_Click(frmMain& form, int Index);
void cmdBack_Click(frmMain& form, int Index);

// The entries of the options page: each only shows its page.
void lblFileFiltersOptionsBrasmir_Click(frmMain& form);
void lblDrivesOptionsBrasmir_Click(frmMain& form);
void lblCleaningOptionsBrasmir_Click(frmMain& form);
void lblExcludeOptionsBrasmir_Click(frmMain& form);
void lblIncludeOptionsBrasmir_Click(frmMain& form);

void lblOpenHelp_Click();

}  // namespace ui
