#include "settings/FormSettings.h"

#include "core/ErrorReport.h"
#include "core/Keys.h"
#include "settings/m_Registry.h"
#include "settings/m_RegistryLists.h"

namespace settings {

using namespace core::keys;

void AssignRegistrySettings(frmMain& form) {
  core::Guarded({"frmMain", "AssignRegistrySettings"}, core::Args(), [&] {
    m_Registry::AssignFileFilters(form, kFileFilters, kSelectedFileFilters);
    m_Registry::AssignDrives(form, kDrives, kSelectedDrives);
    m_Registry::AssignExcludedFolders(form, kExcludedDirectories);
    m_Registry::AssignExcludedFiles(form, kExcludedFiles);
    m_Registry::AssignBackups(form, kBackupFiles);
    m_Registry::AssignUserDefinedFolders(form, kUserDefinedFolders, kSelectedUserDefinedFolders);
    m_Registry::AssignPlugIns(form);
    m_Registry::AssignOptionSettings(form);
  });
}

void SaveRegistrySettings(frmMain& form) {
  core::Guarded({"frmMain", "SaveRegistrySettings"}, core::Args(), [&] {
    m_Registry::SaveFileFilterSettings(form, kFileFilters, kSelectedFileFilters);
    m_Registry::SaveDriveSettings(form, kDrives, kSelectedDrives);
    m_Registry::SaveExcludedFoldersSettings(form, kExcludedDirectories);
    m_Registry::SaveExcludedFilesSettings(form, kExcludedFiles);
    m_Registry::SaveBackupSettings(form, kBackupFiles);
    m_Registry::SaveUserDefinedFoldersSettings(form, kUserDefinedFolders, kSelectedUserDefinedFolders);
    m_Registry::SaveOptionSettings(form);
  });
}

void SaveAndReread(frmMain& form) {
  SaveRegistrySettings(form);
  m_Registry::ReadRegistrySettings();
}

}  // namespace settings
