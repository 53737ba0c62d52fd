#include "scan/m_Results.h"

#include <charconv>
#include <stdexcept>
#include <utility>

#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "core/Text.h"
#include "core/m_SharedProcedures.h"
#include "platform/LibFile.h"
#include "platform/LibPath.h"
#include "scan/FilterSet.h"
#include "scan/FoundFile.h"

namespace m_Results {

using controls::ListView;
using core::Args;
using core::Guarded;
using core::Object;
using core::Procedure;
using platform::CountedList;

namespace {

// The row of a file, with its size as of now.
void AddFileRow(ListView& rows, const scan::FoundFile& file) {
  int row = rows.AddRow(file.Name(), forms::IconFileFilter);
  rows.SetSubItem(row, 1, file.Folder());
  char size[24];
  auto end = std::to_chars(size, size + sizeof size, platform::LibFile().GetSize(file.Path())).ptr;
  rows.SetSubItem(row, 2, std::string_view(size, static_cast<std::size_t>(end - size)));
}

void Load(frmMain& form, const char* procedure, const CountedList& list, const char* totalCaption) {
  Guarded(Procedure{"m_Results", procedure}, Args(Object{"frmMain"}), [&] {
    core::Hourglass hourglass;
    ListView& rows = form.lvwFilesResultsBrasmir;
    controls::Label& progress = form.lblUserInfoResultsBrasmir[forms::ResultsProgress];
    platform::Desktop& desktop = platform::CurrentDesktop();
    rows.Clear();
    rows.Reserve(list.UpperBound());
    const int last = list.UpperBound() - 1;
    const std::string behind = std::string("/").append(std::to_string(last));
    for (int i = 0; i <= last; ++i) {
      progress.Caption = "Loading..." + std::to_string(i) + behind;
      desktop.Breathe();
      AddFileRow(rows, scan::FoundFile(list, i));
    }
    progress.Caption = std::to_string(rows.Count()) + totalCaption;
  });
}

}  // namespace

void LoadGarbageFiles(frmMain& form) {
  Load(form, "LoadGarbageFiles", gGarbageFiles, " Garbage files");
}
void LoadZeroByteFiles(frmMain& form) {
  Load(form, "LoadZeroByteFiles", gZeroByteFiles, " Zero byte files");
}
void LoadInvalidShortCuts(frmMain& form) {
  Load(form, "LoadInvalidShortCuts", gInvalidShortcuts, " Invalid shortcuts");
}

bool IsSelectedFiles(frmMain& form) {
  return Guarded(Procedure{"m_Results", "IsSelectedFiles"}, Args(Object{"frmMain"}),
                 [&] { return form.lvwFilesResultsBrasmir.CheckedCount() > 0; });
}

void NarrowRows(frmMain& form, const std::string& text) {
  ListView& rows = form.lvwFilesResultsBrasmir;
  controls::Label& progress = form.lblUserInfoResultsBrasmir[forms::ResultsProgress];
  CountedList paths;
  paths.Reserve(rows.Count());
  rows.ForEach([&](int row) { paths.AddIn(rows.SubItem(row, 1), rows.Text(row)); });
  rows.Clear();

  const core::Part part(text);
  std::string_view folder;
  bool folderKept = false;
  for (int i = 0; i < paths.UpperBound(); ++i) {
    scan::FoundFile file(paths, i);
    // Neighbours often share a folder, and then its text lies in the same place.
    if (i == 0 || file.Folder().data() != folder.data() || file.Folder().size() != folder.size()) {
      folder = file.Folder();
      folderKept = part.In(platform::LibPath().GetFolder(file.Path()));
    }
    if (folderKept || core::Contains(text, scan::ExtensionOf(file.Name()))) AddFileRow(rows, file);
    progress.Caption = std::to_string(i + 1) + "... Loaded";
    platform::CurrentDesktop().Breathe();
  }
  progress.Caption = std::to_string(rows.Count()) + " Files";
}

Category CategoryOf(frmMain& form, forms::ResultCategory category) {
  switch (category) {
    case forms::ResultCategory::GarbageFiles:
      return {"Garbage files", LoadGarbageFiles, gGarbageFiles, form.lblGarbageFilesScanComputerBrasmir};
    case forms::ResultCategory::ZeroByteFiles:
      return {"Zero byte files", LoadZeroByteFiles, gZeroByteFiles, form.lblZeroByteFilesScanComputerBrasmir};
    case forms::ResultCategory::InvalidShortcuts:
      return {"Invalid shortcuts", LoadInvalidShortCuts, gInvalidShortcuts,
              form.lblBrokenShortcutsScanComputerBrasmir};
  }
  throw std::logic_error("no such category");
}

void OfferCategories(frmMain& form, const std::vector<forms::ResultCategory>& categories) {
  form.OfferedCategories = categories;
  form.cboSelectResultsBrasmir.Clear();
  for (forms::ResultCategory category : categories)
    form.cboSelectResultsBrasmir.AddItem(CategoryOf(form, category).name);
}

}  // namespace m_Results
