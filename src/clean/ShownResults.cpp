#include "clean/ShownResults.h"

#include "core/ErrorReport.h"
#include "platform/Desktop.h"
#include "scan/m_Results.h"

namespace m_CleanFiles {

using controls::ListView;
using core::Value;

namespace {

// A million rows take longer than the window may stand still.
constexpr int kRowsInABreath = 10'000;

void Rebuild(platform::CountedList& list, const ListView& rows) {
  list.Reset();
  list.Reserve(rows.Count());
  rows.ForEach([&](int row) {
    list.AddIn(rows.SubItem(row, 1), rows.Text(row));
    if (row % kRowsInABreath == 0) platform::CurrentDesktop().Breathe();
  });
}

}  // namespace

void ShownResults::Update(const std::string& sFile, long lResult) {
  core::Guarded(core::Procedure{"m_CleanFiles", "UpdateFileList"},
                core::Args(core::Object{"frmMain"}, Value("sFile", sFile), Value("lResult", lResult)), [&] {
                  ListView& rows = form_.lvwFilesResultsBrasmir;
                  auto shown = form_.ShownCategory();
                  platform::CountedList* list = shown ? &m_Results::CategoryOf(form_, *shown).list : nullptr;
                  bool alike = list && list == list_ && rows.Version() == version_;
                  if (list && !alike) Rebuild(*list, rows);
                  if (lResult == 1) {
                    if (int row = rows.FindPath(sFile)) {
                      rows.RemoveRow(row);
                      if (list) list->Remove(row - 1);
                      platform::CurrentDesktop().Refresh(rows);
                    }
                  }
                  if (!list) return;
                  m_Results::CategoryOf(form_, *shown).count.Caption = std::to_string(rows.Count());
                  list_ = list;
                  version_ = rows.Version();
                });
}

}  // namespace m_CleanFiles
