// The plug-ins' page.
#pragma once

#include "forms/frmMain.h"

// Gives the page's controls their handlers.
void WirePlugIns(frmMain& form);

void cmdRunPlugIns_Click(frmMain& form);
void cmdRemovePlugIn_Click(frmMain& form);
void cmdSelectAllPlugIns_Click(frmMain& form);
void cmdUnSelectAllPlugIns_Click(frmMain& form);
void lblOpenPlugInMaker_Click();
