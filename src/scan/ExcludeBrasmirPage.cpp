#include "scan/ExcludeBrasmirPage.h"

#include <string>

#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "core/Keys.h"
#include "core/m_SharedProcedures.h"
#include "pages/m_Controls.h"
#include "platform/LibFile.h"
#include "platform/LibRegistry.h"
#include "platform/LibShell.h"
#include "settings/StoredRow.h"
#include "settings/m_RegistryLists.h"

namespace scan {

using controls::ListView;
using core::Args;
using core::BoxIcon;
using core::Guarded;
using core::Procedure;
using platform::LibRegistry;

namespace {

// What the two halves of the page differ in.
struct Kind {
  ListView forms::ExcludeBrasmirPage::*list;
  int icon;
  const char* key;
  const char* firstPrompt;
  const char* boxTitle;
  const char* duplicateTitle;
  const char* duplicateText;
  const char* reasonPrompt;
  const char* defaultReason;
  const char* removeTitle;
  const char* removeText;
  const char* saveFailure;
  std::string (*pick)();
};

const Kind kDirectories = {&forms::ExcludeBrasmirPage::lvwExcludedFoldersBrasmir,
                           forms::IconExcludedDirectory,
                           core::keys::kExcludedDirectories,
                           "Type in directory path to exclude",
                           "Exclude directory",
                           "Exclude directory...",
                           "Directory is already added to the list ",
                           "Why exclude this directory",
                           "Dangerous to remove files in",
                           "Remove Directory",
                           "Confirm remove Directory: ",
                           "Saving excluded directories to registry failed",
                           [] { return platform::LibShell().BrowseForFolder(); }};

const Kind kFiles = {&forms::ExcludeBrasmirPage::lvwExcludedFilesBrasmir,
                     forms::IconExcludedFile,
                     core::keys::kExcludedFiles,
                     "Type in file to exclude",
                     "Exclude file",
                     "Exclude file...",
                     "File is already added to the list ",
                     "Why exclude this file",
                     "Dangerous to remove",
                     "Remove File",
                     "Confirm remove File: ",
                     "Saving excluded files to registry failed",
                     [] { return platform::LibFile().BrowseForFile(); }};

std::string AskForEntry(const frmMain& form, const Kind& kind, const std::string& typedDefault) {
  if (form.chkEnableManualTypingExcludeBrasmir.Value == 0) return kind.pick();
  return platform::CurrentDesktop().InputBox(kind.firstPrompt, kind.boxTitle, typedDefault);
}

std::string AskForReason(const Kind& kind, const std::string& presentReason) {
  return platform::CurrentDesktop().InputBox(kind.reasonPrompt, kind.boxTitle, presentReason);
}

void TellDuplicate(const Kind& kind) {
  core::Tell(BoxIcon::Exclamation, kind.duplicateTitle, {kind.duplicateText});
}

void Add(frmMain& form, const Kind& kind) {
  ListView& list = form.*kind.list;
  std::string entry = AskForEntry(form, kind, "\\");
  if (entry.empty()) return;
  if (m_Controls::IsAlreadyAddedToListView(entry, list)) return TellDuplicate(kind);
  std::string reason = AskForReason(kind, kind.defaultReason);
  list.SetSubItem(list.AddRow(entry, kind.icon), 1, reason);
}

void Remove(frmMain& form, const Kind& kind) {
  ListView& list = form.*kind.list;
  int row = list.SelectedIndex();
  if (row == 0) return;
  std::string entry(list.Text(row));
  if (!core::Ask(BoxIcon::Critical, kind.removeTitle, {kind.removeText + entry})) return;
  LibRegistry().DeleteValue(gRegistry->HKEY_CURRENT_USER, kind.key, entry);
  list.RemoveRow(row);
}

void Modify(frmMain& form, const Kind& kind) {
  ListView& list = form.*kind.list;
  int row = list.SelectedIndex();
  if (row == 0) return;
  const std::string old(list.Text(row)), reason(list.SubItem(row, 1));
  std::string entry = AskForEntry(form, kind, old);
  if (!entry.empty()) {
    if (m_Controls::IsAlreadyAddedToListView(entry, list)) {
      TellDuplicate(kind);
    } else if (long code = settings::RenameRow(old, entry, {{kind.key, reason}})) {
      core::TellRegistryError(kind.saveFailure, code);
    } else {
      list.SetText(row, entry);
    }
  }
  std::string newReason = AskForReason(kind, reason);
  if (!newReason.empty()) list.SetSubItem(row, 1, newReason);
}

// From both lists to one that has the whole page, and back.
void Toggle(frmMain& form, forms::ExcludeLists one) {
  form.ShownLists = form.ShownLists == one ? forms::ExcludeLists::Both : one;
  const bool directoriesExpanded = form.ShownLists == forms::ExcludeLists::Directories;
  const bool filesExpanded = form.ShownLists == forms::ExcludeLists::Files;
  form.lvwExcludedFoldersBrasmir.Visible = !filesExpanded;
  for (controls::Button* button :
       {&form.cmdAddDirectorieExcludeBrasmir, &form.cmdRemoveDirectorieExcludeBrasmir,
        &form.cmdModifyDirectorieExcludeBrasmir})
    button->Visible = !filesExpanded;
  form.lvwExcludedFilesBrasmir.Visible = !directoriesExpanded;
  for (controls::Button* button :
       {&form.cmdAddFileExcludeBrasmir, &form.cmdRemoveFileExcludeBrasmir, &form.cmdModifyFileExcludeBrasmir})
    button->Visible = !directoriesExpanded;
  form.cmdExpandDirectoryExcludeBrasmir.Enabled = !filesExpanded;
  form.cmdExpandFileExcludeBrasmir.Enabled = !directoriesExpanded;
  form.lblInfo[forms::ExcludeHeading].Caption = filesExpanded ? "Excluded files" : "Excluded directories";
}

}  // namespace

void cmdAddDirectorieExcludeBrasmir_Click(frmMain& form) {
  Guarded(Procedure{"frmMain", "cmdAddDirectorieExcludeBrasmir_Click"}, Args(),
          [&] { Add(form, kDirectories); });
}
void cmdRemoveDirectorieExcludeBrasmir_Click(frmMain& form) {
  Guarded(Procedure{"frmMain", "cmdRemoveDirectorieExcludeBrasmir_Click"}, Args(),
          [&] { Remove(form, kDirectories); });
}
void cmdModifyDirectorieExcludeBrasmir_Click(frmMain& form) {
  Guarded(Procedure{"frmMain", "cmdModifyDirectorieExcludeBrasmir_Click"}, Args(),
          [&] { Modify(form, kDirectories); });
}
void cmdAddFileExcludeBrasmir_Click(frmMain& form) {
  Guarded(Procedure{"frmMain", "cmdAddFileExcludeBrasmir_Click"}, Args(), [&] { Add(form, kFiles); });
}
void cmdRemoveFileExcludeBrasmir_Click(frmMain& form) {
  Guarded(Procedure{"frmMain", "cmdRemoveFileExcludeBrasmir_Click"}, Args(), [&] { Remove(form, kFiles); });
}
void cmdModifyFileExcludeBrasmir_Click(frmMain& form) {
  Guarded(Procedure{"frmMain", "cmdModifyFileExcludeBrasmir_Click"}, Args(), [&] { Modify(form, kFiles); });
}
void cmdExpandDirectoryExcludeBrasmir_Click(frmMain& form) {
  Guarded(Procedure{"frmMain", "cmdExpandDirectoryExcludeBrasmir_Click"}, Args(),
          [&] { Toggle(form, forms::ExcludeLists::Directories); });
}
void cmdExpandFileExcludeBrasmir_Click(frmMain& form) {
  Guarded(Procedure{"frmMain", "cmdExpandFileExcludeBrasmir_Click"}, Args(),
          [&] { Toggle(form, forms::ExcludeLists::Files); });
}

}  // namespace scan
