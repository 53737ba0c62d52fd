// The small window that slides in at the bottom right while the unattended clean runs. It places itself:
// Position holds its place from the start, and its handlers move Position.Top.
#pragma once

#include "controls/Form.h"

struct frmCleanOnStartup : controls::Form {
  CONTROL(Frame, fraRunningLumaro);
  CONTROL(Animation, anm);
  CONTROL(Label, lblStatus);
  CONTROL(Label, lblStop);
  controls::Timer tmrShowSettings;

  frmCleanOnStartup();
};
