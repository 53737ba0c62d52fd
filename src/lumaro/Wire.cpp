#include "lumaro/Wire.h"

#include "lumaro/OptionPages.h"
#include "lumaro/RunControl.h"
#include "lumaro/ScanComputerLmro.h"
#include "lumaro/UserDefinedFoldersLumaroPage.h"

namespace lumaro {

void WireLumaro(frmMain& form) {
  auto on = [&form](controls::Event<>& event, void (*handler)(frmMain&)) {
    event = [&form, handler] { handler(form); };
  };
  on(form.cmdScanComputerLumaro.Click, cmdScanComputerLumaro_Click);
  on(form.cmdCleanUpScanComputerLumaro.Click, cmdCleanUpScanComputerLumaro_Click);
  for (int index : form.lblDirLumaro.Indices())
    form.lblDirLumaro[index].Click = [&form, index] { lblDirLumaro_Click(form, index); };
  form.lblViewSettingsScanComputerLumaro.Click = lblViewSettingsScanComputerLumaro_Click;
  on(form.lblRebootScanComputerLumaro.Click, lblRebootScanComputerLumaro_Click);

  on(form.cmdOptionsLumaro.Click, cmdOptionsLumaro_Click);
  on(form.lblAdvancedLumaro.Click, lblAdvancedLumaro_Click);
  on(form.lblMoreFoldersOptionsLumaro.Click, lblMoreFoldersOptionsLumaro_Click);
  form.lblManageCookiesOptionsLumaro.Click = lblManageCookiesOptionsLumaro_Click;
  on(form.lblViewLockedFilesAdvancedLumaro.Click, lblViewLockedFilesAdvancedLumaro_Click);
  on(form.lblApplySettingsToBrasmirAdvancedLumaro.Click, lblApplySettingsToBrasmirAdvancedLumaro_Click);

  controls::ListView& list = form.lvwUserDefinedFoldersLumaro;
  on(list.Click, lvwUserDefinedFoldersLumaro_Click);
  on(list.DblClick, lvwUserDefinedFoldersLumaro_DblClick);
  on(form.cmdAddUserDefinedFoldersLumaro.Click, cmdAddUserDefinedFoldersLumaro_Click);
  on(form.cmdRemoveUserDefinedFoldersLumaro.Click, cmdRemoveUserDefinedFoldersLumaro_Click);
  on(form.cmdModifyUserDefinedFoldersLumaro.Click, cmdModifyUserDefinedFoldersLumaro_Click);
  on(form.cmdSelectAllUserDefinedFoldersLumaro.Click, cmdSelectAllUserDefinedFoldersLumaro_Click);
  on(form.cmdUnselectAllUserDefinedFoldersLumaro.Click, cmdUnselectAllUserDefinedFoldersLumaro_Click);
  on(form.cmdListFoldersUserDefinedFoldersLumaro.Click, cmdSearchUserDefinedFoldersLumaro_Click);
}

}  // namespace lumaro
