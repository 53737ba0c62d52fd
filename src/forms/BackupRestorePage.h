// The page "Backup/Restore...".
#pragma once

#include "forms/NavigationControls.h"

namespace forms {

// Its handlers: backup/BackupRestorePage.h.
struct BackupRestorePage {
  CONTROL(Frame, fraBackupRestore);

  CONTROL(ListView, lvwBackupsBrasmir);
  CONTROL(Button, cmdRestoreBackupBrasmir);
  CONTROL(Button, cmdExtractBackupBrasmir);
  CONTROL(Button, cmdDeleteBackupBrasmir);
  CONTROL(Button, cmdRefreshBackupBrasmir);
  CONTROL(Button, cmdListBackupBrasmir);
  CONTROL(CheckBox, chkDeleteBackupFilesBackupBrasmir);
  CONTROL(CheckBox, chkUseBackupCleaningBrasmir);
  CONTROL(CheckBox, chkUseBackupAdvancedLumaro);
  CONTROL(Label, lblUserInfoBackupBrasmir);

  BackupRestorePage();
  controls::Layout BackupRestoreLayout(NavigationControls& shared);
};

}  // namespace forms
