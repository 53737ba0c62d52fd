#include "clean/CleaningBrasmirPage.h"

#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "platform/Operations.h"
#include "removal/m_Log.h"

namespace clean {

using core::Args;
using core::BoxIcon;
using core::Guarded;
using core::Procedure;

void lblViewLockedFilesCleaningBrasmir_Click() {
  Guarded(Procedure{"frmMain", "lblViewLockedFilesCleaningBrasmir_Click"}, Args(), [] {
    if (platform::ops::OpenDocument(m_Log::LockedFilesLog()) != platform::Status::Done)
      core::Tell(
          BoxIcon::Information, "Log file...",
          {"Open the log file for locked files failed", "File doesn't exist. (No log has been written)"});
  });
}

void lblApplySettingsToLumaroCleaningBrasmir_Click(frmMain& form) {
  Guarded(Procedure{"frmMain", "lblApplySettingsToLumaroCleaningBrasmir_Click"}, Args(), [&] {
    form.chkConfirmCleaningAdvancedLumaro.Value = form.chkConfirmCleaningCleaningBrasmir.Value;
    form.chkDeleteFilesAdvancedLumaro.Value = form.chkDeleteFilesCleaningBrasmir.Value;
    form.chkRecycleBinAdvancedLumaro.Value = form.chkRecycleBinCleaningBrasmir.Value;
    form.chkEraseFilesAdvancedLumaro.Value = form.chkEraseFilesCleaningBrasmir.Value;
    form.chkDeleteFilesOnWindowsStartupAdvancedLumaro.Value =
        form.chkDeleteFilesOnWindowsStartupCleaningBrasmir.Value;
    form.chkUseBackupAdvancedLumaro.Value = form.chkUseBackupCleaningBrasmir.Value;
    form.spnEraseTimesAdvancedLumaro.Value = form.spnEraseTimesCleaningBrasmir.Value;
    core::Tell(BoxIcon::Information, "Synchronize settings...",
               {"Settings are Synchronized with Lumaro Cleaning Methods"});
  });
}

}  // namespace clean
