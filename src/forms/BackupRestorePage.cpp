#include "forms/BackupRestorePage.h"

#include "forms/ImageLists.h"
#include "forms/Page.h"

namespace forms {

using namespace controls;

BackupRestorePage::BackupRestorePage() {
  lvwBackupsBrasmir.Columns = {{"Backup", 300, true}, {"Description", 200}};
  lvwBackupsBrasmir.SmallIcons = ControlIcons();
  lvwBackupsBrasmir.EmptyText = "No backups yet";
  lvwBackupsBrasmir.DeletePresses = &cmdDeleteBackupBrasmir;
  lvwBackupsBrasmir.AccessibleName = "Backups";

  Design(cmdRestoreBackupBrasmir, "Restore", 'R', "Restore selected backup file");
  cmdRestoreBackupBrasmir.Primary = true;
  Design(cmdExtractBackupBrasmir, "Extract", 'E', "Extract selected backup file");
  Design(cmdDeleteBackupBrasmir, "Delete", 'D', "Delete selected backup file");
  Design(cmdRefreshBackupBrasmir, "Refresh", 'f', "Reload all backup files");
  Design(cmdListBackupBrasmir, "List backup", 'i', "List content of selected backup file");
  Design(chkDeleteBackupFilesBackupBrasmir, "Delete backup files after 30 days from the date created", 'y');
  Design(chkUseBackupCleaningBrasmir, "Use backup under Brasmir", 's');
  Design(chkUseBackupAdvancedLumaro, "Use backup under Lumaro", 'm');
  Status(lblUserInfoBackupBrasmir);
}

Layout BackupRestorePage::BackupRestoreLayout(NavigationControls& shared) {
  return Page(fraBackupRestore,
              {"Backup/Restore...", HeadLine("Backup settings Brasmir (Not necessary with default settings)"),
               &shared.lblHome[home::BackupRestore]},
              {
                  chkUseBackupCleaningBrasmir,
                  chkUseBackupAdvancedLumaro,
                  chkDeleteBackupFilesBackupBrasmir,
                  Item(lvwBackupsBrasmir).Stretch().Min(0, 120),
                  Item(lblUserInfoBackupBrasmir).Expand(),
              },
              {cmdRefreshBackupBrasmir, cmdListBackupBrasmir, Spring(), cmdDeleteBackupBrasmir,
               cmdExtractBackupBrasmir, cmdRestoreBackupBrasmir});
}

}  // namespace forms
