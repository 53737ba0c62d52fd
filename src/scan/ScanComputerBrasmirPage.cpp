#include "scan/ScanComputerBrasmirPage.h"

#include <memory>
#include <string>
#include <vector>

#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "core/Numbers.h"
#include "core/Run.h"
#include "core/m_SharedProcedures.h"
#include "pages/m_Controls.h"
#include "platform/Listings.h"
#include "scan/m_FileValidation.h"
#include "scan/m_FileValidationShortcuts.h"
#include "scan/m_ScanComputer.h"
#include "settings/CleaningMethod.h"

namespace scan {

using core::Args;
using core::BooleanText;
using core::BoxIcon;
using core::Guarded;
using core::IsOne;
using core::Procedure;

namespace {

// A setting as the summary shows it: any number but 0 is True.
std::string Shown(const std::string& setting) {
  return BooleanText(core::ToNumber(setting) != 0);
}

void SetStatus(frmMain& form, const char* text) {
  form.lblProcessInfoScanComputerBrasmir.Caption = text;
}

void Scan(frmMain& form) {
  m_Controls::SetControlsBeforeScanningBrsm(form);
  gAppRunning->AppRunning = true;
  gAppRunning->StopProcess = false;
  gAppRunning->Zeroproperties();
  gAppRunning->NewSession = true;
  SetStatus(form, "Process: Scanning drive...");
  // A setting that is no number is told of where it decides something.
  std::unique_ptr<platform::SizesAhead> ahead;
  if (gRegistry->IncludeZeroByteFilesBrsm == "1") ahead = platform::ops::LookAhead();
  if (m_ScanComputer::ScanComputerBrsm(ahead.get()) && !gAppRunning->StopProcess) {
    SetStatus(form, "Process: Examine file list...");
    form.ImgProcessBrasmir[forms::GarbageMark].Visible = true;
    if (IsOne(gRegistry->IncludeZeroByteFilesBrsm))
      form.ImgProcessBrasmir[forms::ZeroByteMark].Visible = true;
    m_FileValidation::StartFileValidationBrsm(form, ahead.get());
    ahead.reset();
    if (!gAppRunning->StopProcess && IsOne(gRegistry->IncludeInvalidShortcutsBrsm)) {
      SetStatus(form, "Process: Scanning for broken shortcuts...");
      if (m_ScanComputer::ScanShortcutsBrsm(form)) {
        form.ImgProcessBrasmir[forms::ShortcutMark].Visible = true;
        m_FileValidation::GetInvalidShortcutsBrsm(form);
      }
    }
  }
  SetStatus(form, "Process: Finished scanning computer");
  form.lblUserInfoScanComputerBrasmir.Caption =
      IsOne(gRegistry->DeleteOnWindowsStartupBrsm) ? "Locked files will be deleted on next Windows boot."
                                                   : "Locked files will not be deleted on next Windows boot.";
  platform::CurrentDesktop().Refresh(form.lblUserInfoScanComputerBrasmir);
}

void EndScan(frmMain& form) {
  gAppRunning->AppRunning = false;
  form.ScanHasRun = true;
  m_Controls::SetControlsAfterScanningBrsm(form);
}

}  // namespace

void cmdScanComputerBrasmir_Click(frmMain& form) {
  const Procedure procedure{"frmMain", "cmdScanComputerBrasmir_Click"};
  if (core::Run::HasBegun(core::Running::ScanBrasmir)) {
    Guarded(procedure, Args(), [&] {
      gAppRunning->StopProcess = true;
      gAppRunning->AppRunning = false;
      SetStatus(form, "Current process: Terminating process please wait...");
      platform::CurrentDesktop().Refresh(form.lblProcessInfoScanComputerBrasmir);
    });
    return;
  }
  if (core::Run::OnStack()) return;
  core::Run run(core::Running::ScanBrasmir, &form.cmdScanComputerBrasmir);
  run.Begin();
  core::Hourglass hourglass;
  // A setting that is no number ends the scan with a report. The page still leaves its running form, or
  // nothing could be started or closed any more.
  Guarded(procedure, Args(), [&] { Scan(form); });
  EndScan(form);
}

void cmdOptionsBrasmir_Click(frmMain& form) {
  Guarded(Procedure{"frmMain", "cmdOptionsBrasmir_Click"}, Args(),
          [&] { form.ShowPage(form.fraOptionsBrasmir); });
}

void lblViewSettingsScanComputerBrasmir_Click(frmMain& form) {
  Guarded(Procedure{"frmMain", "lblViewSettingsScanComputerBrasmir_Click"}, Args(), [&] {
    const controls::ListView& list = form.lvwDrivesBrasmir;
    std::string drives;
    for (int row = 1; row <= list.Count(); ++row)
      if (list.Checked(row)) drives.append(list.Text(row)).append("...");
    core::Tell(BoxIcon::Information, "Selected settings...",
               {"Selected drives: " + drives,  //
                "Include Zero Byte Files: " + Shown(gRegistry->IncludeZeroByteFilesBrsm),
                "Include Invalid Shortcuts: " + Shown(gRegistry->IncludeInvalidShortcutsBrsm),  //
                "",                                                                             //
                "Cleaning method: " + settings::ShownMethod(settings::Module::Brasmir),
                "Use backup: " + Shown(gRegistry->UseBackupBrsm)});
  });
}

}  // namespace scan
