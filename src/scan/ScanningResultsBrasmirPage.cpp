#include "scan/ScanningResultsBrasmirPage.h"

#include <algorithm>
#include <string>
#include <vector>

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
using forms::ResultCategory;

namespace {

// The combo box's items and the labels that tell the settings.
void PreparePage(frmMain& form) {
  std::vector<ResultCategory> categories = {ResultCategory::GarbageFiles};
  if (IsOne(gRegistry->IncludeZeroByteFilesBrsm)) categories.push_back(ResultCategory::ZeroByteFiles);
  if (IsOne(gRegistry->IncludeInvalidShortcutsBrsm)) categories.push_back(ResultCategory::InvalidShortcuts);
  m_Results::OfferCategories(form, categories);

  controls::Label& method = form.lblCleaningMethodResultsBrasmir;
  if (IsOne(gRegistry->MoveFilesToRecyclebinBrsm))
    method.Caption = "Cleaning method: Move files to Recycle bin";
  if (IsOne(gRegistry->DeleteFilesBrsm)) method.Caption = "Cleaning method: Delete files";
  if (IsOne(gRegistry->EraseFilesBrsm))
    method.Caption = "Cleaning method: Erase files " + gRegistry->ErasePassesBrsm + " times";
  form.lblBackupSelectedResultsBrasmir.Caption =
      IsOne(gRegistry->UseBackupBrsm) ? "Backup selected: Yes" : "Backup selected: No";
}

// Nothing for a category that isn't offered.
void ShowCategory(frmMain& form, ResultCategory category) {
  const auto& offered = form.OfferedCategories;
  auto found = std::find(offered.begin(), offered.end(), category);
  if (found == offered.end()) return;
  form.ShowPage(form.fraScanningResultsBrasmir);
  form.cboSelectResultsBrasmir.SetListIndex(static_cast<int>(found - offered.begin()));
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
    if (Index == forms::ViewZeroByteFiles) ShowCategory(form, ResultCategory::ZeroByteFiles);
    if (Index == forms::ViewBrokenShortcuts) ShowCategory(form, ResultCategory::InvalidShortcuts);
    if (Index == forms::ViewGarbageFiles) ShowCategory(form, ResultCategory::GarbageFiles);
  });
}

void cboSelectResultsBrasmir_Click(frmMain& form) {
  Guarded(Procedure{"frmMain", "cboSelectResultsBrasmir_Click"}, Args(), [&] {
    if (auto shown = form.ShownCategory()) m_Results::CategoryOf(form, *shown).load(form);
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
