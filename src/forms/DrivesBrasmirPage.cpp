#include "forms/DrivesBrasmirPage.h"

#include "forms/ImageLists.h"
#include "forms/Page.h"

namespace forms {

using namespace controls;

DrivesBrasmirPage::DrivesBrasmirPage() {
  lvwDrivesBrasmir.Columns = {{"Drive", 160}, {"Drive type", 240, true}};
  lvwDrivesBrasmir.CheckBoxes = true;
  lvwDrivesBrasmir.SmallIcons = ControlIcons();
  lvwDrivesBrasmir.EmptyText = "No drives yet";
  lvwDrivesBrasmir.AccessibleName = "Drives";
  Design(cmdAddDrivesBrasmir, "Load drives", 'd', "All available drives will be added to list");

  lblTotalDiskSpaceDrivesBrasmir.Caption = "Total disk space:";
  lblUsedDiskSpaceDrivesBrasmir.Caption = "Used disk space:";
  lblFreeDiskSpaceDrivesBrasmir.Caption = "Free disk space:";
  lblFileSystemDrivesBrasmir.Caption = "File system:";
  lblDriveTypeDrivesBrasmir.Caption = "Drive type:";
  lblVolumeNameDrivesBrasmir.Caption = "Volume name:";
}

Layout DrivesBrasmirPage::DrivesBrasmirLayout(NavigationControls& shared) {
  auto detail = [](Label& label) { return Item(label).Expand(); };
  return Page(fraDrivesBrasmir,
              {"Drives...", HeadLine("Available drives to use when scanning computer"),
               &shared.lblHome[home::Drives]},
              {
                  Item(lvwDrivesBrasmir).Stretch().Min(0, 120),
                  Actions({}, {cmdAddDrivesBrasmir}),
                  Grid(2, {detail(lblTotalDiskSpaceDrivesBrasmir), detail(lblFileSystemDrivesBrasmir),
                           detail(lblUsedDiskSpaceDrivesBrasmir), detail(lblDriveTypeDrivesBrasmir),
                           detail(lblFreeDiskSpaceDrivesBrasmir), detail(lblVolumeNameDrivesBrasmir)})
                      .Growing({0, 1})
                      .Expand(),
              },
              {shared.cmdBack[back::Drives], shared.cmdNext[next::Drives], Spring()});
}

}  // namespace forms
