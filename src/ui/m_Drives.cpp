#include "ui/m_Drives.h"

#include "core/ErrorReport.h"
#include "core/Numbers.h"
#include "platform/Desktop.h"
#include "platform/LibDisk.h"
#include "platform/LibSmall.h"

namespace m_Drives {

namespace {

using core::Args;
using core::Guarded;
using core::Object;

std::string Megabytes(double bytes) {
  return core::NumberText(platform::LibSize().BytesToMegabytes(bytes)) + " MB";
}

}  // namespace

std::vector<ListedDrive> ListedDrives() {
  std::vector<ListedDrive> drives;
  for (const auto& drive : platform::FileSystemObject().Drives()) {
    if (drive.DriveType == 1) drives.push_back({drive.DriveLetter + ":\\", "Removable drive"});
    if (drive.DriveType == 2) drives.push_back({drive.DriveLetter + ":\\", "Fixed Drive"});
  }
  return drives;
}

void AssignDriveList(frmMain& form) {
  Guarded({"m_Drives", "AssignDriveList"}, Args(Object{"frmMain"}), [&] {
    controls::ListView& list = form.lvwDrivesBrasmir;
    list.Clear();
    list.Whole = true;
    for (const ListedDrive& drive : ListedDrives())
      list.SetSubItem(list.AddRow(drive.root, forms::IconDrive), 1, drive.description);
  });
}

void cmdAddDrivesBrasmir_Click(frmMain& form) {
  Guarded({"frmMain", "cmdAddDrivesBrasmir_Click"}, Args(), [&] {
    AssignDriveList(form);
    platform::CurrentDesktop().Refresh(form.lvwDrivesBrasmir);
  });
}

void lvwDrivesBrasmir_Click(frmMain& form) {
  Guarded({"frmMain", "lvwDrivesBrasmir_Click"}, Args(), [&] {
    const controls::ListView& list = form.lvwDrivesBrasmir;
    if (list.Count() == 0 || list.SelectedIndex() == 0) return;
    std::string root(list.Text(list.SelectedIndex()));
    platform::LibDisk disk;
    form.lblTotalDiskSpaceDrivesBrasmir.Caption = "Total disk space: " + Megabytes(disk.TotalSpace(root));
    form.lblUsedDiskSpaceDrivesBrasmir.Caption = "Used disk space: " + Megabytes(disk.UsedSpace(root));
    form.lblFreeDiskSpaceDrivesBrasmir.Caption = "Free disk space: " + Megabytes(disk.FreeSpace(root));
    form.lblFileSystemDrivesBrasmir.Caption = "File system: " + disk.FileSystem(root);
    form.lblDriveTypeDrivesBrasmir.Caption = "Drive type: " + disk.DriveType(root);
    std::string name = disk.VolumeName(root);
    form.lblVolumeNameDrivesBrasmir.Caption = "Volume name: " + (name.empty() ? "Not set" : name);
  });
}

}  // namespace m_Drives
