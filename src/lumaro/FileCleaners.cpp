// The way in which most places are cleared: file by file.
#include <algorithm>
#include <string>
#include <vector>

#include "core/Boxes.h"
#include "core/Text.h"
#include "core/m_SharedProcedures.h"
#include "lumaro/CleanFilesLmro.h"
#include "lumaro/Cleaners.h"
#include "lumaro/ListsAside.h"
#include "lumaro/RowMarks.h"
#include "platform/Desktop.h"
#include "platform/Guard.h"
#include "platform/LibFile.h"
#include "platform/Listings.h"
#include "platform/RuntimeError.h"
#include "scan/m_Excluded.h"

namespace lumaro {

namespace {

using places::Failed;
using places::Filter;
using places::Place;
using removal::Fate;
using removal::Outcome;
using removal::Remover;

// The excluded lists of the module Brasmir, which bind this one as well.
scan::Exclusions ReadExclusions() {
  platform::CountedList directories, files;
  if (m_Excluded::ReadExclusions(directories, files) != 0) throw platform::PathFileAccess();
  return scan::Exclusions(directories, files);
}

// Says which files stay. Made before the place is listed.
class Judge {
 public:
  explicit Judge(Filter filter) : filter_(filter), excluded_({}) {
    if (filter_ == Filter::Cookies)
      LoadCookies();
    else
      excluded_ = ReadExclusions();
  }

  bool Stays(const scan::FoundFile& file, bool readOnly) const {
    switch (filter_) {
      case Filter::Cookies:
        return allCookiesStay_ || dat_.In(file.Path()) || m_Excluded::ExcludedCookie(kept_, file.Path()) ||
               IsOfKeptHost(file);
      case Filter::PrefetchAndSettings:
        // With case.
        return file.Path().find(".pf") == std::string::npos || IsExcluded(file, readOnly);
      default:
        return IsExcluded(file, readOnly);
    }
  }

 private:
  // The attribute word is costly to read, and stands in the way of a read-only file alone.
  bool IsExcluded(const scan::FoundFile& file, bool readOnly) const {
    return readOnly ? m_Excluded::IsExcludedSettingLmro(excluded_, file) : excluded_.Cover(file);
  }

  static bool IsOfKeptHost(const scan::FoundFile& file) {
    return std::ranges::any_of(gAppRunning->KeptCookieHosts,
                               [&](const std::string& host) { return core::Contains(file.Name(), host); });
  }

  void LoadCookies() {
    m_Excluded::LoadExcludedCookies(gExcludedCookies);
    kept_ = m_Excluded::LinesOf(gExcludedCookies);
    allCookiesStay_ = m_Excluded::CookiesToKeepAreUnknown(gExcludedCookies);
  }

  Filter filter_;
  scan::Exclusions excluded_;
  core::Part dat_{".dat"};
  m_Excluded::CookieLines kept_;
  bool allCookiesStay_ = false;
};

void CleanFile(frmMain& form, const Place& place, const std::string& path, long size, Remover& remover) {
  Outcome outcome = remover.Remove(path, remover.Method(), place.backupStep > 0);
  Fate fate = remover.KeepBooks(path, size, outcome, place.failed == Failed::CountedAsRemoved);
  if (fate == Fate::Stays && place.failed == Failed::Told &&
      TellIfNothingElse(form, forms::LumaroNews::FilesAreLocked))
    platform::CurrentDesktop().Refresh(form.lblUserInfoScanComputerLumaro);
}

void CleanListedFiles(frmMain& form, const Place& place, const Judge& judge, Remover& remover) {
  ListsAside aside;
  const platform::CountedList& files = aside.Files();
  for (int i = 0; i < files.UpperBound(); ++i) {
    platform::CurrentDesktop().DoEvents();
    if (place.pollsStop && gAppRunning->StopProcess) break;
    scan::FoundFile file(files, i);
    bool readOnly;
    long size = platform::LibFile().GetSize(file.Path(), readOnly);
    if (!judge.Stays(file, readOnly)) CleanFile(form, place, file.Path(), size, remover);
    if (place.count) {
      places::ShowFound(form, place, files.UpperBound() - i - 1);
      platform::CurrentDesktop().Refresh(form.*place.count);
    }
  }
}

void ListFolder(const std::string& folder, Remover& remover) {
  if (platform::ops::ListTree(folder, gFiles, gFolders) != platform::Status::Done &&
      !platform::MayClearTree(folder))
    remover.NoteRefused(folder);
}

// False when it has told the user that they can't be read.
bool ListUsersFolders(frmMain& form, Remover& remover) {
  std::vector<std::string> folders;
  if (long error = places::TickedFolders(form, folders); error != 0) {
    core::TellRegistryError("Error retrieve included User Defined Folders from registry", error);
    return false;
  }
  for (const std::string& folder : folders) {
    if (remover.Backup() && !remover.Backup()->folders.contains(folder))
      remover.NotePassedOver(folder);
    else
      ListFolder(folder, remover);
  }
  return true;
}

bool ListPlace(frmMain& form, const Place& place, Remover& remover) {
  if (places::IsUsersFolders(place)) return ListUsersFolders(form, remover);
  std::string folder = places::Folder(place);
  if (folder.empty()) {
    TellPathError(place);
    return false;
  }
  ListFolder(folder, remover);
  return true;
}

}  // namespace

void CleanFiles(frmMain& form, const Place& place, Remover& remover) {
  ResetLists();
  RowHighlight highlight(form, place.row);
  Judge judge(place.filter);
  if (!ListPlace(form, place, remover)) return;
  CleanListedFiles(form, place, judge, remover);
  if (place.removesFolders) m_CleanFiles::DeleteFoldersLmro(false);
}

}  // namespace lumaro
