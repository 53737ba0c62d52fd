// The life of the main window: how it loads, becomes active, closes and goes to the tray.
#pragma once

#include "forms/frmMain.h"
#include "platform/RegistryStore.h"

namespace app {

// Fills every screen from the store. With LoadOnWindowsStartupLmro on, the window goes to the tray, and with
// CleanOnWindowsStartupLmro as well the unattended clean runs here, in full.
void Form_Load(frmMain& form);
// At each activation.
void Form_Activate(frmMain& form);
// Every close request, refused or not, first saves everything. A non-zero Cancel refuses it: while the
// program starts or a run goes on, while another window of the program is open, and where closing leads to
// the tray. The end of the session (UnloadMode 2) is never refused.
void Form_QueryUnload(frmMain& form, int& Cancel, int UnloadMode);
// Releases the session. Nothing may touch its objects later, so the other windows close first.
void Form_Unload(frmMain& form);
// The double click on the tray icon: opens Lumaro and starts its scan.
void Form_TrayDoubleClick(frmMain& form);

// True if a form is loaded beside the main window; if it is hidden, it is made visible.
bool IsOpenForms();
// Adds the tray icon and hides the window; where no tray can be had the window is minimised.
void PutLumaroInSystemTray(frmMain& form);
void cmdCloseApplication_Click(frmMain& form);

// The box for settings that can be read but not written: at the start, and when the program closes.
void TellUnwritableStore(const platform::StoreState& state);

// The session ends, or the process is told to: closes the main window, once no run is on the stack any more.
void EndSession();

void WireMainWindow(frmMain& form);

}  // namespace app
