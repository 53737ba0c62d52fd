#include "ui/DiskSpaceInformation.h"

#include "core/ErrorReport.h"
#include "core/Numbers.h"
#include "core/m_SharedProcedures.h"
#include "platform/LibDisk.h"
#include "platform/LibSmall.h"
#include "ui/m_Drives.h"

namespace ui {

namespace {

using core::Args;
using core::Guarded;

core::Procedure Here(const char* procedure) {
  return {"frmDiskSpaceInformation", procedure};
}

void Form_Load(frmDiskSpaceInformation& form) {
  Guarded(Here("Form_Load"), Args(), [&] {
    form.skn.Picture = gRegistry->InstallDirectory + "Skin\\Zinc-blue2.bmp";
    form.skn.Enabled = true;
    AssignDriveList(form);
  });
}

void cmdClose_Click(frmDiskSpaceInformation& form) {
  Guarded(Here("cmdClose_Click"), Args(), [&] { core::CloseForm(form); });
}

void Wire(frmDiskSpaceInformation& form) {
  form.Load = [&form] { Form_Load(form); };
  form.cboDrives.Click = [&form] { cboDrives_Click(form); };
  form.cmdClose.Click = [&form] { cmdClose_Click(form); };
}

}  // namespace

void AssignDriveList(frmDiskSpaceInformation& form) {
  Guarded(Here("AssignDriveList"), Args(), [&] {
    for (const m_Drives::ListedDrive& drive : m_Drives::ListedDrives()) form.cboDrives.AddItem(drive.root);
  });
}

void cboDrives_Click(frmDiskSpaceInformation& form) {
  Guarded(Here("cboDrives_Click"), Args(), [&] {
    const std::string root = form.cboDrives.Text();
    platform::LibDisk disk;
    auto megabytes = [](double bytes) {
      return core::NumberText(platform::LibSize().BytesToMegabytes(bytes));
    };
    std::string total = megabytes(disk.TotalSpace(root));
    std::string used = megabytes(disk.UsedSpace(root));
    std::string free = megabytes(disk.FreeSpace(root));
    form.lblTotalDiskSpace.Caption = "Total Disk Space: " + total + " MB";
    form.lblUsedDiskSpace.Caption = "Used Disk Space: " + used + " MB";
    form.lblFreeDiskSpace.Caption = "Free Disk Space: " + free + " MB";
    form.schDiskSpaceInformation.SetData(1, total);
    form.schDiskSpaceInformation.SetData(2, used);
    form.schDiskSpaceInformation.SetData(3, free);
    form.lblStatus.Caption = "Disk Space Capacity On Drive: " + root;
  });
}

core::FormSlot<frmDiskSpaceInformation>& DiskSpaceInformation() {
  static core::FormSlot<frmDiskSpaceInformation> slot(Wire);
  return slot;
}

void lblGraphDiskView_Click() {
  Guarded({"frmMain", "lblGraphDiskView_Click"}, Args(),
          [] { core::ShowForm(DiskSpaceInformation().Get()); });
}

}  // namespace ui
