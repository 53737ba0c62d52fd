#include "lumaro/OptionPages.h"

#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "lumaro/ManageCookies.h"
#include "platform/Desktop.h"
#include "platform/LibShell.h"

namespace lumaro {

namespace {

using core::Args;
using core::BoxIcon;
using core::Guarded;
using platform::CurrentDesktop;

core::Procedure Here(const char* procedure) {
  return {"frmMain", procedure};
}

void Tell(frmMain& form, forms::LumaroNews news) {
  form.Tell(news);
  CurrentDesktop().Refresh(form.lblUserInfoScanComputerLumaro);
}

}  // namespace

void cmdOptionsLumaro_Click(frmMain& form) {
  Guarded(Here("cmdOptionsLumaro_Click"), Args(), [&] { form.ShowPage(form.fraOptionsLumaro); });
}

void lblAdvancedLumaro_Click(frmMain& form) {
  Guarded(Here("lblAdvancedLumaro_Click"), Args(), [&] {
    form.ShowPage(form.fraAdvancedLumaro);
    bool startsInTray = form.chkLoadOnWindowsStartupOptionsLumaro.Value == 1;
    form.chkCleanOnWindowsStartupAdvancedLumaro.Enabled = startsInTray;
    if (!startsInTray) form.chkCleanOnWindowsStartupAdvancedLumaro.Value = 0;
  });
}

void lblMoreFoldersOptionsLumaro_Click(frmMain& form) {
  Guarded(Here("lblMoreFoldersOptionsLumaro_Click"), Args(), [&] {
    form.ShowPage(form.fraUserDefinedFoldersLumaro);
    CurrentDesktop().Refresh(form.fraUserDefinedFoldersLumaro);
    form.lvwUserDefinedFoldersLumaro.Click();
  });
}

void lblManageCookiesOptionsLumaro_Click() {
  Guarded(Here("lblManageCookiesOptionsLumaro_Click"), Args(), [] {
    core::Hourglass hourglass;
    core::ShowForm(ManageCookies().Get());
  });
}

void lblViewLockedFilesAdvancedLumaro_Click(frmMain& form) {
  Guarded(Here("lblViewLockedFilesAdvancedLumaro_Click"), Args(),
          [&] { form.lblViewLockedFilesCleaningBrasmir.Click(); });
}

void lblApplySettingsToBrasmirAdvancedLumaro_Click(frmMain& form) {
  Guarded(Here("lblApplySettingsToBrasmirAdvancedLumaro_Click"), Args(), [&] {
    form.chkConfirmCleaningCleaningBrasmir.Value = form.chkConfirmCleaningAdvancedLumaro.Value;
    form.chkDeleteFilesCleaningBrasmir.Value = form.chkDeleteFilesAdvancedLumaro.Value;
    form.chkRecycleBinCleaningBrasmir.Value = form.chkRecycleBinAdvancedLumaro.Value;
    form.chkEraseFilesCleaningBrasmir.Value = form.chkEraseFilesAdvancedLumaro.Value;
    form.chkDeleteFilesOnWindowsStartupCleaningBrasmir.Value =
        form.chkDeleteFilesOnWindowsStartupAdvancedLumaro.Value;
    form.chkUseBackupCleaningBrasmir.Value = form.chkUseBackupAdvancedLumaro.Value;
    form.spnEraseTimesCleaningBrasmir.Value = form.spnEraseTimesAdvancedLumaro.Value;
    core::Tell(BoxIcon::Information, "Synchronize settings...",
               {"Settings are Synchronized with Brasmir Cleaning Methods"});
  });
}

void lblRebootScanComputerLumaro_Click(frmMain& form) {
  Guarded(Here("lblRebootScanComputerLumaro_Click"), Args(), [&] {
    Tell(form, forms::LumaroNews::Rebooting);
    platform::LibShell shell;
    long done = shell.IsNT() ? shell.RebootNT() : shell.RebootWin9x();
    if (done == 0) Tell(form, forms::LumaroNews::RebootFailed);
  });
}

}  // namespace lumaro
