#include "scan/ResultsPage.h"

#include <string>

#include "core/ErrorReport.h"
#include "core/Numbers.h"
#include "core/m_SharedProcedures.h"
#include "platform/Desktop.h"
#include "scan/m_Results.h"

namespace scan {

using core::Args;
using core::BuiltIn;
using core::Guarded;
using core::IsOne;
using core::Procedure;
using core::Value;

namespace {

// The combo box's items and the labels that tell the settings.
void PreparePage(frmMain& form) {
  form.cboSelectResultsBrasmir.Clear();
  form.cboSelectResultsBrasmir.AddItem(m_Results::kGarbageFiles);
  if (IsOne(gRegistry->IncludeZeroByteFilesBrsm))
    form.cboSelectResultsBrasmir.AddItem(m_Results::kZeroByteFiles);
  if (IsOne(gRegistry->IncludeInvalidShortcutsBrsm))
    form.cboSelectResultsBrasmir.AddItem(m_Results::kInvalidShortcuts);

  controls::Label& method = form.lblCleaningMethodResultsBrasmir;
  if (IsOne(gRegistry->MoveFilesToRecyclebinBrsm))
    method.Caption = "Cleaning method: Move files to Recycle bin";
  if (IsOne(gRegistry->DeleteFilesBrsm)) method.Caption = "Cleaning method: Delete files";
  if (IsOne(gRegistry->EraseFilesBrsm))
    method.Caption = "Cleaning method: Erase files " + gRegistry->ErasePassesBrsm + " times";
  form.lblBackupSelectedResultsBrasmir.Caption =
      IsOne(gRegistry->UseBackupBrsm) ? "Backup selected: Yes" : "Backup selected: No";
}

void ShowCategory(frmMain& form, int item) {
  form.ShowPage(form.fraScanningResultsBrasmir);
  form.cboSelectResultsBrasmir.SetListIndex(item);
}

}  // namespace

void cmdViewResultsScanComputerBrasmir_Click(frmMain& form) {
  Guarded(Procedure{"frmMain", "cmdViewResultsScanComputerBrasmir_Click"}, Args(), [&] {
    form.ShowPage(form.fraScanningResultsBrasmir);
    platform::CurrentDesktop().Refresh(form.fraScanningResultsBrasmir);
    PreparePage(form);
    form.cboSelectResultsBrasmir.SetListIndex(0);
  });
}

void lblViewResultsScanComputer_Click(frmMain& form, int Index) {
  Guarded(Procedure{"frmMain", "lblViewResultsScanComputer_Click"}, Args(Value("Index", Index)), [&] {
    if (!form.ScanHasRun) return;
    PreparePage(form);
    if (Index == 4 && IsOne(gRegistry->IncludeZeroByteFilesBrsm)) ShowCategory(form, 1);
    if (Index == 6 && IsOne(gRegistry->IncludeInvalidShortcutsBrsm))
      ShowCategory(form, static_cast<int>(form.cboSelectResultsBrasmir.Items().size()) - 1);
    if (Index == 7) ShowCategory(form, 0);
  });
}

void cboSelectResultsBrasmir_Click(frmMain& form) {
  Guarded(Procedure{"frmMain", "cboSelectResultsBrasmir_Click"}, Args(), [&] {
    const std::string shown = form.cboSelectResultsBrasmir.Text();
    if (shown == m_Results::kGarbageFiles) m_Results::LoadGarbageFiles(form);
    if (shown == m_Results::kZeroByteFiles) m_Results::LoadZeroByteFiles(form);
    if (shown == m_Results::kInvalidShortcuts) m_Results::LoadInvalidShortCuts(form);
    form.lvwFilesResultsBrasmir.Redraw = false;
    form.lvwFilesResultsBrasmir.Redraw = true;
  });
}

void cmdSelectAllResultsBrasmir_Click(frmMain& form) {
  Guarded(Procedure{"frmMain", "cmdSelectAllResultsBrasmir_Click"}, Args(),
          [&] { form.lvwFilesResultsBrasmir.CheckAll(true); });
}

void cmdUnSelectAllResultsBrasmir_Click(frmMain& form) {
  Guarded(Procedure{"frmMain", "cmdUnSelectAllResultsBrasmir_Click"}, Args(),
          [&] { form.lvwFilesResultsBrasmir.CheckAll(false); });
}

void lblSortListResultsBrasmir_Click(frmMain& form) {
  Guarded(Procedure{"frmMain", "lblSortListResultsBrasmir_Click"}, Args(), [&] {
    const std::string text = form.txtSortResultsBrasmir.Text;
    if (text.empty())
      cboSelectResultsBrasmir_Click(form);
    else
      m_Results::NarrowRows(form, text);
  });
}

void lvwFilesResultsBrasmir_MouseDown(frmMain& form, controls::MouseButton Button) {
  Guarded(Procedure{"frmMain", "lvwFilesResultsBrasmir_MouseDown"}, Args(BuiltIn{}), [&] {
    if (form.lvwFilesResultsBrasmir.Count() > 0 && Button == controls::MouseButton::Right)
      platform::CurrentDesktop().ShowPopup(form, form.mnuFile);
  });
}

}  // namespace scan
