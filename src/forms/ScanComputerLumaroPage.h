// The page "Scan computer..." of the module Lumaro.
#pragma once

#include <array>

#include "forms/LumaroPlaces.h"
#include "forms/NavigationControls.h"

namespace forms {

// What the line lblUserInfoScanComputerLumaro tells of the latest runs.
enum class LumaroNews { None, FilesAreLocked, ClearedAtNextBoot, RecycleBinCleared, Rebooting, RebootFailed };
const char* TextOf(LumaroNews news);

// Its handlers: lumaro/ScanComputerLmro.h scans, lumaro/RunControl.h cleans, lumaro/OptionPages.h leads on.
struct ScanComputerLumaroPage {
  CONTROL(Frame, fraScanComputerLumaro);

  CONTROL(Label, lblTotalSizeScanComputerLumaro);

  CONTROL(ProgressBar, prgScanComputerProgressLumaro);
  CONTROL(Label, lblScanComputerProcentLumaro);
  CONTROL(Label, lblProcessInfoScanComputerLumaro);
  CONTROL(Label, lblUserInfoScanComputerLumaro);
  // Shown with its mark once files wait for the next start of Windows.
  CONTROL(Label, lblRebootScanComputerLumaro);
  CONTROL(Label, lblViewSettingsScanComputerLumaro);
  CONTROL(Label, lblMoreFoldersOptionsLumaro);
  CONTROL(Button, cmdScanComputerLumaro);
  // Says "Clean up", and "Stop" while Lumaro cleans.
  CONTROL(Button, cmdCleanUpScanComputerLumaro);
  CONTROL(Button, cmdOptionsLumaro);

  ScanComputerLumaroPage();

  // The numbers that stand on the page: the files of each row, and the size of all together in bytes and
  // in the kilobytes that are shown.
  std::array<int, LumaroPlaces::kRows> FoundFiles{};
  double FoundBytes = 0, FoundKilobytes = 0;

  LumaroNews News = LumaroNews::None;
  // Makes it the news, and says so in the line.
  void Tell(LumaroNews news);

  controls::Layout ScanComputerLumaroLayout(NavigationControls& shared, LumaroPlaces& places);
};

}  // namespace forms
