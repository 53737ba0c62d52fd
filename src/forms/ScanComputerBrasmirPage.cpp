#include "forms/ScanComputerBrasmirPage.h"

#include "forms/Page.h"

namespace forms {

using namespace controls;

ScanComputerBrasmirPage::ScanComputerBrasmirPage() {
  Design(cmdScanComputerBrasmir, "Scan computer", 'S');
  cmdScanComputerBrasmir.Picture = "ui-scan";
  cmdScanComputerBrasmir.Primary = true;
  cmdScanComputerBrasmir.Default = true;
  Design(cmdViewResultsScanComputerBrasmir, "View results", 'V');
  cmdViewResultsScanComputerBrasmir.Enabled = false;
  Design(cmdOptionsBrasmir, "Options", 'O');
  cmdOptionsBrasmir.Picture = "ui-options";

  Link(lblViewResultsScanComputer[ViewGarbageFiles], "Garbage files:", 'G');
  Link(lblViewResultsScanComputer[ViewZeroByteFiles], "Zero byte files:", 'Z');
  Link(lblViewResultsScanComputer[ViewBrokenShortcuts], "Broken shortcuts:", 'r');
  for (Label* label : {&lblGarbageFilesScanComputerBrasmir, &lblZeroByteFilesScanComputerBrasmir,
                       &lblBrokenShortcutsScanComputerBrasmir, &lblTotalSizeScanComputerBrasmir})
    Value(*label, "0");
  for (int index : ImgProcessBrasmir.Indices()) {
    ImgProcessBrasmir[index].Image = "mark-scan";
    Hide(ImgProcessBrasmir[index]);
  }
  Link(lblViewSettingsScanComputerBrasmir, "View settings", 't');

  Status(lblUserInfoScanComputerBrasmir);
  Status(lblProcessInfoScanComputerBrasmir, "Status: Ready to start scan computer");
  Value(lblScanComputerProcentBrasmir, "0 %");
  Hide(lblScanComputerProcentBrasmir);
  Hide(prgScanComputerProgressBrasmir);
  prgScanComputerProgressBrasmir.AccessibleName = "Scan progress";
}

Layout ScanComputerBrasmirPage::ScanComputerBrasmirLayout() {
  auto mark = [this](int index) { return Item(ImgProcessBrasmir[index]).Reserve(); };
  auto value = [](Label& label) { return Item(label).Min(160); };
  Layout found =
      Grid(3, {mark(GarbageMark), lblViewResultsScanComputer[ViewGarbageFiles],
               value(lblGarbageFilesScanComputerBrasmir), mark(ZeroByteMark),
               lblViewResultsScanComputer[ViewZeroByteFiles], value(lblZeroByteFilesScanComputerBrasmir),
               mark(ShortcutMark), lblViewResultsScanComputer[ViewBrokenShortcuts],
               value(lblBrokenShortcutsScanComputerBrasmir), Space(16), Text("Total size:"),
               value(lblTotalSizeScanComputerBrasmir)});
  return Page(fraScanComputerBrasmir, {"Scan computer...", HeadLine("Current settings...")},
              {
                  std::move(found),
                  lblViewSettingsScanComputerBrasmir,
                  Spring(),
                  Item(lblUserInfoScanComputerBrasmir).Expand(),
                  Progress(lblProcessInfoScanComputerBrasmir, prgScanComputerProgressBrasmir,
                           lblScanComputerProcentBrasmir),
              },
              {cmdOptionsBrasmir, Spring(), cmdViewResultsScanComputerBrasmir,
               Item(cmdScanComputerBrasmir).Min(144)});
}

}  // namespace forms
