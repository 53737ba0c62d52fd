// Backups of what is about to be removed, and the ways back from them.
#pragma once

#include <string>

#include "backup/RunBackup.h"
#include "forms/frmBackupFileInformation.h"
#include "forms/frmMain.h"

namespace m_BackupRestore {

// The module Brasmir.

// Stores the ticked rows of the results list into the session's archive, a new one after each scan. True: the
// cleaning may go on, with the files that `promise` holds. False: it has told the user, and no file may be
// touched.
bool BackupSelectedFilesBrsm(frmMain& form, backup::BackupPromise& promise);
// Enters the ticked rows into the pending list. False only when an unexpected failure has cut it short.
bool PrepareBackupBrsm(frmMain& form);
// Names and catalogues a new archive if a new session asks for one. CurrBackupFileNameBrsm is empty after a
// failure.
void CreateBackupFileBrsm(frmMain& form);

// The module Lumaro.

// Stores the folders of the cleaners that the run is about to call into a new archive. True: the rows of the
// run that need the backup may go on, with what `saved` holds.
bool StartPrepareBackupProcessLmro(frmMain& form, backup::RunBackup& saved);
bool StartBackupProcessLmro(frmMain& form, backup::RunBackup& saved);
// Stores all files below one folder.
bool BackupFilesLmro(frmMain& form, const std::string& sBackupPath, backup::BackupPromise& promise);
bool PrepareBackupLmro(frmMain& form, const std::string& sBackupPath);
void CreateBackupFileLmro();

// The way back.

// Asks, and puts a whole archive back to the places it came from. `sBackupFile` is the archive's name in the
// folder of the backups.
void RestoreBackup(frmMain& form, const std::string& sBackupFile);
// Asks for a folder, asks, and extracts a whole archive into it.
void ExtractBackup(frmMain& form, const std::string& sBackupFile);
void StartExtractBackup(frmMain& form, const std::string& sFolder, const std::string& sBackupFile);
// Deletes an archive in the folder of the backups and takes it out of the catalogue; the catalogue's error
// code, 0 for none.
long DeleteBackup(const std::string& sBackupFile);
// Puts the ticked entries of the window's archive back.
void RestoreSelectedFiles(frmBackupFileInformation& form);

}  // namespace m_BackupRestore
