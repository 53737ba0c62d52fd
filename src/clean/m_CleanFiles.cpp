#include "clean/m_CleanFiles.h"

#include <algorithm>
#include <map>
#include <utility>

#include "backup/m_BackupRestore.h"
#include "clean/ShownResults.h"
#include "clean/m_Log.h"
#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "core/Numbers.h"
#include "core/Run.h"
#include "core/m_SharedProcedures.h"
#include "platform/LibDisk.h"
#include "platform/LibEraser.h"
#include "platform/LibFile.h"
#include "platform/LibPath.h"
#include "scan/ListAside.h"
#include "ui/controls/m_Controls.h"

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

namespace {

enum class Method { RecycleBin, Erase, Delete };

Method ConfiguredMethod() {
  if (IsOne(gRegistry->MoveFilesToRecyclebinBrsm)) return Method::RecycleBin;
  if (IsOne(gRegistry->EraseFilesBrsm)) return Method::Erase;
  return Method::Delete;
}

Method MethodNamed(const std::string& word) {
  if (word == "Recycle bin") return Method::RecycleBin;
  if (word == "Erase") return Method::Erase;
  return Method::Delete;
}

// The cluster size of a file's drive, asked once for each drive.
class ClusterSizes {
 public:
  long Of(const std::string& file) {
    std::string root = platform::LibPath().GetDriveRoot(file);
    auto [place, isNew] = sizes_.try_emplace(std::move(root), 0);
    if (isNew) place->second = platform::LibDisk().ClusterSize(place->first);
    return place->second;
  }

 private:
  std::map<std::string, long> sizes_;
};

// 1 if the file is gone.
long Remove(const std::string& file, Method method, long clusterSize) {
  switch (method) {
    case Method::RecycleBin:
      // Here 0 is the answer for done.
      return platform::LibFile().MoveToRecycleBin(file) == 0 ? 1 : 0;
    case Method::Erase:
      return platform::LibEraser().EraseFile(file, core::ToInteger(gRegistry->ErasePassesBrsm), clusterSize);
    case Method::Delete:
      break;
  }
  return platform::LibFile().Delete(file);
}

// Counts what was removed, and hands over or tells what was not. A file that the backup left out isn't handed
// over: it would go at the next boot without having been saved.
void KeepBooks(frmMain& form, const std::string& file, long size, long outcome, bool leftOut) {
  controls::Label& fate = form.lblUserInfoResultsBrasmir[1];
  if (outcome == 0 && !leftOut && IsOne(gRegistry->DeleteOnWindowsStartupBrsm)) {
    m_Log::WriteLockedFilesToLog(file);
    fate.Caption = "Locked files will be deleted on next Windows boot.";
  } else if (outcome != 0) {
    gCleaningStatus->FilesDeleted += 1;
    // A link has no size of its own.
    gCleaningStatus->SizeFreedUp += static_cast<double>(std::max(size, 0L));
    return;
  } else {
    fate.Caption = "Files are locked and can't be deleted.";
  }
  platform::CurrentDesktop().Refresh(fate);
}

// What a run by button and a run by menu differ in, but for its beginning and its end.
struct Way {
  // Asked anew for each file.
  Method (*configured)();
  Method fixed;
  bool listBeforeBooks;
};

void CleanTickedFiles(frmMain& form, const Way& way, bool backedUp) {
  form.lblUserInfoResultsBrasmir[0].Caption = "Deleting files...";
  CollectSelectedFiles(form, gSelectedFiles);
  if (!gSelectedFiles.Empty()) {
    controls::ProgressBar& bar = form.prgProgressResultsBrasmir;
    bar.Max = gSelectedFiles.UpperBound();
    scan::ListAside aside(gSelectedFiles);
    const CountedList& selected = aside.List();
    ShownResults shown(form);
    ClusterSizes clusterSizes;
    std::string file;
    for (int i = 0; i < selected.UpperBound(); ++i) {
      if (gAppRunning->StopProcess) break;
      selected.Get(i, file);
      long clusterSize = clusterSizes.Of(file);
      platform::CurrentDesktop().DoEvents();
      long size = platform::LibFile().GetSize(file);
      Method method = way.configured ? way.configured() : way.fixed;
      // What the backup could not take stays.
      bool leftOut = backedUp && m_BackupRestore::WasLeftOut(file);
      long outcome = leftOut ? 0 : Remove(file, method, clusterSize);
      if (way.listBeforeBooks) shown.Update(file, outcome);
      KeepBooks(form, file, size, outcome, leftOut);
      if (!way.listBeforeBooks) shown.Update(file, outcome);
      bar.Value = i + 1;
    }
  }
  form.prgProgressResultsBrasmir.Value = 0;
}

}  // namespace

void CleanFilesBrsm(frmMain& form, bool backedUp) {
  Guarded(Procedure{"m_CleanFiles", "CleanFilesBrsm"}, Args(Object{"frmMain"}), [&] {
    CleanTickedFiles(form, {ConfiguredMethod, Method::Delete, true}, backedUp);
  });
}

bool ConfirmCleaning() {
  return !IsOne(gRegistry->ConfirmCleaningBrsm) ||
         core::Ask(core::BoxIcon::Information, "Delete files", {"Confirm delete all selected files"});
}

void CleanFilesfromMenu(frmMain& form, const std::string& sMethod) {
  if (core::Run::OnStack()) return;
  core::Run run(&form.cmdDeleteResultsBrasmir);
  platform::Desktop& desktop = platform::CurrentDesktop();
  Guarded(Procedure{"m_CleanFiles", "CleanFilesfromMenu"}, Args(Object{"frmMain"}, Value("sMethod", sMethod)),
          [&] {
            if (!ConfirmCleaning()) return;
            gAppRunning->StopProcess = false;
            gAppRunning->AppRunning = true;
            desktop.SetPointer(platform::Pointer::Hourglass);
            m_Controls::SetControlsBeforeCleaningBrsm(form);
            bool backup = IsOne(gRegistry->UseBackupBrsm);
            if (backup && !m_BackupRestore::BackupSelectedFilesBrsm(form)) return;
            CleanTickedFiles(form, {nullptr, MethodNamed(sMethod), false}, backup);
            gAppRunning->NewSession = false;
          });
  // After an unexpected failure too: a page left in its running form could start nothing any more.
  form.prgProgressResultsBrasmir.Value = 0;
  m_Controls::SetControlsAfterCleaningBrsm(form);
  gAppRunning->AppRunning = false;
  desktop.SetPointer(platform::Pointer::Default);
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

void UpdateFileList(frmMain& form, const std::string& sFile, long lResult) {
  ShownResults(form).Update(sFile, lResult);
}

}  // namespace m_CleanFiles
