#include "forms/frmDiskSpaceInformation.h"

#include "forms/Page.h"

using namespace controls;

frmDiskSpaceInformation::frmDiskSpaceInformation() : Form("frmDiskSpaceInformation") {
  Caption = "Disk Space Information.";
  DefaultWidth = 600;
  DefaultHeight = 480;
  MinWidth = 480;
  MinHeight = 380;

  cboDrives.ToolTip = "Select drive to view";
  forms::Design(lblTotalDiskSpace, "Total Disk Space: ");
  forms::Design(lblUsedDiskSpace, "Used Disk Space: ");
  forms::Design(lblFreeDiskSpace, "Free Disk Space: ");
  forms::Status(lblStatus);
  schDiskSpaceInformation.AccessibleName = "Disk Information";
  schDiskSpaceInformation.RowLabel = "Disk Information";
  schDiskSpaceInformation.AxisTitle = "MB";
  schDiskSpaceInformation.Columns =
      std::vector<Chart::Column>{{"Total Disk Space", ""}, {"Used Disk Space", ""}, {"Free Disk Space", ""}};
  forms::Design(cmdClose, "Close", 'C', "Close window");
  cmdClose.Cancel = true;

  SetLayout(forms::Window(
      Text("Disk Space Capacity", LabelStyle::TopStrip),
      {forms::HeadLine("View graph on your disk space capacity"),
       Row({Text("Select drive to view disk space capacity:"), Item(cboDrives).Min(96)}),
       Item(schDiskSpaceInformation).Stretch().Min(0, 120), Item(lblStatus).Expand(),
       Item(lblTotalDiskSpace).Expand(), Item(lblUsedDiskSpace).Expand(), Item(lblFreeDiskSpace).Expand()},
      {Spring(), cmdClose}));
}
