#include "backup/BackupRestorePage.h"

#include <string>

#include "backup/ZipControls.h"
#include "backup/m_BackupRestore.h"
#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "core/Keys.h"
#include "core/Numbers.h"
#include "core/OpenForms.h"
#include "core/m_SharedProcedures.h"
#include "platform/Desktop.h"
#include "settings/m_RegistryLists.h"

namespace backup {

using core::Args;
using core::BoxIcon;
using core::Guarded;
using core::Procedure;

namespace {

// The name of the selected backup; empty for none.
std::string Selected(const frmMain& form) {
  const controls::ListView& backups = form.lvwBackupsBrasmir;
  int row = backups.SelectedIndex();
  return row == 0 ? std::string() : std::string(backups.Text(row));
}

void cmdRestoreBackupBrasmir_Click(frmMain& form) {
  Guarded(Procedure{"frmMain", "cmdRestoreBackupBrasmir_Click"}, Args(), [&] {
    std::string name = Selected(form);
    if (!name.empty()) m_BackupRestore::RestoreBackup(form, name);
  });
}

void cmdExtractBackupBrasmir_Click(frmMain& form) {
  Guarded(Procedure{"frmMain", "cmdExtractBackupBrasmir_Click"}, Args(), [&] {
    std::string name = Selected(form);
    if (!name.empty()) m_BackupRestore::ExtractBackup(form, name);
  });
}

void cmdDeleteBackupBrasmir_Click(frmMain& form) {
  Guarded(Procedure{"frmMain", "cmdDeleteBackupBrasmir_Click"}, Args(), [&] {
    std::string name = Selected(form);
    if (name.empty()) return;
    if (!core::Ask(BoxIcon::Information, "Delete backup", {"Confirm delete backup", name})) return;
    core::Hourglass hourglass;
    if (m_BackupRestore::DeleteBackup(name) != 0) {
      core::Tell(BoxIcon::Critical, "Registry information...",
                 {"Delete backup information from registry failed", core::kPermission});
      return;
    }
    if (int row = form.lvwBackupsBrasmir.FindText(name)) form.lvwBackupsBrasmir.RemoveRow(row);
  });
}

void cmdRefreshBackupBrasmir_Click(frmMain& form) {
  Guarded(Procedure{"frmMain", "cmdRefreshBackupBrasmir_Click"}, Args(), [&] {
    form.lvwBackupsBrasmir.Clear();
    m_Registry::AssignBackups(form, core::keys::kBackupFiles);
    platform::CurrentDesktop().DoEvents();
  });
}

void cmdListBackupBrasmir_Click(frmMain& form) {
  Guarded(Procedure{"frmMain", "cmdListBackupBrasmir_Click"}, Args(), [&] {
    std::string name = Selected(form);
    if (name.empty()) return;
    gAppRunning->SelectedBackupFile = name;
    frmBackupFileInformation& window = BackupFileInformation().Get();
    core::ShowForm(window);
    AbaleZip& zip = MainZip();
    zip.ZipFilename = gRegistry->InstallDirectory + "Backup\\" + name;
    window.lblZipfileName.Caption = "Name Backup File: " + name;
    long result = zip.ListContents();
    if (result == AbaleZip::kFailed || result == AbaleZip::kNoArchive)
      core::Tell(BoxIcon::Exclamation, "Error...",
                 {"Listing the backup file content returned with error", zip.ErrorDescription(result)});
    platform::CurrentDesktop().DoEvents();
  });
}

}  // namespace

void WireBackup(frmMain& form) {
  form.cmdRestoreBackupBrasmir.Click = [&form] { cmdRestoreBackupBrasmir_Click(form); };
  form.cmdExtractBackupBrasmir.Click = [&form] { cmdExtractBackupBrasmir_Click(form); };
  form.cmdDeleteBackupBrasmir.Click = [&form] { cmdDeleteBackupBrasmir_Click(form); };
  form.cmdRefreshBackupBrasmir.Click = [&form] { cmdRefreshBackupBrasmir_Click(form); };
  form.cmdListBackupBrasmir.Click = [&form] { cmdListBackupBrasmir_Click(form); };
}

}  // namespace backup
