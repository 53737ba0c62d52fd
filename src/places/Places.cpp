#include "places/Places.h"

#include <algorithm>
#include <stdexcept>
#include <unordered_set>

#include "core/Keys.h"
#include "core/Numbers.h"
#include "core/Text.h"
#include "core/m_SharedProcedures.h"
#include "platform/LibFolders.h"
#include "platform/LibPath.h"
#include "platform/LibRegistry.h"

namespace places {

namespace {

std::string InternetCache() {
  return platform::LibFolders().InternetCache();
}
std::string Cookies() {
  return platform::LibFolders().Cookies();
}
std::string History() {
  return platform::LibFolders().History();
}
std::string Recent() {
  return platform::LibFolders().Recent();
}
std::string Temp() {
  return platform::LibFolders().Temp();
}
std::string Windows() {
  return platform::LibFolders().Windows();
}
std::string AppData() {
  return platform::LibFolders().AppData();
}

using F = frmMain;
using R = c_Registry;

const std::vector<Place> kPlaces = {
    {.cleaner = "CleanCookieFilesLmro",
     .name = "cookies",
     .setting = &R::ClearCookiesLmro,
     .base = Cookies,
     .row = 1,
     .count = &F::lblCookiesScanComputerLumaro,
     .countOffset = -1,  // the folder's index.dat isn't a cookie
     .scanError = "Retrieving path to cookies returned with error",
     .report = "Cookies",
     .step = 1,
     .cleanError = "Retrieving path to cookies returned with error",
     .consequence = "Cookies will not be deleted",
     .filter = Filter::Cookies,
     .shownAt = 3,
     .shown = "Clear Cookies: "},
    {.cleaner = "CleanTemporaryInternetFilesLmro",
     .name = "internet-cache",
     .setting = &R::ClearTemporaryInternetFilesLmro,
     .base = InternetCache,
     .row = 0,
     .count = &F::lblTemporaryInternetFilesScanComputerLumaro,
     .scanError = "Retrieving path to Internet cache returned with error",
     .report = "Temporary Internet files",
     .step = 2,
     .way = Way::CacheEntries,
     .cleanError = "Retrieving path to Internet cache returned with error",
     .consequence = "Internet cache will not be deleted",
     .shownAt = 1,
     .shown = "Clear Temporary Internet Files: "},
    {.cleaner = "CleanHistoryLmro",
     .name = "history",
     .setting = &R::ClearHistoryLmro,
     .base = History,
     .way = Way::History,
     .cleanError = "Retrieving path to history returned with error",
     .consequence = "Clearing history will not be performed",
     .shownAt = 2,
     .shown = "Clear History: "},
    {.cleaner = "CleanDownloadedProgramFilesLmro",
     .name = "downloaded-programs",
     .setting = &R::ClearDownloadedProgramFilesLmro,
     .base = Windows,
     .below = "Downloaded Program Files",
     .row = 2,
     .count = &F::lblDownloadedProgramFilesScanComputerLumaro,
     .scanError = "Retrieving path to downloaded program files returned with error",
     .report = "Downloaded program files",
     .step = 3,
     .cleanError = "Retrieving path to downloaded program files returned with error",
     .consequence = "Downloaded program files will not be deleted",
     .backupStep = 1,
     .backupError = "Retrieving path to Downloaded Program Files folder returned with error",
     .shownAt = 4,
     .shown = "Clear Downloaded Program Files: "},
    {.cleaner = "CleanOfflineFilesLmro",
     .name = "offline-pages",
     .setting = &R::ClearOfflineFilesLmro,
     .base = Windows,
     .below = "Offline Web Pages",
     .row = 3,
     .count = &F::lblOfflineFilesScanComputerLumaro,
     .scanError = "Retrieving path to offline web pages returned with error",
     .report = "Offline files",
     .step = 4,
     .cleanError = "Retrieving path to offline web pages returned with error",
     .consequence = "Offline files will not be deleted",
     .backupStep = 2,
     .backupError = "Retrieving path to Offline Web Pages folder returned with error",
     .shownAt = 5,
     .shown = "Clear Offline Files: "},
    {.cleaner = "ClearIndexDatFiles",
     .name = "index-dat",
     .setting = &R::ClearIndexDatFilesLmro,
     .way = Way::IndexDat,
     .cleanError = "Retrieving path to index dat files returned with error",
     .consequence = "Clearing index dat files will not be performed",
     .shownAt = 6,
     .shown = "Clear Index Dat Files: "},
    {.cleaner = "CleanRecentFolderLmro",
     .name = "recent",
     .setting = &R::ClearRecentFolderLmro,
     .base = Recent,
     .row = 4,
     .count = &F::lblRecentFolderScanComputerLumaro,
     .scanError = "Retrieving path to recent folder returned with error",
     .report = "Recent folder",
     .step = 5,
     .cleanError = "Retrieving path to recent directory returned with error",
     .consequence = "Files in recent directory will not be deleted",
     .pollsStop = false,
     .backupStep = 3,
     .backupError = "Retrieving path to Recent folder returned with error",
     .shownAt = 8,
     .shown = "Clear Recent Folder: "},
    {.cleaner = "CleanTempFolderLmro",
     .name = "temp",
     .setting = &R::ClearTempFolderLmro,
     .base = Temp,
     .row = 5,
     .count = &F::lblTempFolderScanComputerLumaro,
     .scanError = "Retrieving path to temp folder returned with error",
     .report = "Temp folder",
     .step = 6,
     .cleanError = "Retrieving path to Temp directory returned with error",
     .consequence = "Files in temp directory will not be deleted",
     .failed = Failed::Told,
     .backupStep = 4,
     .backupError = "Retrieving path to temp folder returned with error",
     .shownAt = 7,
     .shown = "Clear Temp Folder: "},
    {.cleaner = "CleanXPPrefetchFolderLmro",
     .name = "prefetch",
     .box = &F::chkEmptyXPPrefetchDirOptionsLumaro,
     .base = Windows,
     .below = "Prefetch",
     .step = 7,
     .cleanError = "Retrieving path to Prefetch directory returned with error",
     .consequence = "Files in Prefetch will not be deleted",
     .filter = Filter::PrefetchAndSettings,
     .failed = Failed::Told,
     .removesFolders = false},
    {.cleaner = "CleanUserDefinedFoldersLmro",
     .name = "own-folders",
     .row = 6,
     .count = &F::lblUserDefinedFoldersScanComputerLumaro,
     .report = "User defined folders",
     .step = 8,
     .failed = Failed::CountedAsRemoved,
     .backupStep = 5},
    {.cleaner = "CleanFirefoxBrowserCacheLmro",
     .name = "firefox",
     .box = &F::chkFireFoxCacheOptionsLumaro,
     .base = AppData,
     .step = 9,
     .way = Way::Firefox},
    {.cleaner = "EmptyRecycleBinLmro",
     .name = "recycle-bin",
     .setting = &R::EmptyRecycleBinLmro,
     .step = 10,
     .way = Way::RecycleBin,
     .shownAt = 9,
     .shown = "Empty Recycle Bin: "},
};

// The places whose number isn't `none`, in its order.
std::vector<const Place*> Ordered(int Place::*number, int none) {
  std::vector<const Place*> ordered;
  for (const Place& place : kPlaces)
    if (place.*number != none) ordered.push_back(&place);
  std::sort(ordered.begin(), ordered.end(),
            [number](const Place* a, const Place* b) { return a->*number < b->*number; });
  return ordered;
}

// Folded, as the store compares names.
std::unordered_set<std::string> ShownUnticked(const frmMain& form) {
  const controls::ListView& list = form.lvwUserDefinedFoldersLumaro;
  std::unordered_set<std::string> unticked;
  list.ForEach([&](int row) {
    if (!list.Checked(row)) unticked.insert(core::Fold(list.Text(row)));
  });
  return unticked;
}

}  // namespace

const std::vector<Place>& All() {
  return kPlaces;
}

const std::vector<const Place*>& Rows() {
  static const std::vector<const Place*> rows = Ordered(&Place::row, -1);
  return rows;
}

const std::vector<const Place*>& Shown() {
  static const std::vector<const Place*> shown = Ordered(&Place::shownAt, 0);
  return shown;
}

const Place& ClearedBy(std::string_view cleaner) {
  for (const Place& place : kPlaces)
    if (place.cleaner == cleaner) return place;
  throw std::logic_error("a cleaner without a place");
}

bool IsOn(const Place& place, frmMain& form) {
  if (place.setting) return core::IsOne((*gRegistry).*place.setting);
  return !place.box || (form.*place.box).Value == 1;
}

std::string FolderText(const Place& place) {
  std::string base = place.base();
  return *place.below ? platform::LibPath().AddBackslash(base) + place.below : base;
}

std::string Folder(const Place& place) {
  return place.base().empty() ? std::string() : FolderText(place);
}

void ShowFound(frmMain& form, const Place& place, int files) {
  if (place.row < 0) return;
  form.FoundFiles.at(static_cast<std::size_t>(place.row)) = files;
  (form.*place.count).Caption = std::to_string(files);
}

long TickedFolders(const frmMain& form, std::vector<std::string>& folders) {
  platform::LibRegistry registry;
  platform::CountedList names;
  long error = registry.EnumValues(c_Registry::HKEY_CURRENT_USER, core::keys::kUserDefinedFolders, names);
  if (error != 0) return error;
  std::unordered_set<std::string> unticked = ShownUnticked(form);
  for (int i = 0; i < names.UpperBound(); ++i) {
    std::string folder = names[i];
    if (core::ToBoolean(registry.ReadValue(c_Registry::HKEY_CURRENT_USER,
                                           core::keys::kSelectedUserDefinedFolders, folder)) &&
        !unticked.contains(core::Fold(folder)))
      folders.push_back(std::move(folder));
  }
  return 0;
}

}  // namespace places
