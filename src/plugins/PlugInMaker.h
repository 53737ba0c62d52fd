// The wizard that builds a plug-in file.
#pragma once

#include "forms/frmPlugInMaker.h"

// Shows the wizard, not modal, loaded anew where it wasn't open.
void ShowPlugInMaker();
// The open wizard; null while it isn't.
frmPlugInMaker* LoadedPlugInMaker();

// Gives the wizard's controls their handlers.
void Wire(frmPlugInMaker& form);
// Fills both root boxes.
void SetControlValues(frmPlugInMaker& form);
// Fills the category box with the folders below the plug-ins' folder.
void SetPlugInCategories(frmPlugInMaker& form);
