// The click handlers that a fill raises, and those beside them.
#include "SettingsFixture.h"
#include "core/UserInformation.h"

namespace {

using R = c_Registry;
using namespace core::keys;

class OptionHandlersTest : public SettingsFixture {
 protected:
  OptionHandlersTest() { Fill(); }

  frmUserInformation* Box() { return core::LoadedUserInformation(); }
  void SetFlag(const char* data) {
    computer.SetValue(kUserInformation, "Broken shortcuts Scan entire drive", data);
  }
};

TEST_F(OptionHandlersTest, MethodsExcludeEachOtherAndMayAllBeOff) {
  const std::vector<controls::CheckBox*> sets[] = {
      {&form.chkDeleteFilesCleaningBrasmir, &form.chkRecycleBinCleaningBrasmir,
       &form.chkEraseFilesCleaningBrasmir},
      {&form.chkDeleteFilesAdvancedLumaro, &form.chkRecycleBinAdvancedLumaro,
       &form.chkEraseFilesAdvancedLumaro}};
  for (const auto& boxes : sets) {
    for (controls::CheckBox* first : boxes)
      for (controls::CheckBox* ticked : boxes) {
        first->Value = 1;
        ticked->Value = 1;
        for (controls::CheckBox* box : boxes) EXPECT_EQ(box->Value, box == ticked ? 1 : 0) << ticked->Name();
        ticked->Value = 0;
        for (controls::CheckBox* box : boxes) EXPECT_EQ(box->Value, 0) << ticked->Name();
      }
  }
}

TEST_F(OptionHandlersTest, TheRecycleBinWarningComesWhereBothAreTickedAndDoesNotStopTheClick) {
  const std::string warning =
      "information|Recycle bin...|You have selected to move files to recycle bin\r\n"
      "Empty the recycle bin will delete all files";
  // The first-time settings move to the bin.
  form.chkEmptyRecycleBinOptionsLumaro.Value = 1;
  EXPECT_EQ(computer.desktop.boxes, std::vector{warning});
  form.chkEmptyRecycleBinOptionsLumaro.Value = 0;
  form.chkDeleteFilesAdvancedLumaro.Value = 1;
  form.chkEmptyRecycleBinOptionsLumaro.Value = 1;
  EXPECT_EQ(computer.desktop.boxes.size(), 1u);
  form.chkRecycleBinAdvancedLumaro.Value = 1;
  EXPECT_EQ(computer.desktop.boxes, (std::vector{warning, warning}));
  EXPECT_EQ(form.chkDeleteFilesAdvancedLumaro.Value, 0);
  // During a fill too.
  computer.desktop.Clear();
  frmMain fresh;
  settings::WireSettings(fresh);
  Store(&R::EmptyRecycleBinLmro, "1");
  ASSERT_TRUE(m_Registry::ReadRegistrySettings());
  m_Registry::AssignOptionSettings(fresh);
  EXPECT_EQ(computer.desktop.boxes, std::vector{warning});
}

TEST_F(OptionHandlersTest, BoxesThatGoWithATickFollowIt) {
  form.chkEraseIndexDatOnRebootOptionsLumaro.Value = 1;
  controls::Control& index = form.chkEraseIndexDatOnRebootOptionsLumaro;
  controls::Control& zero = form.lblExcludeZeroByteFilesFileFiltersBrasmir;
  EXPECT_FALSE(index.Enabled || zero.Enabled || gAppRunning->NewSession);
  for (int value : {1, 0}) {
    gAppRunning->NewSession = false;
    form.chkClearIndexDatOptionsLumaro.Value = value;
    form.chkExcludeZeroByteFilesFilterFileFiltersBrasmir.Value = value;
    form.chkUseBackupCleaningBrasmir.Value = value;
    EXPECT_EQ(index.Enabled.Get() + zero.Enabled.Get() + gAppRunning->NewSession, 3 * value);
  }
  EXPECT_EQ(form.chkEraseIndexDatOnRebootOptionsLumaro.Value, 1);
}

TEST_F(OptionHandlersTest, WideningTheShortcutSearchWarnsOnlyWhereItShould) {
  auto& users = form.chkScanAllUsersProfileIncludeBrasmir;
  auto& drive = form.chkScanEntireDriveBrokenShortcutsIncludeBrasmir;
  form.chkSkipShortcutsPointingToRemovableDrives.Value = 0;

  computer.SetValue(kBrasmir, "Loading", "1");
  users.Value = 1;
  EXPECT_EQ(Box(), nullptr);
  computer.SetValue(kBrasmir, "Loading", "0");
  SetFlag("1");
  drive.Value = 1;
  EXPECT_EQ(users.Value, 0);
  EXPECT_EQ(Box(), nullptr);
  SetFlag("0");
  form.chkSkipShortcutsPointingToRemovableDrives.Value = 1;
  users.Value = 1;
  EXPECT_EQ(drive.Value, 0);
  EXPECT_EQ(Box(), nullptr);
  form.chkSkipShortcutsPointingToRemovableDrives.Value = 0;
  users.Value = 0;
  EXPECT_EQ(Box(), nullptr);
  drive.Value = 1;
  ASSERT_NE(Box(), nullptr);
  EXPECT_EQ(Box()->lblInfo.Caption.Get(),
            "When scanning for broken shortcuts, \r\n"
            "shortcuts pointing to removable drives (Floppy disks/CD) can be reported as broken if the "
            "correct media isn't inserted. \r\n"
            "Please look at the paths before you delete them,or, insert the correct media.\r\n\r\n"
            "To prevent this select: Skip shortcuts pointing to removable drives");
  // "Do not show" counts from the close on.
  Box()->chkDoNotShowThisMessage.Value = 1;
  Box()->cmdClose.Click();
  users.Value = 1;
  EXPECT_EQ(Box(), nullptr);
  // The link shows it all the same, and can take the mark off again.
  form.lblUserInformationBrokenShortcuts.Click();
  ASSERT_NE(Box(), nullptr);
  EXPECT_EQ(Box()->chkDoNotShowThisMessage.Value, 1);
  Box()->chkDoNotShowThisMessage.Value = 0;
  core::CloseForm(*Box());
  drive.Value = 1;
  EXPECT_NE(Box(), nullptr);
  EXPECT_TRUE(computer.desktop.boxes.empty());
}

}  // namespace
