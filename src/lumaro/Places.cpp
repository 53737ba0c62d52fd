#include "lumaro/Places.h"

#include "core/Numbers.h"
#include "core/m_SharedProcedures.h"
#include "platform/Desktop.h"
#include "platform/LibFolders.h"
#include "platform/LibPath.h"

namespace lumaro {

namespace {

constexpr controls::Color kHighlight = 0xC00000;  // dark blue

// Empty where there is no Windows folder.
std::string BelowWindows(const char* name) {
  std::string windows = platform::LibFolders().Windows();
  return windows.empty() ? windows : platform::LibPath().AddBackslash(windows) + name;
}

}  // namespace

std::string InternetCacheFolder() {
  return platform::LibFolders().InternetCache();
}
std::string CookiesFolder() {
  return platform::LibFolders().Cookies();
}
std::string RecentFolder() {
  return platform::LibFolders().Recent();
}
std::string TempFolder() {
  return platform::LibFolders().Temp();
}
std::string DownloadedProgramFilesFolder() {
  return BelowWindows("Downloaded Program Files\\");
}
std::string OfflineWebPagesFolder() {
  return BelowWindows("Offline Web Pages\\");
}
std::string PrefetchFolder() {
  return BelowWindows("Prefetch");
}

void ResetLists() {
  gFiles.Reset();
  gFolders.Reset();
}

RowHighlight::RowHighlight(frmMain& form, int row) {
  if (row < 0) return;
  label_ = &form.lblDirLumaro[row];
  label_->ForeColor = kHighlight;
  platform::CurrentDesktop().Refresh(*label_);
}

RowHighlight::~RowHighlight() {
  if (!label_) return;
  label_->ForeColor = 0;
  platform::CurrentDesktop().Refresh(*label_);
}

void ShowStep(frmMain& form, int step) {
  form.prgScanComputerProgressLumaro.Value = step;
  form.lblScanComputerProcentLumaro.Caption = core::PercentText(step, form.prgScanComputerProgressLumaro.Max);
  platform::CurrentDesktop().Refresh(form.lblScanComputerProcentLumaro);
}

void ResetProgress(frmMain& form) {
  form.prgScanComputerProgressLumaro.Value = 0;
  form.lblScanComputerProcentLumaro.Caption = "0%";
  platform::CurrentDesktop().Refresh(form.lblScanComputerProcentLumaro);
}

}  // namespace lumaro
