// The page "Scan computer..." of the module Brasmir.
#pragma once

#include "forms/NavigationControls.h"

namespace forms {

// The marks of a scan's phases, by their indexes.
enum ScanMark { GarbageMark, ZeroByteMark, ShortcutMark };

// The labels that open the results: "Zero byte files:", "Broken shortcuts:" and "Garbage files:".
enum ViewResultsLabel { ViewZeroByteFiles = 4, ViewBrokenShortcuts = 6, ViewGarbageFiles = 7 };

// Its handlers: scan/ScanComputerBrasmirPage.h.
struct ScanComputerBrasmirPage {
  CONTROL(Frame, fraScanComputerBrasmir);

  // Says "Scan computer", and "Stop scanning" during a scan.
  CONTROL(Button, cmdScanComputerBrasmir);
  CONTROL(Button, cmdViewResultsScanComputerBrasmir);
  CONTROL(Button, cmdOptionsBrasmir);
  CONTROL(ProgressBar, prgScanComputerProgressBrasmir);
  CONTROL(Label, lblScanComputerProcentBrasmir);
  CONTROL(Label, lblProcessInfoScanComputerBrasmir);
  CONTROL(Label, lblUserInfoScanComputerBrasmir);
  CONTROL_ARRAY(Picture, ImgProcessBrasmir, GarbageMark, ZeroByteMark, ShortcutMark);
  CONTROL_ARRAY(Label, lblViewResultsScanComputer, ViewZeroByteFiles, ViewBrokenShortcuts, ViewGarbageFiles);
  CONTROL(Label, lblGarbageFilesScanComputerBrasmir);
  CONTROL(Label, lblZeroByteFilesScanComputerBrasmir);
  CONTROL(Label, lblBrokenShortcutsScanComputerBrasmir);
  CONTROL(Label, lblTotalSizeScanComputerBrasmir);
  CONTROL(Label, lblViewSettingsScanComputerBrasmir);

  ScanComputerBrasmirPage();
  controls::Layout ScanComputerBrasmirLayout();
};

}  // namespace forms
