// The cleaners that work on something else than a folder's files, and what all of them share.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "clean/m_Log.h"
#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "core/Keys.h"
#include "core/Numbers.h"
#include "core/Text.h"
#include "core/m_SharedProcedures.h"
#include "lumaro/CleanFilesLmro.h"
#include "lumaro/FirefoxProfile.h"
#include "lumaro/ListsAside.h"
#include "lumaro/Places.h"
#include "platform/Desktop.h"
#include "platform/LibDirectory.h"
#include "platform/LibFile.h"
#include "platform/LibFolders.h"
#include "platform/LibPath.h"
#include "platform/LibRegistry.h"
#include "platform/LibShell.h"
#include "platform/LibSmall.h"
#include "platform/Listings.h"
#include "platform/RuntimeError.h"
#include "scan/m_Excluded.h"

platform::CountedList gExcludedCookies;

namespace m_CleanFiles {

namespace {

using core::Args;
using core::BoxIcon;
using core::Guarded;
using core::Object;
using platform::CurrentDesktop;

int backupsTaken = 0;

core::Procedure Here(const char* procedure) {
  return {"m_CleanFiles", procedure};
}

void TellPathError(const char* pathError, const char* consequence) {
  core::Tell(BoxIcon::Critical, "Path error...", {pathError, consequence});
}

// The hosts of the cookies to keep, one for each line; none for a line without the form
// user@host[number].txt, which protects nothing.
std::vector<std::optional<core::Part>> HostsToKeep() {
  std::vector<std::optional<core::Part>> hosts;
  for (int i = 0; i < gExcludedCookies.UpperBound(); ++i) {
    std::string line = gExcludedCookies[i];
    std::size_t at = line.find('@'), bracket = line.find('[');
    auto& host = hosts.emplace_back();
    if (at != line.npos && bracket != line.npos && at < bracket)
      host.emplace(std::string_view(line).substr(at + 1, bracket - at - 1));
  }
  return hosts;
}

bool CookiesNeedProtecting() {
  return core::ToNumber(gRegistry->ClearCookiesLmro) == 0 ||
         platform::LibFile().GetSize(gRegistry->InstallDirectory + "Cookies.txt") != 0;
}

bool EntryStays(const std::string& entry, const core::Part& cookie,
                const std::vector<std::optional<core::Part>>& hosts) {
  if (!CookiesNeedProtecting() || !cookie.In(entry)) return false;
  for (const auto& host : hosts)
    if (host && host->In(entry)) return true;
  return hosts.empty();
}

void CleanCacheEntries(frmMain& form) {
  std::vector<std::optional<core::Part>> hosts = HostsToKeep();
  core::Part cookie("Cookie");
  lumaro::ListsAside aside;
  const platform::CountedList& entries = aside.Files();
  std::string entry;
  for (int i = 0; i < entries.UpperBound(); ++i) {
    CurrentDesktop().DoEvents();
    if (gAppRunning->StopProcess) break;
    entries.Get(i, entry);
    if (!EntryStays(entry, cookie, hosts)) {
      platform::LibInternetCache().DeleteEntry(entry);
      gCleaningStatus->FilesDeleted += 1;
    }
    controls::Label& count = form.lblTemporaryInternetFilesScanComputerLumaro;
    count.Caption = std::to_string(entries.UpperBound() - i - 1);
    CurrentDesktop().Refresh(count);
  }
}

// Calls clear(path) for each "index.dat" of gFiles.
template <class Clear>
void ForEachIndexDat(Clear clear) {
  core::Part indexDat("index.dat");
  for (int i = 0; i < gFiles.UpperBound(); ++i) {
    CurrentDesktop().Breathe();
    std::string path = gFiles[i];
    if (indexDat.In(platform::LibPath().GetFileName(path))) clear(path);
  }
}

}  // namespace

AfterBackup::AfterBackup() {
  ++backupsTaken;
}
AfterBackup::~AfterBackup() {
  --backupsTaken;
}
bool AfterBackup::Lives() {
  return backupsTaken > 0;
}

void DeleteFoldersLmro(bool bForce) {
  Guarded(Here("DeleteFoldersLmro"), Args(core::Value("bForce", bForce)), [&] {
    platform::CountedList directories;
    if (platform::LibRegistry().EnumValues(gRegistry->HKEY_CURRENT_USER, core::keys::kExcludedDirectories,
                                           directories) != 0)
      throw platform::PathFileAccess();
    scan::Exclusions excluded(directories);
    platform::LibDirectory directory;
    for (int i = gFolders.UpperBound() - 1; i >= 0; --i) {
      CurrentDesktop().Breathe();
      scan::FoundFile folder(gFolders, i);
      if (m_Excluded::IsExcludedDirectoryLmro(excluded, folder)) continue;
      if (bForce)
        directory.RemoveTree(folder.Path());
      else
        directory.Remove(folder.Path());
    }
  });
}

void CleanTemporaryInternetFilesLmro(frmMain& form) {
  Guarded(Here("CleanTemporaryInternetFilesLmro"), Args(Object{"frmMain"}), [&] {
    lumaro::ResetLists();
    lumaro::RowHighlight highlight(form, 0);
    m_Excluded::LoadExcludedCookies(gExcludedCookies);
    std::string cache = platform::LibPath().AddBackslash(lumaro::InternetCacheFolder());
    if (cache.empty()) {
      TellPathError("Retrieving path to Internet cache returned with error",
                    "Internet cache will not be deleted");
      return;
    }
    // The whole folder counts as freed, however much of it goes.
    gCleaningStatus->SizeFreedUp += platform::LibDirectory().GetSize(cache, 0);
    platform::LibInternetCache().ListEntries(gFiles);
    CleanCacheEntries(form);
    platform::LibTreeList().ListFolders(cache + "Content.IE5", "*.*", gFolders);
    DeleteFoldersLmro(true);
  });
}

void CleanHistoryLmro(frmMain&) {
  Guarded(Here("CleanHistoryLmro"), Args(Object{"frmMain"}), [&] {
    lumaro::ResetLists();
    std::string history = platform::LibFolders().History();
    if (history.empty()) {
      TellPathError("Retrieving path to history returned with error",
                    "Clearing history will not be performed");
      return;
    }
    platform::LibFileList().ListTree(history, gFiles, gFolders);
    ForEachIndexDat([](const std::string& path) { platform::LibFile().ClearFile(path); });
  });
}

void ClearIndexDatFiles(frmMain& form) {
  Guarded(Here("ClearIndexDatFiles"), Args(Object{"frmMain"}), [&] {
    lumaro::ResetLists();
    std::string cache = lumaro::InternetCacheFolder();
    std::string cookies = lumaro::CookiesFolder();
    std::string history = platform::LibFolders().History();
    if (cache.empty() && cookies.empty() && history.empty()) {
      TellPathError("Retrieving path to index dat files returned with error",
                    "Clearing index dat files will not be performed");
      return;
    }
    platform::LibFileList list;
    if (core::IsOne(gRegistry->ClearTemporaryInternetFilesLmro)) list.ListTree(cache, gFiles, gFolders);
    if (core::IsOne(gRegistry->ClearHistoryLmro)) list.ListTree(history, gFiles, gFolders);
    if (core::IsOne(gRegistry->ClearCookiesLmro)) list.ListTree(cookies, gFiles, gFolders);
    bool logged = false;
    ForEachIndexDat([&](const std::string& path) {
      if (!platform::LibFile().ClearFile(path)) return;
      m_Log::WriteIndexDatFilesToLog(path);
      logged = true;
    });
    if (!logged) return;
    form.lblUserInfoScanComputerLumaro.Caption = "Locked files to be cleared on next Windows boot.";
    CurrentDesktop().Refresh(form.lblUserInfoScanComputerLumaro);
    form.lblRebootScanComputerLumaro.Visible = true;
    form.imgUser[36].Visible = true;
  });
}

void CleanFirefoxBrowserCacheLmro(frmMain&) {
  Guarded(Here("CleanFirefoxBrowserCacheLmro"), Args(Object{"frmMain"}), [&] {
    std::string appData = platform::LibFolders().AppData();
    if (appData.empty()) return;
    platform::CountedList folders;
    platform::LibTreeList().ListFolders(appData, "*.*", folders);
    platform::LibFile file;
    for (int i = 0; i < folders.UpperBound(); ++i) {
      CurrentDesktop().Breathe();
      std::string folder = folders[i];
      switch (lumaro::JudgeFirefoxFolder(folder)) {
        case lumaro::FirefoxFolder::Cache:
          platform::LibDirectory().RemoveTree(folder);
          break;
        case lumaro::FirefoxFolder::OfProfile:
          if (file.Exists(folder + "\\cookies.txt") != 1) break;
          file.Delete(folder + "\\cookies.txt");
          file.Delete(folder + "\\history.dat");
          break;
        case lumaro::FirefoxFolder::Other:
          break;
      }
    }
  });
}

void EmptyRecycleBinLmro(frmMain& form) {
  Guarded(Here("EmptyRecycleBinLmro"), Args(Object{"frmMain"}), [&] {
    platform::LibShell().EmptyRecycleBin();
    if (form.lblUserInfoScanComputerLumaro.Caption.Get().empty())
      form.lblUserInfoScanComputerLumaro.Caption = "Recycle Bin is cleared...";
  });
}

}  // namespace m_CleanFiles
