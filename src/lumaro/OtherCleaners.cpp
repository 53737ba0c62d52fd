// The ways of clearing that work on something else than a folder's files.
#include <algorithm>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/Boxes.h"
#include "core/Numbers.h"
#include "core/Text.h"
#include "core/m_SharedProcedures.h"
#include "lumaro/CleanFilesLmro.h"
#include "lumaro/Cleaners.h"
#include "lumaro/FirefoxProfile.h"
#include "lumaro/ListsAside.h"
#include "lumaro/RowMarks.h"
#include "platform/Desktop.h"
#include "platform/LibFile.h"
#include "platform/LibPath.h"
#include "platform/LibSmall.h"
#include "platform/Listings.h"
#include "platform/Operations.h"
#include "removal/Removing.h"
#include "removal/m_Log.h"
#include "scan/m_Excluded.h"

platform::CountedList gExcludedCookies;

namespace lumaro {

namespace {

using places::Place;
using platform::CurrentDesktop;
using removal::Remover;

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

void RemoveCacheEntries(frmMain& form, const Place& place) {
  std::vector<std::optional<core::Part>> hosts = HostsToKeep();
  core::Part cookie("Cookie");
  ListsAside aside;
  const platform::CountedList& entries = aside.Files();
  std::string entry;
  for (int i = 0; i < entries.UpperBound(); ++i) {
    CurrentDesktop().DoEvents();
    if (gAppRunning->StopProcess) break;
    entries.Get(i, entry);
    if (!EntryStays(entry, cookie, hosts)) {
      removal::RemoveCacheEntry(entry);
      gCleaningStatus->FilesDeleted += 1;
    }
    places::ShowFound(form, place, entries.UpperBound() - i - 1);
    CurrentDesktop().Refresh(form.*place.count);
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

void TellPathError(const Place& place) {
  core::Tell(core::BoxIcon::Critical, "Path error...", {place.cleanError, place.consequence});
}

void CleanCacheEntries(frmMain& form, const Place& place, Remover&) {
  ResetLists();
  RowHighlight highlight(form, place.row);
  m_Excluded::LoadExcludedCookies(gExcludedCookies);
  std::string cache = platform::LibPath().AddBackslash(places::Folder(place));
  if (cache.empty()) return TellPathError(place);
  // The whole folder counts as freed, however much of it goes.
  gCleaningStatus->SizeFreedUp += platform::ops::SizeBelow(cache);
  platform::ops::ListCacheEntries(gFiles);
  RemoveCacheEntries(form, place);
  platform::ops::ListFolders(cache + "Content.IE5", gFolders);
  m_CleanFiles::DeleteFoldersLmro(true);
}

void CleanHistory(frmMain&, const Place& place, Remover&) {
  ResetLists();
  std::string history = places::Folder(place);
  if (history.empty()) return TellPathError(place);
  platform::ops::ListTree(history, gFiles, gFolders);
  ForEachIndexDat([](const std::string& path) { removal::StaysLocked(path); });
}

void ClearIndexDat(frmMain& form, const Place& place, Remover&) {
  ResetLists();
  const Place* searched[] = {&places::ClearedBy("CleanTemporaryInternetFilesLmro"),
                             &places::ClearedBy("CleanHistoryLmro"),
                             &places::ClearedBy("CleanCookieFilesLmro")};
  auto isThere = [](const Place* each) { return !places::Folder(*each).empty(); };
  if (std::none_of(std::begin(searched), std::end(searched), isThere)) return TellPathError(place);
  for (const Place* each : searched)
    if (places::IsOn(*each, form)) platform::ops::ListTree(places::Folder(*each), gFiles, gFolders);
  bool logged = false;
  ForEachIndexDat([&](const std::string& path) {
    if (!removal::StaysLocked(path)) return;
    m_Log::WriteIndexDatFilesToLog(path);
    logged = true;
  });
  if (!logged) return;
  form.Tell(forms::LumaroNews::ClearedAtNextBoot);
  CurrentDesktop().Refresh(form.lblUserInfoScanComputerLumaro);
  form.lblRebootScanComputerLumaro.Visible = true;
  form.imgUser[forms::RebootMark].Visible = true;
}

void CleanFirefox(frmMain&, const Place& place, Remover&) {
  std::string appData = places::Folder(place);
  if (appData.empty()) return;
  platform::CountedList folders;
  platform::ops::ListFolders(appData, folders);
  for (int i = 0; i < folders.UpperBound(); ++i) {
    CurrentDesktop().Breathe();
    std::string folder = folders[i];
    switch (JudgeFirefoxFolder(folder)) {
      case FirefoxFolder::Cache:
        removal::RemoveTree(folder);
        break;
      case FirefoxFolder::OfProfile:
        if (!platform::ops::IsFile(folder + "\\cookies.txt")) break;
        removal::DeleteFile(folder + "\\cookies.txt");
        removal::DeleteFile(folder + "\\history.dat");
        break;
      case FirefoxFolder::Other:
        break;
    }
  }
}

void EmptyRecycleBin(frmMain& form, const Place&, Remover&) {
  removal::EmptyRecycleBin();
  TellIfNothingElse(form, forms::LumaroNews::RecycleBinCleared);
}

}  // namespace lumaro
