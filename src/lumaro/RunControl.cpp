#include "lumaro/RunControl.h"

#include <algorithm>

#include "backup/m_BackupRestore.h"
#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "core/Numbers.h"
#include "core/Run.h"
#include "core/m_SharedProcedures.h"
#include "lumaro/CleanFilesLmro.h"
#include "lumaro/CleanOnStartup.h"
#include "lumaro/RowMarks.h"
#include "lumaro/ScanComputerLmro.h"
#include "pages/m_Controls.h"
#include "platform/Desktop.h"
#include "platform/ScopeGuard.h"

namespace lumaro {

namespace {

using core::Args;
using core::BoxIcon;
using core::Guarded;
using platform::CurrentDesktop;
using removal::Remover;

core::Procedure Here() {
  return {"frmMain", "cmdCleanUpScanComputerLumaro_Click"};
}

int Steps() {
  int last = 0;
  for (const places::Place& place : places::All()) last = std::max(last, place.step);
  return last;
}

// False for what was switched on after the backup of the run, which hasn't seen it.
bool IsCovered(const places::Place& place, const Remover& remover) {
  return place.backupStep == 0 || !remover.Backup() || remover.Backup()->places.contains(&place);
}

void WalkPlaces(frmMain& form, bool backupOk, Remover& remover) {
  form.prgScanComputerProgressLumaro.Max = Steps();
  for (const places::Place& place : places::All()) {
    if (gAppRunning->StopProcess || (place.backupStep > 0 && !backupOk)) continue;
    if (place.step > 0) ShowStep(form, place.step);
    if (!places::IsOn(place, form)) continue;
    if (IsCovered(place, remover))
      m_CleanFiles::CleanPlace(form, place, remover);
    else
      remover.NotePassedOver(places::FolderText(place));
  }
}

void CleanComputer(frmMain& form, Remover& remover) {
  core::Hourglass hourglass;
  gAppRunning->AppRunning = true;
  gAppRunning->StopProcess = false;
  bool backupOk = true;
  m_Controls::SetControlsBeforeCleaningLumaro(form);
  // Whatever cuts the run short, the button must not stay at "Stop", which nothing would answer any more.
  platform::ScopeGuard end([&] { m_Controls::SetControlsAfterCleaningLumaro(form); });
  if (core::IsOne(gRegistry->UseBackupLmro) && !gAppRunning->StopProcess)
    backupOk = m_BackupRestore::StartPrepareBackupProcessLmro(form, remover.BeginBackup());
  WalkPlaces(form, backupOk, remover);
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
  Guarded(Here(), Args(), [&] {
    if (core::Run::HasBegun(core::Running::CleanLumaro)) {
      gAppRunning->StopProcess = true;
      gAppRunning->AppRunning = false;
      return;
    }
    if (core::Run::OnStack()) return;
    core::Run run(core::Running::CleanLumaro, &StopControl(form));
    platform::ScopeGuard end([] {
      gAppRunning->AppRunning = false;
      CurrentDesktop().SetPointer(platform::Pointer::Default);
    });
    if (core::IsOne(gRegistry->ConfirmCleaningLmro) &&
        !core::Ask(BoxIcon::Information, "Confirm deleting", {"Confirm deleting files with Lumaro"}))
      return;
    run.Begin();
    Remover remover(settings::Module::Lumaro);
    Guarded(Here(), Args(), [&] { CleanComputer(form, remover); });
    remover.Tell();
  });
}

}  // namespace lumaro
