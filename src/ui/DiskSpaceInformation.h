// The window with the chart of one drive's space.
#pragma once

#include "core/OpenForms.h"
#include "forms/frmDiskSpaceInformation.h"

namespace ui {

// Fills cboDrives from the system; called once, on a fresh box.
void AssignDriveList(frmDiskSpaceInformation& form);
// Shows the space of the drive that was picked.
void cboDrives_Click(frmDiskSpaceInformation& form);

// The window's one instance, loaded on first use and gone when it closes.
core::FormSlot<frmDiskSpaceInformation>& DiskSpaceInformation();

// The link of the welcome page: shows the window, not modal.
void lblGraphDiskView_Click();

}  // namespace ui
