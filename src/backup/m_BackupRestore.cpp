#include "backup/m_BackupRestore.h"

#include <algorithm>
#include <string>
#include <vector>

#include "backup/ZipControls.h"
#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "core/Keys.h"
#include "core/Numbers.h"
#include "core/Text.h"
#include "core/m_SharedProcedures.h"
#include "platform/Desktop.h"
#include "platform/LibPath.h"
#include "platform/LibRegistry.h"
#include "platform/Listings.h"
#include "platform/Machine.h"
#include "platform/Operations.h"
#include "platform/RuntimeError.h"
#include "platform/ScopeGuard.h"

namespace m_BackupRestore {

using backup::AbaleZip;
using backup::MainZip;
using core::Args;
using core::BoxIcon;
using core::Guarded;
using core::Object;
using core::Procedure;
using core::Value;

namespace {

constexpr char kModule[] = "m_BackupRestore";

// "Backup Brasmir 11.17.2026 22.46.09.zip"
std::string ArchiveName(const std::string& module) {
  platform::Machine& machine = platform::CurrentMachine();
  platform::DateTime now = machine.GetClock().Now();
  platform::LibPath path;
  return "Backup " + module + " " + path.ReplaceChars(machine.GetLocale().ShortDate(now), "/", ".") + " " +
         path.ReplaceChars(machine.GetLocale().LongTime(now), ":", ".") + ".zip";
}

std::string ArchivePath(const std::string& name) {
  return gRegistry->InstallDirectory + "Backup\\" + name;
}

void TellFailedPreparation() {
  core::Tell(BoxIcon::Critical, "Error backupfile...",
             {"Preparing backup failed", "Process will be terminated"});
}

void ShowStep(frmMain& form, double step) {
  form.prgScanComputerProgressLumaro.Value = step;
  form.lblScanComputerProcentLumaro.Caption = core::PercentText(step, form.prgScanComputerProgressLumaro.Max);
  platform::CurrentDesktop().Refresh(form.lblScanComputerProcentLumaro);
}

void ShowProcess(frmMain& form, const std::string& text) {
  form.lblProcessInfoScanComputerLumaro.Caption = text;
  platform::CurrentDesktop().Refresh(form.lblProcessInfoScanComputerLumaro);
}

// The step of the place that is backed up last.
int LastStep() {
  int last = 0;
  for (const places::Place& place : places::All()) last = std::max(last, place.backupStep);
  return last;
}

bool BackUpPlace(frmMain& form, const places::Place& place, backup::RunBackup& saved) {
  std::string folder = places::Folder(place);
  if (!folder.empty()) return BackupFilesLmro(form, folder, saved.promise);
  core::Tell(BoxIcon::Critical, "Path error...", {place.backupError, "Backup process will be terminated"});
  return false;
}

bool BackUpUsersFolders(frmMain& form, backup::RunBackup& saved) {
  std::vector<std::string> folders;
  // Folders that can't be known can't be backed up.
  if (places::TickedFolders(form, folders) != 0) throw platform::DeviceIoError();
  for (const std::string& folder : folders) {
    if (!BackupFilesLmro(form, folder, saved.promise)) return false;
    saved.folders.insert(folder);
  }
  return true;
}

}  // namespace

void CreateBackupFileBrsm(frmMain& form) {
  Guarded(
      Procedure{kModule, "CreateBackupFileBrsm"}, Args(Object{"frmMain"}),
      [&] {
        form.lblUserInfoResultsBrasmir[forms::ResultsProgress].Caption = "Preparing backup...";
        if (!gAppRunning->NewSession) return;
        gAppRunning->CurrBackupFileNameBrsm = ArchiveName("Brasmir");
        platform::CurrentDesktop().SetPointer(platform::Pointer::Hourglass);
        if (platform::LibRegistry().WriteValue(gRegistry->HKEY_CURRENT_USER, core::keys::kBackupFiles,
                                               gAppRunning->CurrBackupFileNameBrsm,
                                               "Backup taken by Brasmir") != 0) {
          core::Tell(BoxIcon::Critical, "Registry information...",
                     {"Saving backup information to registry failed", core::kPermission});
          gAppRunning->CurrBackupFileNameBrsm.clear();
        }
      },
      [] { gAppRunning->CurrBackupFileNameBrsm.clear(); });
}

bool PrepareBackupBrsm(frmMain& form) {
  return Guarded(Procedure{kModule, "PrepareBackupBrsm"}, Args(Object{"frmMain"}), [&] {
    const controls::ListView& rows = form.lvwFilesResultsBrasmir;
    form.prgProgressResultsBrasmir.Max = rows.Count();
    rows.ForEach([&](int row) {
      if (rows.Checked(row)) MainZip().AddFileToProcess(rows.SubItem(row, 1), rows.Text(row));
      form.prgProgressResultsBrasmir.Value = row;
      platform::CurrentDesktop().Breathe();
    });
    return true;
  });
}

bool BackupSelectedFilesBrsm(frmMain& form, backup::BackupPromise& promise) {
  return Guarded(Procedure{kModule, "BackupSelectedFilesBrsm"}, Args(Object{"frmMain"}), [&] {
    platform::ScopeGuard tidy([&] {
      MainZip().FilesToProcess = "";
      form.prgProgressResultsBrasmir.Value = 0;
    });
    CreateBackupFileBrsm(form);
    if (gAppRunning->CurrBackupFileNameBrsm.empty()) return false;
    if (!PrepareBackupBrsm(form)) {
      TellFailedPreparation();
      return false;
    }
    form.lblUserInfoResultsBrasmir[forms::ResultsProgress].Caption = "Creating backup...";
    platform::CurrentDesktop().Refresh(form.lblUserInfoResultsBrasmir[forms::ResultsProgress]);
    AbaleZip& zip = MainZip();
    zip.ZipFilename = ArchivePath(gAppRunning->CurrBackupFileNameBrsm);
    zip.KeepPaths = true;
    zip.Zip(&promise);
    return true;
  });
}

void CreateBackupFileLmro() {
  Guarded(
      Procedure{kModule, "CreateBackupFileLmro"}, Args(),
      [] {
        gAppRunning->CurrBackupFileNameLmro = ArchiveName("Lumaro");
        if (platform::LibRegistry().WriteValue(gRegistry->HKEY_CURRENT_USER, core::keys::kBackupFiles,
                                               gAppRunning->CurrBackupFileNameLmro,
                                               "Backup taken by Lumaro") != 0) {
          core::Tell(BoxIcon::Critical, "Registry information...",
                     {"Saving backup file information to registry failed", core::kPermission});
          gAppRunning->CurrBackupFileNameLmro.clear();
        }
      },
      [] { gAppRunning->CurrBackupFileNameLmro.clear(); });
}

bool StartPrepareBackupProcessLmro(frmMain& form, backup::RunBackup& saved) {
  return Guarded(Procedure{kModule, "StartPrepareBackupProcessLmro"}, Args(Object{"frmMain"}), [&] {
    ShowProcess(form, "Process: Creating backup...Please wait");
    CreateBackupFileLmro();
    bool result = false;
    if (!gAppRunning->CurrBackupFileNameLmro.empty())
      result = StartBackupProcessLmro(form, saved);
    else
      core::Tell(BoxIcon::Critical, "Error backupfile...",
                 {"Creating backup file failed", "Process will be terminated"});
    ShowProcess(form, "Process: Cleaning computer...Please wait");
    return result;
  });
}

bool StartBackupProcessLmro(frmMain& form, backup::RunBackup& saved) {
  return Guarded(Procedure{kModule, "StartBackupProcessLmro"}, Args(Object{"frmMain"}), [&] {
    AbaleZip& zip = MainZip();
    platform::ScopeGuard tidy([&] {
      zip.Cancel();
      ShowStep(form, 0);
    });
    form.prgScanComputerProgressLumaro.Max = LastStep();
    // One work of all places: the archive is written, and read back, once.
    zip.Join();
    for (const places::Place& place : places::All()) {
      if (place.backupStep == 0 || !places::IsOn(place, form)) continue;
      ShowStep(form, place.backupStep);
      if (!(places::IsUsersFolders(place) ? BackUpUsersFolders(form, saved)
                                          : BackUpPlace(form, place, saved)))
        return false;
      saved.places.insert(&place);
    }
    zip.Finish(&saved.promise);
    return true;
  });
}

bool BackupFilesLmro(frmMain& form, const std::string& sBackupPath, backup::BackupPromise& promise) {
  return Guarded(Procedure{kModule, "BackupFilesLmro"},
                 Args(Object{"frmMain"}, Value("sBackupPath", sBackupPath)), [&] {
                   AbaleZip& zip = MainZip();
                   platform::ScopeGuard tidy([&] { zip.FilesToProcess = ""; });
                   if (!PrepareBackupLmro(form, sBackupPath)) {
                     TellFailedPreparation();
                     return false;
                   }
                   zip.ZipFilename = ArchivePath(gAppRunning->CurrBackupFileNameLmro);
                   zip.KeepPaths = true;
                   zip.Zip(&promise);
                   return true;
                 });
}

bool PrepareBackupLmro(frmMain&, const std::string& sBackupPath) {
  return Guarded(Procedure{kModule, "PrepareBackupLmro"},
                 Args(Object{"frmMain"}, Value("sBackupPath", sBackupPath)), [&] {
                   gFiles.Reset();
                   gFolders.Reset();
                   platform::ops::ListTree(sBackupPath, gFiles, gFolders);
                   for (int i = 0; i < gFiles.UpperBound(); ++i)
                     MainZip().AddFileToProcess(gFiles.FolderText(gFiles.FolderOf(i)), gFiles.NameText(i));
                   return true;
                 });
}

void RestoreBackup(frmMain& form, const std::string& sBackupFile) {
  Guarded(Procedure{kModule, "RestoreBackup"}, Args(Object{"frmMain"}, Value("sBackupFile", sBackupFile)),
          [&] {
            if (!core::Ask(BoxIcon::Information, "Restore backup", {"Confirm restore backup"})) return;
            long result;
            {
              core::Hourglass hourglass;
              form.lblUserInfoBackupBrasmir.Caption = "Restoring backup...";
              AbaleZip& zip = MainZip();
              zip.ZipFilename = ArchivePath(sBackupFile);
              zip.FilesToProcess = "";
              zip.KeepPaths = true;
              result = zip.Unzip();
            }
            if (result == AbaleZip::kFailed)
              backup::TellZipFailure("Restoring backup returned with error", result);
            form.lblUserInfoBackupBrasmir.Caption = "Finished";
          });
}

long DeleteBackup(const std::string& sBackupFile) {
  platform::ops::Remove(ArchivePath(sBackupFile));
  // A cleaning that went on with this archive would write one that the catalogue doesn't know.
  if (core::Equals(sBackupFile, gAppRunning->CurrBackupFileNameBrsm)) gAppRunning->NewSession = true;
  return platform::LibRegistry().DeleteValue(gRegistry->HKEY_CURRENT_USER, core::keys::kBackupFiles,
                                             sBackupFile);
}

void ExtractBackup(frmMain& form, const std::string& sBackupFile) {
  Guarded(Procedure{kModule, "ExtractBackup"}, Args(Object{"frmMain"}, Value("sBackupFile", sBackupFile)),
          [&] {
            std::string folder = platform::CurrentDesktop().BrowseForFolder();
            if (folder.empty()) return;
            if (!core::Ask(BoxIcon::Information, "Extract backup",
                           {"Confirm extract backup: " + sBackupFile, "Extract folder: " + folder}))
              return;
            core::Hourglass hourglass;
            form.lblUserInfoBackupBrasmir.Caption = "Extracting backup...";
            StartExtractBackup(form, folder, sBackupFile);
            form.lblUserInfoBackupBrasmir.Caption = "Finished";
          });
}

void StartExtractBackup(frmMain&, const std::string& sFolder, const std::string& sBackupFile) {
  Guarded(Procedure{kModule, "StartExtractBackup"},
          Args(Object{"frmMain"}, Value("sFolder", sFolder), Value("sBackupFile", sBackupFile)), [&] {
            AbaleZip& zip = MainZip();
            platform::ScopeGuard tidy([&] { zip.TargetFolder.clear(); });
            zip.ZipFilename = ArchivePath(sBackupFile);
            zip.KeepPaths = false;
            zip.TargetFolder = sFolder;
            long result = zip.Unzip();
            if (result == AbaleZip::kFailed)
              backup::TellZipFailure("Extracting backup returned with error", result);
          });
}

void RestoreSelectedFiles(frmBackupFileInformation& form) {
  Guarded(Procedure{kModule, "RestoreSelectedFiles"}, Args(Object{"frmBackupFileInformation"}), [&] {
    const controls::ListView& rows = form.lvwZipFileInformation;
    if (rows.Count() == 0) return;
    AbaleZip& zip = backup::WindowZip();
    platform::ScopeGuard tidy([&] { zip.FilesToProcess = ""; });
    zip.FilesToProcess = "";
    zip.ZipFilename = ArchivePath(gAppRunning->SelectedBackupFile);
    zip.KeepPaths = true;
    rows.ForEach([&](int row) {
      if (rows.Checked(row)) zip.AddFileToProcess(rows.Text(row));
    });
    if (zip.FilesToProcess.Empty()) {
      core::Tell(BoxIcon::Exclamation, "Restore files...", {"No files are selected to restore"});
      return;
    }
    long result = zip.Unzip();
    zip.FilesToProcess = "";
    platform::CurrentDesktop().SetPointer(platform::Pointer::Default);
    if (result == AbaleZip::kFailed)
      backup::TellZipFailure("Restoring backup returned with error", result);
    else
      core::Tell(BoxIcon::Information, "Restore files...", {"Restoring files returned with success"});
  });
}

}  // namespace m_BackupRestore
