#include "forms/ScanComputerLumaroPage.h"

#include "forms/Page.h"

namespace forms {

using namespace controls;

ScanComputerLumaroPage::ScanComputerLumaroPage() {
  Value(lblTotalSizeScanComputerLumaro, "0");
  Status(lblProcessInfoScanComputerLumaro, "Status: Ready to start scan computer");
  Value(lblScanComputerProcentLumaro, "0 %");
  Hide(lblScanComputerProcentLumaro);
  Hide(prgScanComputerProgressLumaro);
  prgScanComputerProgressLumaro.AccessibleName = "Progress";
  Status(lblUserInfoScanComputerLumaro);
  Link(lblRebootScanComputerLumaro, "Reboot computer", 'e', "Reboot computer to clear Index Dat files");
  Hide(lblRebootScanComputerLumaro);
  Link(lblViewSettingsScanComputerLumaro, "View settings", 'V', "View settings configured");
  Link(lblMoreFoldersOptionsLumaro, "Add more folders", 'A');

  Design(cmdOptionsLumaro, "Options", 'O');
  cmdOptionsLumaro.Picture = "ui-options";
  Design(cmdScanComputerLumaro, "Scan computer", 'S');
  cmdScanComputerLumaro.Picture = "ui-scan";
  cmdScanComputerLumaro.Default = true;
  Design(cmdCleanUpScanComputerLumaro, "Clean up", 'n', "Clean up files found");
  cmdCleanUpScanComputerLumaro.Picture = "ui-clean";
  cmdCleanUpScanComputerLumaro.Primary = true;
  cmdCleanUpScanComputerLumaro.Enabled = false;
}

const char* TextOf(LumaroNews news) {
  switch (news) {
    case LumaroNews::None:
      break;
    case LumaroNews::FilesAreLocked:
      return "Files are locked and can't be deleted.";
    case LumaroNews::ClearedAtNextBoot:
      return "Locked files to be cleared on next Windows boot.";
    case LumaroNews::RecycleBinCleared:
      return "Recycle Bin is cleared...";
    case LumaroNews::Rebooting:
      return "Rebooting computer...";
    case LumaroNews::RebootFailed:
      return "Error rebooting computer...";
  }
  return "";
}

void ScanComputerLumaroPage::Tell(LumaroNews news) {
  News = news;
  lblUserInfoScanComputerLumaro.Caption = TextOf(news);
}

Layout ScanComputerLumaroPage::ScanComputerLumaroLayout(NavigationControls& shared, LumaroPlaces& places) {
  auto value = [](Label& label) { return Item(label).Min(120); };
  std::vector<Layout> rows;
  for (int row = 0; row < LumaroPlaces::kRows; ++row) {
    rows.push_back(Item(places.ImgProcessLumaro[row]).Reserve());
    rows.push_back(places.lblDirLumaro[row]);
    rows.push_back(value(places.*kPlaceRows[row].count));
  }
  rows.push_back(Space(16));
  rows.push_back(Text("Total size:"));
  rows.push_back(value(lblTotalSizeScanComputerLumaro));
  return Page(
      fraScanComputerLumaro, {"Scan computer...", HeadLine("Current setting and Options")},
      {
          Grid(3, std::move(rows)).Gap(4),
          Row({lblViewSettingsScanComputerLumaro, lblMoreFoldersOptionsLumaro}).Gap(24),
          Spring(),
          Row({Wide(lblUserInfoScanComputerLumaro), Item(shared.imgUser[RebootMark]).Reserve(),
               Item(lblRebootScanComputerLumaro).Reserve()})
              .Expand(),
          Progress(lblProcessInfoScanComputerLumaro, prgScanComputerProgressLumaro,
                   lblScanComputerProcentLumaro),
      },
      {cmdOptionsLumaro, Spring(), cmdScanComputerLumaro, Item(cmdCleanUpScanComputerLumaro).Min(112)});
}

}  // namespace forms
