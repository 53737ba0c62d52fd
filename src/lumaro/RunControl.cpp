#include "lumaro/RunControl.h"

#include <optional>

#include "backup/m_BackupRestore.h"
#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "core/Numbers.h"
#include "core/Run.h"
#include "core/m_SharedProcedures.h"
#include "lumaro/CleanFilesLmro.h"
#include "lumaro/CleanOnStartup.h"
#include "lumaro/Places.h"
#include "lumaro/ScanComputerLmro.h"
#include "platform/Desktop.h"
#include "ui/controls/m_Controls.h"

namespace lumaro {

namespace {

using core::Args;
using core::BoxIcon;
using core::Guarded;
using platform::CurrentDesktop;

constexpr int kSteps = 10;

struct Row {
  int step;  // 0: the progress stays
  void (*clean)(frmMain&);
  // What switches it on: a setting or a check box of the page; neither: always on.
  std::string c_Registry::*setting;
  controls::CheckBox forms::OptionsLumaroPage::*box;
  bool needsBackup;
};

constexpr Row kRows[] = {
    {1, m_CleanFiles::CleanCookieFilesLmro, &c_Registry::ClearCookiesLmro, nullptr, false},
    {2, m_CleanFiles::CleanTemporaryInternetFilesLmro, &c_Registry::ClearTemporaryInternetFilesLmro, nullptr,
     false},
    {0, m_CleanFiles::CleanHistoryLmro, &c_Registry::ClearHistoryLmro, nullptr, false},
    {3, m_CleanFiles::CleanDownloadedProgramFilesLmro, &c_Registry::ClearDownloadedProgramFilesLmro, nullptr,
     true},
    {4, m_CleanFiles::CleanOfflineFilesLmro, &c_Registry::ClearOfflineFilesLmro, nullptr, true},
    {0, m_CleanFiles::ClearIndexDatFiles, &c_Registry::ClearIndexDatFilesLmro, nullptr, false},
    {5, m_CleanFiles::CleanRecentFolderLmro, &c_Registry::ClearRecentFolderLmro, nullptr, true},
    {6, m_CleanFiles::CleanTempFolderLmro, &c_Registry::ClearTempFolderLmro, nullptr, true},
    {7, m_CleanFiles::CleanXPPrefetchFolderLmro, nullptr, &frmMain::chkEmptyXPPrefetchDirOptionsLumaro,
     false},
    {8, m_CleanFiles::CleanUserDefinedFoldersLmro, nullptr, nullptr, true},
    {9, m_CleanFiles::CleanFirefoxBrowserCacheLmro, nullptr, &frmMain::chkFireFoxCacheOptionsLumaro, false},
    {10, m_CleanFiles::EmptyRecycleBinLmro, &c_Registry::EmptyRecycleBinLmro, nullptr, false},
};

bool IsOn(frmMain& form, const Row& row) {
  if (row.setting) return core::IsOne((*gRegistry).*row.setting);
  return !row.box || (form.*row.box).Value == 1;
}

void WalkRows(frmMain& form, bool backupOk) {
  form.prgScanComputerProgressLumaro.Max = kSteps;
  for (const Row& row : kRows) {
    if (gAppRunning->StopProcess || (row.needsBackup && !backupOk)) continue;
    if (row.step > 0) ShowStep(form, row.step);
    if (IsOn(form, row)) row.clean(form);
  }
}

void CleanComputer(frmMain& form) {
  core::Hourglass hourglass;
  gAppRunning->AppRunning = true;
  gAppRunning->StopProcess = false;
  bool backupOk = true;
  m_Controls::SetControlsBeforeCleaningLumaro(form);
  // Whatever cuts the run short, the button must not stay at "Stop", which nothing would answer any more.
  struct EndOfRun {
    frmMain& form;
    ~EndOfRun() { m_Controls::SetControlsAfterCleaningLumaro(form); }
  } end{form};
  std::optional<m_CleanFiles::AfterBackup> afterBackup;
  if (core::IsOne(gRegistry->UseBackupLmro) && !gAppRunning->StopProcess) {
    backupOk = m_BackupRestore::StartPrepareBackupProcessLmro(form);
    afterBackup.emplace();
  }
  WalkRows(form, backupOk);
  ResetProgress(form);
  m_ScanComputer::ScanComputerLmro(form);
}

// What stops the run where it doesn't yield.
controls::Control& StopControl(frmMain& form) {
  frmCleanOnStartup* startup = CleanOnStartup().Loaded();
  if (startup) return startup->lblStop;
  return form.cmdCleanUpScanComputerLumaro;
}

}  // namespace

void cmdCleanUpScanComputerLumaro_Click(frmMain& form) {
  Guarded(core::Procedure{"frmMain", "cmdCleanUpScanComputerLumaro_Click"}, Args(), [&] {
    if (form.cmdCleanUpScanComputerLumaro.Caption == "Stop") {
      gAppRunning->StopProcess = true;
      gAppRunning->AppRunning = false;
      return;
    }
    if (core::Run::OnStack()) return;
    core::Run run(&StopControl(form));
    struct EndOfHandler {
      ~EndOfHandler() {
        gAppRunning->AppRunning = false;
        CurrentDesktop().SetPointer(platform::Pointer::Default);
      }
    } end;
    if (core::IsOne(gRegistry->ConfirmCleaningLmro) &&
        !core::Ask(BoxIcon::Information, "Confirm deleting", {"Confirm deleting files with Lumaro"}))
      return;
    CleanComputer(form);
  });
}

}  // namespace lumaro
