#include "scan/FileFiltersBrasmirPage.h"

#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "scan/ExcludedZeroByteFilesFileFilters.h"
#include "scan/m_FileFilters.h"

namespace scan {

using core::Args;
using core::BoxIcon;
using core::Guarded;
using core::Procedure;

void cmdAddFileFiltersBrasmir_Click(frmMain& form) {
  Guarded(Procedure{"frmMain", "cmdAddFileFiltersBrasmir_Click"}, Args(), [&] {
    const std::string filter = form.txtFilterFileFiltersBrasmir.Text;
    if (filter.empty()) return m_FileFilters::AskForFilter();
    m_FileFilters::AddFileFilter(form, filter, form.txtDescriptionFileFiltersBrasmir.Text);
  });
}

void cmdModifyFileFiltersBrasmir_Click(frmMain& form) {
  Guarded(Procedure{"frmMain", "cmdModifyFileFiltersBrasmir_Click"}, Args(), [&] {
    if (int row = form.lvwFileFiltersBrasmir.SelectedIndex()) m_FileFilters::ModifyFileFilter(form, row);
  });
}

void cmdRemoveFileFiltersBrasmir_Click(frmMain& form) {
  Guarded(Procedure{"frmMain", "cmdRemoveFileFiltersBrasmir_Click"}, Args(), [&] {
    if (int row = form.lvwFileFiltersBrasmir.SelectedIndex()) m_FileFilters::RemoveFileFilter(form, row);
  });
}

void cmdSelectAllFileFiltersBrasmir_Click(frmMain& form) {
  Guarded(Procedure{"frmMain", "cmdSelectAllFileFiltersBrasmir_Click"}, Args(),
          [&] { form.lvwFileFiltersBrasmir.CheckAll(true); });
}

void cmdUnSelectAllFileFiltersBrasmir_Click(frmMain& form) {
  Guarded(Procedure{"frmMain", "cmdUnSelectAllFileFiltersBrasmir_Click"}, Args(),
          [&] { form.lvwFileFiltersBrasmir.CheckAll(false); });
}

void lblTestFilterFileFiltersBrasmir_Click(frmMain& form) {
  Guarded(Procedure{"frmMain", "lblTestFilterFileFiltersBrasmir_Click"}, Args(), [&] {
    const std::string name = form.txtFileNameFileFiltersBrasmir.Text;
    const std::string filter = form.txtFilterFileFiltersBrasmir.Text;
    if (name.empty() || filter.empty()) {
      core::Tell(BoxIcon::Information, "Test filter...",
                 {"Type in Filter and File name to test filter against the scan engine"});
      return;
    }
    form.lblUserInfoFileFiltersBrasmir.Caption =
        m_FileFilters::TestFileFilter(name, filter) ? "Filter matched..." : "No filter match...";
  });
}

void lvwFileFiltersBrasmir_Click(frmMain& form) {
  Guarded(Procedure{"frmMain", "lvwFileFiltersBrasmir_Click"}, Args(),
          [&] { m_FileFilters::AbandonEdit(form); });
}

void lblExcludeZeroByteFilesFileFiltersBrasmir_Click() {
  Guarded(Procedure{"frmMain", "lblExcludeZeroByteFilesFileFiltersBrasmir_Click"}, Args(),
          [] { ShowExcludedZeroByteFilesFileFilters(); });
}

}  // namespace scan
