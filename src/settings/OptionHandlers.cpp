#include "settings/OptionHandlers.h"

#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "core/Keys.h"
#include "core/Numbers.h"
#include "core/Text.h"
#include "core/UserInformation.h"
#include "core/m_SharedProcedures.h"
#include "platform/LibRegistry.h"

namespace settings {

namespace {

using controls::CheckBox;
using core::Args;
using core::BoxIcon;
using core::Guarded;

core::Procedure Here(const char* procedure) {
  return {"frmMain", procedure};
}

// If `clicked` is now ticked, the other two methods are not.
void ExcludeMethods(const CheckBox& clicked, CheckBox& first, CheckBox& second) {
  if (clicked.Value != 1) return;
  first.Value = 0;
  second.Value = 0;
}

void WarnOfRecycleBin(const frmMain& form) {
  if (form.chkEmptyRecycleBinOptionsLumaro.Value == 1 && form.chkRecycleBinAdvancedLumaro.Value == 1)
    core::Tell(
        BoxIcon::Information, "Recycle bin...",
        {"You have selected to move files to recycle bin", "Empty the recycle bin will delete all files"});
}

frmUserInformation& ShowShortcutWarning() {
  frmUserInformation& box = core::ShowUserInformation(core::kBrokenShortcutsKey);
  box.lblInfo.Caption = core::Lines(
      {"When scanning for broken shortcuts, ",
       // NOLINTNEXTLINE(bugprone-suspicious-missing-comma): a text too long for one line
       "shortcuts pointing to removable drives (Floppy disks/CD) can be reported as broken if the correct "
       "media isn't inserted. ",
       "Please look at the paths before you delete them,or, insert the correct media.", "",
       "To prevent this select: Skip shortcuts pointing to removable drives"});
  return box;
}

void WidenShortcutSearch(const frmMain& form, const CheckBox& clicked, CheckBox& other) {
  if (clicked.Value != 1) return;
  other.Value = 0;
  std::string loading =
      platform::LibRegistry().ReadValue(gRegistry->HKEY_CURRENT_USER, core::keys::kBrasmir, "Loading");
  if (core::ToNumber(loading) != 0 || core::UserInformationFlag(core::kBrokenShortcutsKey) != 0) return;
  if (form.chkSkipShortcutsPointingToRemovableDrives.Value == 0) ShowShortcutWarning();
}

}  // namespace

void chkDeleteFilesCleaningBrasmir_Click(frmMain& form) {
  Guarded(Here("chkDeleteFilesCleaningBrasmir_Click"), Args(), [&] {
    ExcludeMethods(form.chkDeleteFilesCleaningBrasmir, form.chkRecycleBinCleaningBrasmir,
                   form.chkEraseFilesCleaningBrasmir);
  });
}

void chkRecycleBinCleaningBrasmir_Click(frmMain& form) {
  Guarded(Here("chkRecycleBinCleaningBrasmir_Click"), Args(), [&] {
    ExcludeMethods(form.chkRecycleBinCleaningBrasmir, form.chkEraseFilesCleaningBrasmir,
                   form.chkDeleteFilesCleaningBrasmir);
  });
}

void chkEraseFilesCleaningBrasmir_Click(frmMain& form) {
  Guarded(Here("chkEraseFilesCleaningBrasmir_Click"), Args(), [&] {
    ExcludeMethods(form.chkEraseFilesCleaningBrasmir, form.chkRecycleBinCleaningBrasmir,
                   form.chkDeleteFilesCleaningBrasmir);
  });
}

void chkDeleteFilesAdvancedLumaro_Click(frmMain& form) {
  Guarded(Here("chkDeleteFilesAdvancedLumaro_Click"), Args(), [&] {
    ExcludeMethods(form.chkDeleteFilesAdvancedLumaro, form.chkRecycleBinAdvancedLumaro,
                   form.chkEraseFilesAdvancedLumaro);
  });
}

void chkRecycleBinAdvancedLumaro_Click(frmMain& form) {
  Guarded(Here("chkRecycleBinAdvancedLumaro_Click"), Args(), [&] {
    WarnOfRecycleBin(form);
    ExcludeMethods(form.chkRecycleBinAdvancedLumaro, form.chkEraseFilesAdvancedLumaro,
                   form.chkDeleteFilesAdvancedLumaro);
  });
}

void chkEraseFilesAdvancedLumaro_Click(frmMain& form) {
  Guarded(Here("chkEraseFilesAdvancedLumaro_Click"), Args(), [&] {
    ExcludeMethods(form.chkEraseFilesAdvancedLumaro, form.chkRecycleBinAdvancedLumaro,
                   form.chkDeleteFilesAdvancedLumaro);
  });
}

void chkEmptyRecycleBinOptionsLumaro_Click(frmMain& form) {
  Guarded(Here("chkEmptyRecycleBinOptionsLumaro_Click"), Args(), [&] { WarnOfRecycleBin(form); });
}

void chkClearIndexDatOptionsLumaro_Click(frmMain& form) {
  Guarded(Here("chkClearIndexDatOptionsLumaro_Click"), Args(), [&] {
    form.chkEraseIndexDatOnRebootOptionsLumaro.Enabled = form.chkClearIndexDatOptionsLumaro.Value == 1;
  });
}

void chkUseBackupCleaningBrasmir_Click(frmMain& form) {
  Guarded(Here("chkUseBackupCleaningBrasmir_Click"), Args(), [&] {
    if (form.chkUseBackupCleaningBrasmir.Value == 1) gAppRunning->NewSession = true;
  });
}

void chkExcludeZeroByteFilesFilterFileFiltersBrasmir_Click(frmMain& form) {
  Guarded(Here("chkExcludeZeroByteFilesFilterFileFiltersBrasmir_Click"), Args(), [&] {
    form.lblExcludeZeroByteFilesFileFiltersBrasmir.Enabled =
        form.chkExcludeZeroByteFilesFilterFileFiltersBrasmir.Value == 1;
  });
}

void chkScanAllUsersProfileIncludeBrasmir_Click(frmMain& form) {
  Guarded(Here("chkScanAllUsersProfileIncludeBrasmir_Click"), Args(), [&] {
    WidenShortcutSearch(form, form.chkScanAllUsersProfileIncludeBrasmir,
                        form.chkScanEntireDriveBrokenShortcutsIncludeBrasmir);
  });
}

void chkScanEntireDriveBrokenShortcutsIncludeBrasmir_Click(frmMain& form) {
  Guarded(Here("chkScanEntireDriveBrokenShortcutsIncludeBrasmir_Click"), Args(), [&] {
    WidenShortcutSearch(form, form.chkScanEntireDriveBrokenShortcutsIncludeBrasmir,
                        form.chkScanAllUsersProfileIncludeBrasmir);
  });
}

void lblUserInformationBrokenShortcuts_Click() {
  Guarded(Here("lblUserInformationBrokenShortcuts_Click"), Args(), [&] {
    ShowShortcutWarning().chkDoNotShowThisMessage.Value =
        core::UserInformationFlag(core::kBrokenShortcutsKey);
  });
}

void lblResetCleaningStatus_Click(frmMain& form) {
  Guarded(Here("lblResetCleaningStatus_Click"), Args(), [&] {
    if (!core::Ask(BoxIcon::Information, "Reset", {"Confirm Reset Cleaning Status"})) return;
    platform::LibRegistry registry;
    platform::RegistryTransaction transaction;
    for (const char* name :
         {"Total times used", "Files deleted", "Total files deleted", "Size freed up", "Total size freed up"})
      registry.WriteValue(gRegistry->HKEY_CURRENT_USER, core::keys::kCleaningStatus, name, "0");
    transaction.Commit();
    form.lblTotalTimesUsedCleaningStatus.Caption = "0";
    form.lblFilesDeletedCleaningStatus.Caption = "0";
    form.lblTotalFilesDeletedCleaningStatus.Caption = "0";
    form.lblSizeFreedUpCleaningStatus.Caption = "0 KB";
    form.lblTotalSizeFreedUpCleaningStatus.Caption = "0 KB";
    c_CleaningStatus& status = *gCleaningStatus;
    status.FilesDeleted = status.SizeFreedUp = 0;
    status.TotalFilesDeleted = status.TotalSizeFreedUp = status.TotalTimesUsed = 0;
  });
}

void WireSettings(frmMain& form) {
  auto on = [&form](CheckBox& box, void (*handler)(frmMain&)) {
    box.Click = [&form, handler] { handler(form); };
  };
  on(form.chkDeleteFilesCleaningBrasmir, chkDeleteFilesCleaningBrasmir_Click);
  on(form.chkRecycleBinCleaningBrasmir, chkRecycleBinCleaningBrasmir_Click);
  on(form.chkEraseFilesCleaningBrasmir, chkEraseFilesCleaningBrasmir_Click);
  on(form.chkDeleteFilesAdvancedLumaro, chkDeleteFilesAdvancedLumaro_Click);
  on(form.chkRecycleBinAdvancedLumaro, chkRecycleBinAdvancedLumaro_Click);
  on(form.chkEraseFilesAdvancedLumaro, chkEraseFilesAdvancedLumaro_Click);
  on(form.chkEmptyRecycleBinOptionsLumaro, chkEmptyRecycleBinOptionsLumaro_Click);
  on(form.chkClearIndexDatOptionsLumaro, chkClearIndexDatOptionsLumaro_Click);
  on(form.chkUseBackupCleaningBrasmir, chkUseBackupCleaningBrasmir_Click);
  on(form.chkExcludeZeroByteFilesFilterFileFiltersBrasmir,
     chkExcludeZeroByteFilesFilterFileFiltersBrasmir_Click);
  on(form.chkScanAllUsersProfileIncludeBrasmir, chkScanAllUsersProfileIncludeBrasmir_Click);
  on(form.chkScanEntireDriveBrokenShortcutsIncludeBrasmir,
     chkScanEntireDriveBrokenShortcutsIncludeBrasmir_Click);
  form.lblUserInformationBrokenShortcuts.Click = [] { lblUserInformationBrokenShortcuts_Click(); };
  form.lblResetCleaningStatus.Click = [&form] { lblResetCleaningStatus_Click(form); };
}

}  // namespace settings
