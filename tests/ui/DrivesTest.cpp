// The Drives page and the window with one drive's space.
#include "UiFixture.h"
#include "core/Numbers.h"
#include "platform/LibDisk.h"
#include "platform/LibSmall.h"
#include "ui/DiskSpaceInformation.h"

namespace {

using platform::DriveKind;

class DrivesTest : public UiFixture {
 protected:
  DrivesTest()
      : UiFixture({.drives = {{'E', DriveKind::Removable},
                              {'C', DriveKind::Fixed},
                              {'D', DriveKind::Fixed},
                              {'N', DriveKind::Network},
                              {'R', DriveKind::RamDisk},
                              {'Z', DriveKind::CdRom},
                              {'U', DriveKind::Unknown}}}) {}
  std::string Megabytes(double bytes) {
    return core::NumberText(platform::LibSize().BytesToMegabytes(bytes)) + " MB";
  }
};

TEST_F(DrivesTest, OnlyFixedAndRemovableDrivesAreListedAndAllTicksGo) {
  controls::ListView& list = form.lvwDrivesBrasmir;
  ASSERT_EQ(list.Count(), 1);
  EXPECT_TRUE(list.Checked(1));
  form.cmdAddDrivesBrasmir.Click();
  ASSERT_EQ(list.Count(), 3);
  const char* expected[] = {"C:\\ Fixed Drive", "D:\\ Fixed Drive", "E:\\ Removable drive"};
  for (int row = 1; row <= 3; ++row)
    EXPECT_EQ(std::string(list.Text(row)) + " " + std::string(list.SubItem(row, 1)), expected[row - 1]);
  EXPECT_EQ(list.CheckedCount(), 0);
}

TEST_F(DrivesTest, AClickTellsTheSelectedDrivesDetails) {
  controls::ListView& list = form.lvwDrivesBrasmir;
  list.Click();
  EXPECT_EQ(form.lblTotalDiskSpaceDrivesBrasmir.Caption.Get(), "Total disk space:") << "no row is selected";
  list.Select(1);
  list.Click();
  platform::LibDisk disk;
  double total = disk.TotalSpace("C:\\");
  EXPECT_GT(total, 0);
  EXPECT_EQ(form.lblTotalDiskSpaceDrivesBrasmir.Caption.Get(), "Total disk space: " + Megabytes(total));
  EXPECT_EQ(form.lblUsedDiskSpaceDrivesBrasmir.Caption.Get().rfind("Used disk space: ", 0), 0u);
  EXPECT_EQ(form.lblFreeDiskSpaceDrivesBrasmir.Caption.Get().rfind("Free disk space: ", 0), 0u);
  EXPECT_EQ(form.lblFileSystemDrivesBrasmir.Caption.Get(), "File system: " + disk.FileSystem("C:\\"));
  EXPECT_EQ(form.lblDriveTypeDrivesBrasmir.Caption.Get(), "Drive type: " + disk.DriveType("C:\\"));
  std::string name = disk.VolumeName("C:\\");
  EXPECT_EQ(form.lblVolumeNameDrivesBrasmir.Caption.Get(),
            "Volume name: " + (name.empty() ? "Not set" : name));

  // A drive that has gone since.
  int gone = list.AddRow("Q:\\", forms::IconDrive);
  list.Select(gone);
  list.Click();
  EXPECT_EQ(form.lblTotalDiskSpaceDrivesBrasmir.Caption.Get(), "Total disk space: 0 MB");
  EXPECT_EQ(form.lblVolumeNameDrivesBrasmir.Caption.Get(), "Volume name: Not set");
  EXPECT_TRUE(computer.desktop.boxes.empty());
}

TEST_F(DrivesTest, TheChartShowsThePickedDriveAndTheWindowIsMadeAnewEachTime) {
  form.lblGraphDiskView.Click();
  form.lblGraphDiskView.Click();
  ASSERT_EQ(core::OpenForms().size(), 1u) << "one instance";
  frmDiskSpaceInformation& window = *ui::DiskSpaceInformation().Loaded();
  EXPECT_TRUE(window.Visible);
  EXPECT_EQ(window.cboDrives.Items(), (test::Strings{"C:\\", "D:\\", "E:\\"}));

  window.UserPick(window.cboDrives, 0);
  const auto& columns = window.schDiskSpaceInformation.Columns.Get();
  platform::LibDisk disk;
  EXPECT_EQ(columns.at(0).Data + " MB", Megabytes(disk.TotalSpace("C:\\")));
  EXPECT_EQ(window.lblTotalDiskSpace.Caption.Get(), "Total Disk Space: " + columns[0].Data + " MB");
  EXPECT_EQ(window.lblUsedDiskSpace.Caption.Get(), "Used Disk Space: " + columns[1].Data + " MB");
  EXPECT_EQ(window.lblFreeDiskSpace.Caption.Get(), "Free Disk Space: " + columns[2].Data + " MB");
  EXPECT_EQ(window.lblStatus.Caption.Get(), "Disk Space Capacity On Drive: C:\\");
  window.cmdClose.Click();
  EXPECT_TRUE(core::OpenForms().empty());
  form.lblGraphDiskView.Click();
  EXPECT_EQ(ui::DiskSpaceInformation().Get().lblStatus.Caption.Get(), "");
}

}  // namespace
