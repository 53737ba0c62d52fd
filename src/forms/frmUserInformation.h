// The information box with "Do not show this message again."
#pragma once

#include "controls/Form.h"

struct frmUserInformation : controls::Form {
  CONTROL(Label, lblTopInfo);
  CONTROL(Label, lblInfo);
  CONTROL(Frame, fraSep);
  CONTROL(CheckBox, chkDoNotShowThisMessage);
  CONTROL(Button, cmdClose);

  // Where a caller with a long text places things, in twips; 0 is the design's place. On the screen they
  // follow from the form's Position.Height, which goes with them.
  int fraSepTop = 0;
  int chkDoNotShowThisMessageTop = 0;
  int cmdCloseTop = 0;
  int lblInfoHeight = 0;

  frmUserInformation();
};
