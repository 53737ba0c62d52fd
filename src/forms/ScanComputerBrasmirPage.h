// The page "Scan computer..." of the module Brasmir.
#pragma once

#include "forms/NavigationControls.h"

namespace forms {

struct ScanComputerBrasmirPage {
  CONTROL(Frame, fraScanComputerBrasmir);

  // "Scan computer" or "Stop scanning": the caption is the record of which of the two it is.
  CONTROL(Button, cmdScanComputerBrasmir);
  CONTROL(Button, cmdViewResultsScanComputerBrasmir);
  CONTROL(Button, cmdOptionsBrasmir);
  CONTROL(ProgressBar, prgScanComputerProgressBrasmir);
  CONTROL(Label, lblScanComputerProcentBrasmir);
  CONTROL(Label, lblProcessInfoScanComputerBrasmir);
  CONTROL(Label, lblUserInfoScanComputerBrasmir);
  // Garbage files, zero byte files, broken shortcuts.
  CONTROL_ARRAY(Picture, ImgProcessBrasmir, 0, 1, 2);
  // "Zero byte files:" (4), "Broken shortcuts:" (6), "Garbage files:" (7).
  CONTROL_ARRAY(Label, lblViewResultsScanComputer, 4, 6, 7);
  CONTROL(Label, lblGarbageFilesScanComputerBrasmir);
  CONTROL(Label, lblZeroByteFilesScanComputerBrasmir);
  CONTROL(Label, lblBrokenShortcutsScanComputerBrasmir);
  CONTROL(Label, lblTotalSizeScanComputerBrasmir);
  CONTROL(Label, lblViewSettingsScanComputerBrasmir);

  ScanComputerBrasmirPage();
  controls::Layout ScanComputerBrasmirLayout();
};

}  // namespace forms
