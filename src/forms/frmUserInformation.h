// The information box with "Do not show this message again."
#pragma once

#include "controls/Form.h"

struct frmUserInformation : controls::Form {
  CONTROL(Label, lblTopInfo);
  CONTROL(Label, lblInfo);
  CONTROL(Frame, fraSep);
  CONTROL(CheckBox, chkDoNotShowThisMessage);
  CONTROL(Button, cmdClose);

  frmUserInformation();
};
