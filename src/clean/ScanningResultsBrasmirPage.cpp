#include "clean/ScanningResultsBrasmirPage.h"

#include <optional>

#include "clean/m_CleanFiles.h"
#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "core/Run.h"
#include "core/m_SharedProcedures.h"
#include "pages/m_Controls.h"
#include "platform/Operations.h"
#include "removal/m_Log.h"
#include "scan/m_Results.h"

namespace clean {

using core::Args;
using core::BoxIcon;
using core::Guarded;
using core::Procedure;
using core::Value;
using platform::Status;

namespace {

void Tell(const char* title, const std::string& text) {
  core::Tell(BoxIcon::Information, title, {text});
}

// What the two exclusion entries differ in.
struct Exclusion {
  controls::ListView& list;
  int icon;
  const char* prompt;
  const char* inputTitle;
  const char* refusalTitle;
  const char* refusalText;
};

void Exclude(const Exclusion& exclusion, const std::string& entry) {
  if (entry.empty()) return;
  if (m_Controls::IsAlreadyAddedToListView(entry, exclusion.list))
    return Tell(exclusion.refusalTitle, exclusion.refusalText + entry);
  std::string reason =
      platform::CurrentDesktop().InputBox(exclusion.prompt, exclusion.inputTitle, "Dangerous to remove");
  exclusion.list.SetSubItem(exclusion.list.AddRow(entry, exclusion.icon), 1, reason);
}

void CleanTicked(frmMain& form, const char* method) {
  if (m_Results::IsSelectedFiles(form)) m_CleanFiles::CleanFilesfromMenu(form, method);
}

}  // namespace

void cmdDeleteResultsBrasmir_Click(frmMain& form) {
  if (core::Run::HasBegun(core::Running::CleanBrasmir)) {
    gAppRunning->StopProcess = true;
    return;
  }
  if (core::Run::OnStack()) return;
  core::Run run(core::Running::CleanBrasmir, &form.cmdDeleteResultsBrasmir);
  removal::Remover remover(settings::Module::Brasmir);
  std::optional<core::Hourglass> hourglass;
  Guarded(Procedure{"frmMain", "cmdDeleteResultsBrasmir_Click"}, Args(), [&] {
    if (form.lvwFilesResultsBrasmir.Count() == 0 || !m_Results::IsSelectedFiles(form)) return;
    if (!m_CleanFiles::ConfirmCleaning()) return;
    hourglass.emplace();
    run.Begin();
    m_Controls::SetControlsBeforeCleaningBrsm(form);
    gAppRunning->AppRunning = true;
    gAppRunning->StopProcess = false;
    if (m_CleanFiles::BackUp(form, remover)) m_CleanFiles::CleanFilesBrsm(form, remover);
  });
  if (!hourglass) return;
  // After an unexpected failure too: a page left in its running form could start nothing any more.
  m_Controls::SetControlsAfterCleaningBrsm(form);
  gAppRunning->NewSession = false;
  gAppRunning->AppRunning = false;
  hourglass.reset();
  remover.Tell();
}

void mnuFile_Click(frmMain& form, const std::string& menuName, int itemNum, const std::string& itemText) {
  Guarded(Procedure{"frmMain", "mnuFile_Click"},
          Args(Value("menuName", menuName), Value("itemNum", itemNum), Value("itemText", itemText)), [&] {
            const controls::ListView& rows = form.lvwFilesResultsBrasmir;
            int row = rows.SelectedIndex();
            if (row == 0 || menuName != "FileMenu") return;
            const std::string folder(rows.SubItem(row, 1));
            const std::string file = rows.Path(row);
            switch (itemNum) {
              case 1:
                if (platform::ops::OpenDocument(file) != Status::Done)
                  Tell("Missing file association...", "This file does not have a program associated with it");
                break;
              case 2:
                if (platform::ops::ViewContent(file) != Status::Done)
                  Tell("Open file content...", "Open the file content failed");
                break;
              case 4:
                if (platform::ops::OpenFolder(folder) != Status::Done)
                  Tell("File container...", "Open the file container failed");
                break;
              case 6:
                CleanTicked(form, "Delete");
                break;
              case 7:
                CleanTicked(form, "Recycle bin");
                break;
              case 8:
                CleanTicked(form, "Erase");
                break;
              case 10:
                m_Log::WriteLockedFilesToLog(file);
                break;
              case 12:
                if (platform::ops::ShowProperties(file) != Status::Done)
                  Tell("File properties...", "Open the file properties failed");
                break;
              case 14:
                Exclude({form.lvwExcludedFilesBrasmir, forms::IconExcludedFile, "Why exclude this file",
                         "Exclude file", "Exclude file...", "File is already added to the list "},
                        file);
                break;
              case 15:
                Exclude({form.lvwExcludedFoldersBrasmir, forms::IconExcludedDirectory,
                         "Why exclude this directory", "Exclude directory", "Exclude directory...",
                         "Directory is already added to the list "},
                        folder);
                break;
              default:
                break;
            }
          });
}

}  // namespace clean
