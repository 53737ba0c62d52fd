// The window with the chart of one drive's space.
#pragma once

#include "controls/Form.h"

struct frmDiskSpaceInformation : controls::Form {
  CONTROL(ComboBox, cboDrives);
  CONTROL(Label, lblTotalDiskSpace);
  CONTROL(Label, lblUsedDiskSpace);
  CONTROL(Label, lblFreeDiskSpace);
  CONTROL(Label, lblStatus);
  CONTROL(Chart, schDiskSpaceInformation);
  CONTROL(Button, cmdClose);

  frmDiskSpaceInformation();
};
