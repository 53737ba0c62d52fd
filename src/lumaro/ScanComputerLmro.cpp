#include "lumaro/ScanComputerLmro.h"

#include <string>
#include <vector>

#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "core/Numbers.h"
#include "core/Run.h"
#include "core/m_SharedProcedures.h"
#include "lumaro/Places.h"
#include "platform/LibDirectory.h"
#include "platform/LibFolders.h"
#include "platform/LibPath.h"
#include "platform/LibShell.h"
#include "platform/LibSmall.h"
#include "platform/Listings.h"
#include "ui/controls/m_Controls.h"

namespace m_ScanComputer {

namespace {

using core::Args;
using core::BoxIcon;
using core::Guarded;
using core::Object;
using lumaro::ResetLists;
using lumaro::RowHighlight;

// A category that is a known place; its position in the table is its row on the page.
struct Place {
  std::string c_Registry::*setting;
  std::string (*folder)();
  // The browser's cache is counted by its entries, which aren't files.
  bool cacheEntries;
  controls::Label forms::ScanComputerLumaroPage::*count;
  // What the count shows beyond the number of files listed.
  int countOffset;
  const char* pathError;
};

std::string RecentWithBackslash() {
  return platform::LibPath().AddBackslash(lumaro::RecentFolder());
}
std::string TempWithBackslash() {
  return platform::LibPath().AddBackslash(lumaro::TempFolder());
}

constexpr Place kPlaces[] = {
    {&c_Registry::ClearTemporaryInternetFilesLmro, lumaro::InternetCacheFolder, true,
     &frmMain::lblTemporaryInternetFilesScanComputerLumaro, 0,
     "Retrieving path to Internet cache returned with error"},
    // The folder's index.dat isn't a cookie.
    {&c_Registry::ClearCookiesLmro, lumaro::CookiesFolder, false, &frmMain::lblCookiesScanComputerLumaro, -1,
     "Retrieving path to cookies returned with error"},
    {&c_Registry::ClearDownloadedProgramFilesLmro, lumaro::DownloadedProgramFilesFolder, false,
     &frmMain::lblDownloadedProgramFilesScanComputerLumaro, 0,
     "Retrieving path to downloaded program files returned with error"},
    {&c_Registry::ClearOfflineFilesLmro, lumaro::OfflineWebPagesFolder, false,
     &frmMain::lblOfflineFilesScanComputerLumaro, 0,
     "Retrieving path to offline web pages returned with error"},
    {&c_Registry::ClearRecentFolderLmro, RecentWithBackslash, false,
     &frmMain::lblRecentFolderScanComputerLumaro, 0, "Retrieving path to recent folder returned with error"},
    {&c_Registry::ClearTempFolderLmro, TempWithBackslash, false, &frmMain::lblTempFolderScanComputerLumaro, 0,
     "Retrieving path to temp folder returned with error"},
};
constexpr int kUserDefinedFoldersRow = 6;
constexpr int kSteps = 7;

// Gives the bytes of the place.
double ScanPlace(frmMain& form, int row) {
  const Place& place = kPlaces[row];
  RowHighlight highlight(form, row);
  form.ImgProcessLumaro[row].Visible = true;
  std::string folder = place.folder();
  if (folder.empty()) {
    core::Tell(BoxIcon::Critical, "Path error...", {place.pathError, "This path will not be scanned"});
    return 0;
  }
  if (place.cacheEntries)
    platform::LibInternetCache().ListEntries(gFiles);
  else
    platform::LibFileList().ListTree(folder, gFiles, gFolders);
  double bytes = platform::LibDirectory().GetSize(folder, 0);
  (form.*place.count).Caption = std::to_string(gFiles.UpperBound() + place.countOffset);
  return bytes;
}

// The ticked rows of the page; their files add up in one list.
double ScanUserDefinedFolders(frmMain& form) {
  RowHighlight highlight(form, kUserDefinedFoldersRow);
  form.ImgProcessLumaro[kUserDefinedFoldersRow].Visible = true;
  double bytes = 0;
  const controls::ListView& list = form.lvwUserDefinedFoldersLumaro;
  for (int row = 1; row <= list.Count(); ++row) {
    if (!list.Checked(row)) continue;
    std::string folder(list.Text(row));
    platform::LibFileList().ListTree(folder, gFiles, gFolders);
    bytes += platform::LibDirectory().GetSize(folder, 0);
  }
  return bytes;
}

}  // namespace

void ScanComputerLmro(frmMain& form) {
  Guarded(core::Procedure{"m_ScanComputer", "ScanComputerLmro"}, Args(Object{"frmMain"}), [&] {
    ResetLists();
    double total = 0;
    form.prgScanComputerProgressLumaro.Max = kSteps;
    for (int row = 0; row < kUserDefinedFoldersRow; ++row) {
      lumaro::ShowStep(form, row + 1);
      if (core::IsOne((*gRegistry).*kPlaces[row].setting)) total += ScanPlace(form, row);
      ResetLists();
    }
    int folders = form.lvwUserDefinedFoldersLumaro.Count();
    lumaro::ShowStep(form, kSteps);
    if (folders > 0) total += ScanUserDefinedFolders(form);
    form.lblUserDefinedFoldersScanComputerLumaro.Caption = std::to_string(gFiles.UpperBound());
    form.lblTotalSizeScanComputerLumaro.Caption =
        core::NumberText(platform::LibSize().BytesToKilobytes(total)) + " KB";
    lumaro::ResetProgress(form);
  });
}

}  // namespace m_ScanComputer

namespace lumaro {

namespace {

using core::Args;
using core::BoxIcon;
using core::Guarded;

core::Procedure Here(const char* procedure) {
  return {"frmMain", procedure};
}

// Also where the body is cut short.
struct EndOfScan {
  ~EndOfScan() { gAppRunning->AppRunning = false; }
};

std::string FolderOfRow(int row) {
  platform::LibFolders folders;
  platform::LibPath path;
  switch (row) {
    case 0:
      return folders.InternetCache();
    case 1:
      return folders.Cookies();
    case 2:
      return path.AddBackslash(folders.Windows()) + "Downloaded Program Files";
    case 3:
      return path.AddBackslash(folders.Windows()) + "Offline Web Pages";
    case 4:
      return folders.Recent();
    default:
      return folders.Temp();
  }
}

// The order in which the method is named, which isn't the order in which the cleaners ask.
std::string CleaningMethod() {
  if (core::IsOne(gRegistry->DeleteFilesLmro)) return "Delete files";
  if (core::IsOne(gRegistry->MoveFilesToRecyclebinLmro)) return "Move files to recycle bin";
  return "Erase files " + core::NumberText(core::ToInteger(gRegistry->ErasePassesLmro)) + " times";
}

}  // namespace

void cmdScanComputerLumaro_Click(frmMain& form) {
  Guarded(Here("cmdScanComputerLumaro_Click"), Args(), [&] {
    if (core::Run::OnStack()) return;
    core::Run run(nullptr);
    core::Hourglass hourglass;
    EndOfScan end;
    m_Controls::SetControlsBeforeScanningLumaro(form);
    gAppRunning->AppRunning = true;
    m_ScanComputer::ScanComputerLmro(form);
    m_Controls::SetControlsAfterScanningLumaro(form);
  });
}

void lblDirLumaro_Click(frmMain& form, int Index) {
  Guarded(Here("lblDirLumaro_Click"), Args(core::Value("Index", Index)), [&] {
    if (Index == 6) {
      form.ShowPage(form.fraUserDefinedFoldersLumaro);
      return;
    }
    std::string folder = FolderOfRow(Index);
    if (platform::LibShell().OpenFolder(folder) != 0)
      core::Tell(BoxIcon::Critical, "Open directory...", {"Open the directory " + folder + " failed"});
  });
}

void lblViewSettingsScanComputerLumaro_Click() {
  Guarded(Here("lblViewSettingsScanComputerLumaro_Click"), Args(), [] {
    std::string method = CleaningMethod();
    auto line = [](const char* what, const std::string& setting) {
      return what + core::BooleanText(core::ToBoolean(setting));
    };
    const c_Registry& settings = *gRegistry;
    core::Tell(BoxIcon::Information, "Selected settings...",
               {"Selected settings: ",
                line("Clear Temporary Internet Files: ", settings.ClearTemporaryInternetFilesLmro),
                line("Clear History: ", settings.ClearHistoryLmro),
                line("Clear Cookies: ", settings.ClearCookiesLmro),
                line("Clear Downloaded Program Files: ", settings.ClearDownloadedProgramFilesLmro),
                line("Clear Offline Files: ", settings.ClearOfflineFilesLmro),
                line("Clear Index Dat Files: ", settings.ClearIndexDatFilesLmro),
                line("Clear Temp Folder: ", settings.ClearTempFolderLmro),
                line("Clear Recent Folder: ", settings.ClearRecentFolderLmro),
                line("Empty Recycle Bin: ", settings.EmptyRecycleBinLmro), "", "Cleaning method: " + method,
                line("Use backup: ", settings.UseBackupLmro)});
  });
}

}  // namespace lumaro
