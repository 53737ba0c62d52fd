#include "lumaro/UserDefinedFoldersLumaroPage.h"

#include <string>
#include <string_view>

#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "core/Keys.h"
#include "core/Numbers.h"
#include "core/Text.h"
#include "core/m_SharedProcedures.h"
#include "pages/m_Controls.h"
#include "platform/Desktop.h"
#include "platform/Guard.h"
#include "platform/LibPath.h"
#include "platform/LibRegistry.h"
#include "platform/LibShell.h"
#include "platform/LibSmall.h"
#include "platform/Listings.h"
#include "platform/Operations.h"
#include "scan/m_Excluded.h"
#include "settings/StoredRow.h"
#include "settings/m_RegistryLists.h"

namespace lumaro {

namespace {

using core::Args;
using core::BoxIcon;
using core::Guarded;
using core::NumberText;
using platform::CurrentDesktop;

constexpr char kDescription[] = "Garbage folder";
constexpr char kTitle[] = "User Defined Folders...";

core::Procedure Here(const char* procedure) {
  return {"frmMain", procedure};
}

struct Measured {
  bool failed = false;
  int files = 0, folders = 0;
  double kilobytes = 0;
};

// Nothing for a folder that can't be listed or is never cleared.
Measured Measure(const std::string& folder) {
  platform::CountedList files, folders;
  Measured measured;
  measured.failed = platform::ops::ListAll(folder, files, folders) != platform::Status::Done;
  if (measured.failed) return measured;
  measured.files = files.UpperBound();
  measured.folders = folders.UpperBound();
  measured.kilobytes = platform::LibSize().BytesToKilobytes(platform::ops::SizeBelow(folder));
  return measured;
}

void ShowTotals(frmMain& form, const Measured& all) {
  form.lblTotalFilesUserDefinedFoldersLumaro[forms::AllTickedFolders].Caption =
      "Total files: " + std::to_string(all.files);
  form.lblTotalFoldersUserDefinedFoldersLumaro[forms::AllTickedFolders].Caption =
      "Total folders: " + std::to_string(all.folders);
  form.lblTotalSpaceUserDefinedFoldersLumaro[forms::AllTickedFolders].Caption =
      "Total space: " + NumberText(all.kilobytes) + " KB";
}

void ShowSelected(frmMain& form, const Measured& one) {
  form.lblTotalFilesUserDefinedFoldersLumaro[forms::SelectedFolder].Caption =
      "Files: " + std::to_string(one.files);
  form.lblTotalFoldersUserDefinedFoldersLumaro[forms::SelectedFolder].Caption =
      "Folders: " + std::to_string(one.folders);
  form.lblTotalSpaceUserDefinedFoldersLumaro[forms::SelectedFolder].Caption =
      "Space: " + NumberText(one.kilobytes) + " KB";
}

void MeasureFolders(frmMain& form) {
  controls::ListView& list = form.lvwUserDefinedFoldersLumaro;
  if (list.Count() == 0) {
    ShowSelected(form, {});
    ShowTotals(form, {});
    return;
  }
  // The selected row is often ticked as well, and isn't measured twice then.
  int selected = list.SelectedIndex();
  Measured one;
  if (selected != 0) {
    one = Measure(std::string(list.Text(selected)));
    if (one.failed)
      core::Tell(BoxIcon::Critical, "Drive error...",
                 {"Scanning drive returned with error", "Scanning drive will be terminated"});
    else
      ShowSelected(form, one);
  }
  Measured all;
  for (int row = 1; row <= list.Count(); ++row) {
    if (!list.Checked(row)) continue;
    Measured ticked = row == selected ? one : Measure(std::string(list.Text(row)));
    all.files += ticked.files;
    all.folders += ticked.folders;
    all.kilobytes += ticked.kilobytes;
  }
  ShowTotals(form, all);
}

void AddFolder(frmMain& form, const std::string& folder, const std::string& description) {
  controls::ListView& list = form.lvwUserDefinedFoldersLumaro;
  list.SetSubItem(list.AddRow(folder, forms::IconClearFolder), 1, description);
}

void DeleteFromStore(const std::string& folder) {
  platform::LibRegistry registry;
  platform::RegistryTransaction transaction;
  registry.DeleteValue(gRegistry->HKEY_CURRENT_USER, core::keys::kUserDefinedFolders, folder);
  registry.DeleteValue(gRegistry->HKEY_CURRENT_USER, core::keys::kSelectedUserDefinedFolders, folder);
}

// Asks about a folder in which users keep their own files, and refuses one that is never cleared.
bool MayBeListed(const std::string& folder) {
  const platform::ClearingAnswer answer = platform::MayClear(folder);
  const std::string because = "Because " + std::string(answer.reason);
  switch (answer.clearing) {
    case platform::Clearing::Allowed:
      break;
    case platform::Clearing::UsersOwn:
      return core::Ask(
          BoxIcon::Exclamation, kTitle,
          {"Clearing this folder removes all files in it: " + folder, because + ", nothing clears it unasked",
           "Clear it all the same, whenever Lumaro cleans?"});
    case platform::Clearing::Refused:
      core::Tell(BoxIcon::Exclamation, kTitle, {"This folder is never cleared: " + folder, because});
      return false;
  }
  return true;
}

std::string AskForDescription(const std::string& present) {
  return CurrentDesktop().InputBox("Why clear this folder", "Clear folder", present);
}

// All folders below the drives of the module Brasmir's list, ticked or not, or below one that the user picks.
void ListFolders(frmMain& form, platform::CountedList& folders) {
  if (form.chkStartListInFolderUserDefinedFoldersLumaro.Value != 0) {
    std::string start = platform::LibShell().BrowseForFolder();
    if (!start.empty()) platform::ops::ListFolders(start, folders);
    return;
  }
  platform::CountedList drives;
  platform::LibRegistry().EnumValues(gRegistry->HKEY_CURRENT_USER, core::keys::kDrives, drives);
  for (int i = 0; i < drives.UpperBound(); ++i) platform::ops::ListFolders(drives[i], folders);
}

void AddFoldersOfName(frmMain& form, const std::string& name, const platform::CountedList& folders) {
  std::string wanted = core::Fold(name);
  std::string folder, kept, reason;
  int keptFolders = 0;
  for (int i = 0; i < folders.UpperBound(); ++i) {
    if (core::Fold(platform::LibPath().GetBaseName(folders.NameText(i))) != wanted) continue;
    folders.Get(i, folder);
    if (m_Controls::IsAlreadyAddedToListView(folder, form.lvwUserDefinedFoldersLumaro) ||
        m_Excluded::IsExcludedUserDefinedFolderLmro(folder))
      continue;
    const platform::ClearingAnswer answer = platform::MayClear(folder);
    if (answer.clearing == platform::Clearing::Allowed) {
      AddFolder(form, folder, kDescription);
    } else if (keptFolders++ == 0) {
      kept = folder;
      reason = answer.reason;
    }
  }
  if (keptFolders > 0)
    core::Tell(BoxIcon::Exclamation, kTitle,
               {"Not listed, because they aren't cleared unasked: " + std::to_string(keptFolders),
                "The first: " + kept, "Because " + reason});
}

}  // namespace

void lvwUserDefinedFoldersLumaro_Click(frmMain& form) {
  Guarded(Here("lvwUserDefinedFoldersLumaro_Click"), Args(), [&] {
    core::Hourglass hourglass;
    MeasureFolders(form);
  });
}

void lvwUserDefinedFoldersLumaro_DblClick(frmMain& form) {
  Guarded(Here("lvwUserDefinedFoldersLumaro_DblClick"), Args(), [&] {
    const controls::ListView& list = form.lvwUserDefinedFoldersLumaro;
    if (list.SelectedIndex() == 0) return;
    std::string folder(list.Text(list.SelectedIndex()));
    if (platform::ops::OpenFolder(folder) != platform::Status::Done)
      core::Tell(BoxIcon::Critical, "Open directory...", {"Open the directory " + folder + " failed"});
  });
}

void cmdAddUserDefinedFoldersLumaro_Click(frmMain& form) {
  Guarded(Here("cmdAddUserDefinedFoldersLumaro_Click"), Args(), [&] {
    std::string folder = platform::LibShell().BrowseForFolder();
    if (folder.empty()) return;
    if (m_Controls::IsAlreadyAddedToListView(folder, form.lvwUserDefinedFoldersLumaro) ||
        m_Excluded::IsExcludedUserDefinedFolderLmro(folder)) {
      core::Tell(BoxIcon::Exclamation, kTitle,
                 {"Folder is already added to the list, or built into Lumaro " + folder});
      return;
    }
    if (!MayBeListed(folder)) return;
    AddFolder(form, folder, AskForDescription(kDescription));
    CurrentDesktop().DoEvents();
  });
}

void cmdRemoveUserDefinedFoldersLumaro_Click(frmMain& form) {
  Guarded(Here("cmdRemoveUserDefinedFoldersLumaro_Click"), Args(), [&] {
    controls::ListView& list = form.lvwUserDefinedFoldersLumaro;
    int row = list.SelectedIndex();
    if (row == 0) return;
    std::string folder(list.Text(row));
    if (!core::Ask(BoxIcon::Exclamation, "Remove Folder",
                   {"Confirm remove folder: " + folder, "Folder will only be removed from the Folder List"}))
      return;
    DeleteFromStore(folder);
    list.RemoveRow(row);
  });
}

void cmdModifyUserDefinedFoldersLumaro_Click(frmMain& form) {
  Guarded(Here("cmdModifyUserDefinedFoldersLumaro_Click"), Args(), [&] {
    controls::ListView& list = form.lvwUserDefinedFoldersLumaro;
    int row = list.SelectedIndex();
    if (row == 0) return;
    std::string old(list.Text(row)), description(list.SubItem(row, 1));
    std::string folder = platform::LibShell().BrowseForFolder();
    if (!folder.empty() && MayBeListed(folder)) {
      if (long code = settings::RenameRow(
              old, folder,
              {{core::keys::kUserDefinedFolders, description},
               {core::keys::kSelectedUserDefinedFolders, core::BooleanText(list.Checked(row))}}))
        core::TellRegistryError("Saving included User Defined Folders to registry failed", code);
      else
        list.SetText(row, folder);
    }
    list.SetSubItem(row, 1, AskForDescription(description));
    CurrentDesktop().DoEvents();
  });
}

void cmdSelectAllUserDefinedFoldersLumaro_Click(frmMain& form) {
  Guarded(Here("cmdSelectAllUserDefinedFoldersLumaro_Click"), Args(), [&] {
    form.lvwUserDefinedFoldersLumaro.CheckAll(true);
    lvwUserDefinedFoldersLumaro_Click(form);
  });
}

void cmdUnselectAllUserDefinedFoldersLumaro_Click(frmMain& form) {
  Guarded(Here("cmdUnselectAllUserDefinedFoldersLumaro_Click"), Args(), [&] {
    form.lvwUserDefinedFoldersLumaro.CheckAll(false);
    ShowSelected(form, {});
    ShowTotals(form, {});
  });
}

void cmdSearchUserDefinedFoldersLumaro_Click(frmMain& form) {
  Guarded(Here("cmdSearchUserDefinedFoldersLumaro_Click"), Args(), [&] {
    const std::string& name = form.txtListFoldersUserDefinedFoldersLumaro.Text;
    if (name.empty()) {
      core::Tell(BoxIcon::Exclamation, "Missing Folder name...",
                 {"Type in a Folder name to list in List These Folders"});
      return;
    }
    core::Hourglass hourglass;
    platform::CountedList folders;
    ListFolders(form, folders);
    AddFoldersOfName(form, name, folders);
    CurrentDesktop().DoEvents();
    CurrentDesktop().Refresh(form.lvwUserDefinedFoldersLumaro);
  });
}

}  // namespace lumaro
