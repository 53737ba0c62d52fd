// The seven cleaners that are one procedure with variations.
#include <algorithm>
#include <string>

#include "backup/m_BackupRestore.h"
#include "clean/m_Log.h"
#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "core/Keys.h"
#include "core/Numbers.h"
#include "core/Text.h"
#include "core/m_SharedProcedures.h"
#include "lumaro/CleanFilesLmro.h"
#include "lumaro/ListsAside.h"
#include "lumaro/Places.h"
#include "platform/Desktop.h"
#include "platform/LibDisk.h"
#include "platform/LibEraser.h"
#include "platform/LibFile.h"
#include "platform/LibPath.h"
#include "platform/LibRegistry.h"
#include "platform/Listings.h"
#include "platform/RuntimeError.h"
#include "scan/m_Excluded.h"

namespace m_CleanFiles {

namespace {

using core::Args;
using core::BoxIcon;
using core::Guarded;
using core::Object;

// What is asked of a file before it may go.
enum class Filter { Settings, PrefetchAndSettings, Cookies };

// What follows a removal that failed while locked files aren't left to the boot-time cleaner. A removal that
// worked is counted in any case.
enum class Failed { Told, Silent, CountedAsRemoved };

struct FileCleaner {
  const char* procedure;
  int row = -1;                                                     // on the page; -1 for none
  controls::Label forms::ScanComputerLumaroPage::*count = nullptr;  // null for none
  std::string (*folder)() = nullptr;                                // null: the ticked user-defined folders
  const char* pathError = "";
  const char* consequence = "";
  Filter filter = Filter::Settings;
  bool pollsStop = true;
  Failed failed = Failed::Silent;
  bool coveredByBackup = true;
  bool removesFolders = true;
};

// Asked once for each drive.
class ClusterSize {
 public:
  long Of(const std::string& path) {
    std::string root = platform::LibPath().GetDriveRoot(path);
    if (root != root_) {
      size_ = platform::LibDisk().ClusterSize(root);
      root_ = std::move(root);
    }
    return size_;
  }

 private:
  std::string root_;
  long size_ = 0;
};

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
        return allCookiesStay_ || dat_.In(file.Path()) || m_Excluded::ExcludedCookie(kept_, file.Path());
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

// By the first method that is set; the settings are read again for every file. 1 removed, 0 not.
int Remove(const std::string& path, ClusterSize& clusterSize) {
  if (core::IsOne(gRegistry->MoveFilesToRecyclebinLmro))
    return platform::LibFile().MoveToRecycleBin(path) == 0;
  if (core::IsOne(gRegistry->EraseFilesLmro))
    return platform::LibEraser().EraseFile(path, core::ToInteger(gRegistry->ErasePassesLmro),
                                           clusterSize.Of(path)) == 1;
  return platform::LibFile().Delete(path) == 1;
}

void CleanFile(frmMain& form, const FileCleaner& cleaner, const std::string& path, long size,
               ClusterSize& clusterSize) {
  bool unsaved = cleaner.coveredByBackup && AfterBackup::Lives() && m_BackupRestore::WasLeftOutLmro(path);
  int status = unsaved ? 0 : Remove(path, clusterSize);
  // What isn't saved isn't handed over either.
  if (status == 0 && !unsaved && core::IsOne(gRegistry->DeleteOnWindowsStartupLmro)) {
    m_Log::WriteLockedFilesToLog(path);
  } else if (status == 1 || cleaner.failed == Failed::CountedAsRemoved) {
    gCleaningStatus->FilesDeleted += 1;
    // A link has no size of its own.
    gCleaningStatus->SizeFreedUp += static_cast<double>(std::max(size, 0L));
  } else if (cleaner.failed == Failed::Told && form.lblUserInfoScanComputerLumaro.Caption.Get().empty()) {
    form.lblUserInfoScanComputerLumaro.Caption = "Files are locked and can't be deleted.";
    platform::CurrentDesktop().Refresh(form.lblUserInfoScanComputerLumaro);
  }
}

void CleanFiles(frmMain& form, const FileCleaner& cleaner, const Judge& judge) {
  lumaro::ListsAside aside;
  const platform::CountedList& files = aside.Files();
  ClusterSize clusterSize;
  for (int i = 0; i < files.UpperBound(); ++i) {
    platform::CurrentDesktop().DoEvents();
    if (cleaner.pollsStop && gAppRunning->StopProcess) break;
    scan::FoundFile file(files, i);
    bool readOnly;
    long size = platform::LibFile().GetSize(file.Path(), readOnly);
    if (!judge.Stays(file, readOnly)) CleanFile(form, cleaner, file.Path(), size, clusterSize);
    if (cleaner.count) {
      controls::Label& count = form.*cleaner.count;
      count.Caption = std::to_string(files.UpperBound() - i - 1);
      platform::CurrentDesktop().Refresh(count);
    }
  }
}

// False when it has told the user that they can't be read.
bool ListUserDefinedFolders() {
  platform::LibRegistry registry;
  platform::CountedList names;
  long error = registry.EnumValues(gRegistry->HKEY_CURRENT_USER, core::keys::kUserDefinedFolders, names);
  if (error != 0) {
    core::Tell(BoxIcon::Critical, "Unexpected error",
               {"Error retrieve included User Defined Folders from registry",
                "Check your permission with administrator or reinstall to correct the settings",
                "Error code: " + std::to_string(error)});
    return false;
  }
  for (int i = 0; i < names.UpperBound(); ++i) {
    std::string folder = names[i];
    if (core::ToBoolean(registry.ReadValue(gRegistry->HKEY_CURRENT_USER,
                                           core::keys::kSelectedUserDefinedFolders, folder)))
      platform::LibFileList().ListTree(folder, gFiles, gFolders);
  }
  return true;
}

bool ListPlace(const FileCleaner& cleaner) {
  if (!cleaner.folder) return ListUserDefinedFolders();
  std::string folder = cleaner.folder();
  if (folder.empty()) {
    core::Tell(BoxIcon::Critical, "Path error...", {cleaner.pathError, cleaner.consequence});
    return false;
  }
  platform::LibFileList().ListTree(folder, gFiles, gFolders);
  return true;
}

void Clean(frmMain& form, const FileCleaner& cleaner) {
  Guarded(core::Procedure{"m_CleanFiles", cleaner.procedure}, Args(Object{"frmMain"}), [&] {
    lumaro::ResetLists();
    lumaro::RowHighlight highlight(form, cleaner.row);
    Judge judge(cleaner.filter);
    if (!ListPlace(cleaner)) return;
    CleanFiles(form, cleaner, judge);
    if (cleaner.removesFolders) DeleteFoldersLmro(false);
  });
}

}  // namespace

void CleanTempFolderLmro(frmMain& form) {
  Clean(form, {.procedure = "CleanTempFolderLmro",
               .row = 5,
               .count = &frmMain::lblTempFolderScanComputerLumaro,
               .folder = lumaro::TempFolder,
               .pathError = "Retrieving path to Temp directory returned with error",
               .consequence = "Files in temp directory will not be deleted",
               .failed = Failed::Told});
}

void CleanRecentFolderLmro(frmMain& form) {
  Clean(form, {.procedure = "CleanRecentFolderLmro",
               .row = 4,
               .count = &frmMain::lblRecentFolderScanComputerLumaro,
               .folder = lumaro::RecentFolder,
               .pathError = "Retrieving path to recent directory returned with error",
               .consequence = "Files in recent directory will not be deleted",
               .pollsStop = false});
}

void CleanDownloadedProgramFilesLmro(frmMain& form) {
  Clean(form, {.procedure = "CleanDownloadedProgramFilesLmro",
               .row = 2,
               .count = &frmMain::lblDownloadedProgramFilesScanComputerLumaro,
               .folder = lumaro::DownloadedProgramFilesFolder,
               .pathError = "Retrieving path to downloaded program files returned with error",
               .consequence = "Downloaded program files will not be deleted"});
}

void CleanOfflineFilesLmro(frmMain& form) {
  Clean(form, {.procedure = "CleanOfflineFilesLmro",
               .row = 3,
               .count = &frmMain::lblOfflineFilesScanComputerLumaro,
               .folder = lumaro::OfflineWebPagesFolder,
               .pathError = "Retrieving path to offline web pages returned with error",
               .consequence = "Offline files will not be deleted"});
}

void CleanCookieFilesLmro(frmMain& form) {
  Clean(form, {.procedure = "CleanCookieFilesLmro",
               .row = 1,
               .count = &frmMain::lblCookiesScanComputerLumaro,
               .folder = lumaro::CookiesFolder,
               .pathError = "Retrieving path to cookies returned with error",
               .consequence = "Cookies will not be deleted",
               .filter = Filter::Cookies,
               .coveredByBackup = false});
}

void CleanXPPrefetchFolderLmro(frmMain& form) {
  Clean(form, {.procedure = "CleanXPPrefetchFolderLmro",
               .folder = lumaro::PrefetchFolder,
               .pathError = "Retrieving path to Prefetch directory returned with error",
               .consequence = "Files in Prefetch will not be deleted",
               .filter = Filter::PrefetchAndSettings,
               .failed = Failed::Told,
               .coveredByBackup = false,
               .removesFolders = false});
}

void CleanUserDefinedFoldersLmro(frmMain& form) {
  Clean(form, {.procedure = "CleanUserDefinedFoldersLmro",
               .row = 6,
               .count = &frmMain::lblUserDefinedFoldersScanComputerLumaro,
               .failed = Failed::CountedAsRemoved});
}

}  // namespace m_CleanFiles
