// The page "Scanning results..." of the module Brasmir.
#pragma once

#include "forms/NavigationControls.h"

namespace forms {

struct ScanningResultsBrasmirPage {
  CONTROL(Frame, fraScanningResultsBrasmir);

  CONTROL(ComboBox, cboSelectResultsBrasmir);
  CONTROL(ListView, lvwFilesResultsBrasmir);
  CONTROL(Button, cmdSelectAllResultsBrasmir);
  CONTROL(Button, cmdUnselectAllResultsBrasmir);
  CONTROL(TextBox, txtSortResultsBrasmir);
  CONTROL(Label, lblSortListResultsBrasmir);
  // "Delete files" or "Stop": the caption is the record of which of the two it is.
  CONTROL(Button, cmdDeleteResultsBrasmir);
  CONTROL(ProgressBar, prgProgressResultsBrasmir);
  // Progress and totals (0), what happened to locked files (1).
  CONTROL_ARRAY(Label, lblUserInfoResultsBrasmir, 0, 1);
  CONTROL(Label, lblStatusBackupResultsBrasmir);
  CONTROL(Label, lblCleaningMethodResultsBrasmir);
  CONTROL(Label, lblBackupSelectedResultsBrasmir);

  ScanningResultsBrasmirPage();
  controls::Layout ScanningResultsBrasmirLayout(NavigationControls& shared);
};

}  // namespace forms
