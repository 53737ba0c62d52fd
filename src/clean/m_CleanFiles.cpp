#include "clean/m_CleanFiles.h"

#include <optional>

#include "backup/m_BackupRestore.h"
#include "clean/ShownResults.h"
#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "core/Numbers.h"
#include "core/Run.h"
#include "core/m_SharedProcedures.h"
#include "pages/m_Controls.h"
#include "platform/LibFile.h"
#include "scan/ListAside.h"

platform::CountedList gSelectedFiles;

namespace m_CleanFiles {

using controls::ListView;
using core::Args;
using core::Array;
using core::Guarded;
using core::IsOne;
using core::Object;
using core::Procedure;
using core::Value;
using platform::CountedList;
using removal::Fate;
using removal::Outcome;
using removal::Remover;
using settings::CleaningMethod;

namespace {

// What a run by button and a run by menu differ in, but for its beginning and its end.
struct Way {
  // Without one the settings are asked anew for each file.
  std::optional<CleaningMethod> method;
  bool listBeforeBooks;
};

void ShowFate(frmMain& form, Fate fate, Outcome outcome) {
  if (fate == Fate::Counted) return;
  form.TellLocked(fate == Fate::HandedOver    ? forms::LockedFiles::HandedOver
                  : outcome == Outcome::NoBin ? forms::LockedFiles::NoBin
                                              : forms::LockedFiles::Stay);
  platform::CurrentDesktop().Refresh(form.lblUserInfoResultsBrasmir[forms::LockedFilesLine]);
}

void CleanTickedFiles(frmMain& form, const Way& way, Remover& remover) {
  form.lblUserInfoResultsBrasmir[forms::ResultsProgress].Caption = "Deleting files...";
  CollectSelectedFiles(form, gSelectedFiles);
  if (!gSelectedFiles.Empty()) {
    controls::ProgressBar& bar = form.prgProgressResultsBrasmir;
    bar.Max = gSelectedFiles.UpperBound();
    scan::ListAside aside(gSelectedFiles);
    const CountedList& selected = aside.List();
    ShownResults shown(form);
    std::string file;
    for (int i = 0; i < selected.UpperBound(); ++i) {
      if (gAppRunning->StopProcess) break;
      selected.Get(i, file);
      platform::CurrentDesktop().DoEvents();
      long size = platform::LibFile().GetSize(file);
      Outcome outcome = remover.Remove(file, way.method ? *way.method : remover.Method());
      long result = outcome == Outcome::Removed ? 1 : 0;
      if (way.listBeforeBooks) shown.Update(file, result);
      ShowFate(form, remover.KeepBooks(file, size, outcome), outcome);
      if (!way.listBeforeBooks) shown.Update(file, result);
      bar.Value = i + 1;
    }
  }
  form.prgProgressResultsBrasmir.Value = 0;
}

}  // namespace

void CleanFilesBrsm(frmMain& form, Remover& remover) {
  Guarded(Procedure{"m_CleanFiles", "CleanFilesBrsm"}, Args(Object{"frmMain"}), [&] {
    CleanTickedFiles(form, {std::nullopt, true}, remover);
  });
}

bool BackUp(frmMain& form, Remover& remover) {
  return !IsOne(gRegistry->UseBackupBrsm) ||
         m_BackupRestore::BackupSelectedFilesBrsm(form, remover.BeginBackup().promise);
}

bool ConfirmCleaning() {
  return !IsOne(gRegistry->ConfirmCleaningBrsm) ||
         core::Ask(core::BoxIcon::Information, "Delete files", {"Confirm delete all selected files"});
}

void CleanFilesfromMenu(frmMain& form, const std::string& sMethod) {
  if (core::Run::OnStack()) return;
  core::Run run(core::Running::CleanBrasmir, &form.cmdDeleteResultsBrasmir);
  Remover remover(settings::Module::Brasmir);
  platform::Desktop& desktop = platform::CurrentDesktop();
  Guarded(Procedure{"m_CleanFiles", "CleanFilesfromMenu"}, Args(Object{"frmMain"}, Value("sMethod", sMethod)),
          [&] {
            if (!ConfirmCleaning()) return;
            gAppRunning->StopProcess = false;
            gAppRunning->AppRunning = true;
            desktop.SetPointer(platform::Pointer::Hourglass);
            run.Begin();
            m_Controls::SetControlsBeforeCleaningBrsm(form);
            if (!BackUp(form, remover)) return;
            CleanTickedFiles(form, {settings::MethodNamed(sMethod), false}, remover);
            gAppRunning->NewSession = false;
          });
  // After an unexpected failure too: a page left in its running form could start nothing any more.
  form.prgProgressResultsBrasmir.Value = 0;
  m_Controls::SetControlsAfterCleaningBrsm(form);
  gAppRunning->AppRunning = false;
  desktop.SetPointer(platform::Pointer::Default);
  remover.Tell();
}

void CollectSelectedFiles(frmMain& form, CountedList& sFiles) {
  Guarded(Procedure{"m_CleanFiles", "CollectSelectedFiles"},
          Args(Object{"frmMain"}, Array{"sFiles()"}, Value("lFilesIndex", sFiles.UpperBound())), [&] {
            const ListView& rows = form.lvwFilesResultsBrasmir;
            sFiles.Reset();
            sFiles.Reserve(rows.CheckedCount());
            rows.ForEach([&](int row) {
              if (rows.Checked(row)) sFiles.AddIn(rows.SubItem(row, 1), rows.Text(row));
            });
          });
}

}  // namespace m_CleanFiles
