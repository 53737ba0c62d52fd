// The page "Drives..." of the module Brasmir.
#pragma once

#include "forms/NavigationControls.h"

namespace forms {

// Its handlers: ui/m_Drives.h.
struct DrivesBrasmirPage {
  CONTROL(Frame, fraDrivesBrasmir);

  CONTROL(ListView, lvwDrivesBrasmir);
  CONTROL(Button, cmdAddDrivesBrasmir);
  CONTROL(Label, lblTotalDiskSpaceDrivesBrasmir);
  CONTROL(Label, lblUsedDiskSpaceDrivesBrasmir);
  CONTROL(Label, lblFreeDiskSpaceDrivesBrasmir);
  CONTROL(Label, lblFileSystemDrivesBrasmir);
  CONTROL(Label, lblDriveTypeDrivesBrasmir);
  CONTROL(Label, lblVolumeNameDrivesBrasmir);

  DrivesBrasmirPage();
  controls::Layout DrivesBrasmirLayout(NavigationControls& shared);
};

}  // namespace forms
