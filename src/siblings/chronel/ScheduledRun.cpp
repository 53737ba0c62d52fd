#include "siblings/chronel/ScheduledRun.h"

#include <memory>
#include <string>

#include "backup/BackupRestorePage.h"
#include "clean/Wire.h"
#include "clean/m_CleanFiles.h"
#include "core/ErrorReport.h"
#include "core/Numbers.h"
#include "core/OpenForms.h"
#include "core/m_SharedProcedures.h"
#include "lumaro/Wire.h"
#include "places/Places.h"
#include "platform/LibSmall.h"
#include "scan/Wire.h"
#include "scan/m_Results.h"
#include "settings/FormSettings.h"
#include "settings/m_Registry.h"
#include "siblings/chronel/RunReport.h"
#include "siblings/common/Setting.h"

namespace chronel {

namespace {

using siblings::IsOn;

// The main window, which is never shown. What its pages' own settings controls do when they are clicked is
// left out: nobody clicks them.
class HiddenWindow {
 public:
  HiddenWindow() : form_(std::make_unique<frmMain>()) {
    core::SetMainForm(form_.get());
    scan::WireScan(*form_);
    backup::WireBackup(*form_);
    clean::WireClean(*form_);
    lumaro::WireLumaro(*form_);
  }
  ~HiddenWindow() {
    core::DropAllForms();
    core::SetMainForm(nullptr);
  }
  HiddenWindow(const HiddenWindow&) = delete;
  HiddenWindow& operator=(const HiddenWindow&) = delete;
  frmMain& Form() { return *form_; }

 private:
  std::unique_ptr<frmMain> form_;
};

std::string Count(const std::string& what, const std::string& count) {
  return what + ": " + count;
}

// Everything of the category that the results page shows.
void CleanCategory(frmMain& form, forms::ResultCategory category, RunReport& report) {
  controls::ListView& rows = form.lvwFilesResultsBrasmir;
  report.Line(Count(m_Results::CategoryOf(form, category).name, std::to_string(rows.Count())));
  if (rows.Count() == 0) return;
  form.TellLocked(forms::LockedFiles::None);
  gSelectedFiles.Reset();
  form.cmdSelectAllResultsBrasmir.Click();
  form.cmdDeleteResultsBrasmir.Click();
  std::string path;
  for (int i = 0; i < gSelectedFiles.UpperBound(); ++i) {
    gSelectedFiles.Get(i, path);
    report.Line((rows.FindPath(path) ? "    Not removed: " : "    Removed: ") + path);
  }
  if (rows.Count() > 0) report.Line("    Left: " + std::to_string(rows.Count()));
  if (form.Locked != forms::LockedFiles::None) report.Line(std::string("    ") + forms::TextOf(form.Locked));
}

void RunBrasmir(frmMain& form, RunReport& report, const std::function<bool()>& stop) {
  report.Line("");
  report.Line("Brasmir, " + MomentText());
  form.lblViewSettingsScanComputerBrasmir.Click();
  form.cmdScanComputerBrasmir.Click();
  report.Line(Count("Garbage files found", std::to_string(gGarbageFiles.UpperBound())));
  report.Line(Count("Their size", core::NumberText(gAppRunning->TotalFileSize()) + " KB"));
  report.Line(Count("Zero byte files found", std::to_string(gZeroByteFiles.UpperBound())));
  report.Line(Count("Broken shortcuts found", std::to_string(gInvalidShortcuts.UpperBound())));
  if (stop()) return;
  // Opens the results on the first category.
  form.cmdViewResultsScanComputerBrasmir.Click();
  const int categories = static_cast<int>(form.OfferedCategories.size());
  for (int item = 0; item < categories && !stop(); ++item) {
    if (item > 0) form.cboSelectResultsBrasmir.SetListIndex(item);
    CleanCategory(form, form.OfferedCategories[static_cast<std::size_t>(item)], report);
  }
}

void CountLumaro(frmMain& form, RunReport& report, const char* when) {
  report.Line(when);
  for (const places::Place* place : places::Rows())
    if (!place->setting || IsOn((*gRegistry).*place->setting))
      report.Line("    " + Count(place->report,
                                 std::to_string(form.FoundFiles.at(static_cast<std::size_t>(place->row)))));
  report.Line("    " + Count("Size", core::NumberText(form.FoundKilobytes) + " KB"));
}

void RunLumaro(frmMain& form, RunReport& report, const std::function<bool()>& stop) {
  report.Line("");
  report.Line("Lumaro, " + MomentText());
  form.lblViewSettingsScanComputerLumaro.Click();
  form.cmdScanComputerLumaro.Click();
  CountLumaro(form, report, "Before:");
  if (stop()) return;
  const double before = gCleaningStatus->FilesDeleted;
  form.cmdCleanUpScanComputerLumaro.Click();
  CountLumaro(form, report, "Afterwards:");
  report.Line(Count("Files removed", core::NumberText(gCleaningStatus->FilesDeleted - before)));
  if (form.News != forms::LumaroNews::None) report.Line(forms::TextOf(form.News));
}

}  // namespace

RunResult RunModules(siblings::UnattendedDesktop& desktop, const std::function<bool()>& stop) {
  gAppRunning = std::make_unique<c_AppRunning>();
  gCleaningStatus = std::make_unique<c_CleaningStatus>();
  RunReport report(IsOn(gRegistry->CreateReportSch), gRegistry->InstallDirectory + "Reports\\Schedule.txt");
  desktop.onBox = [&](const platform::Box& box, platform::BoxAnswer answer) { report.Box(box, answer); };
  desktop.onPump = [&] {
    if (stop()) gAppRunning->StopProcess = true;
  };
  RunResult result;
  report.Line("Schedule report");
  report.Line(Count("Started", MomentText()));
  core::Guarded({"Chronel", "RunModules"}, core::Args(), [&] {
    HiddenWindow window;
    settings::AssignRegistrySettings(window.Form());
    if (IsOn(gRegistry->IncludeBrasmirSch)) RunBrasmir(window.Form(), report, stop);
    if (IsOn(gRegistry->IncludeLumaroSch) && !stop()) RunLumaro(window.Form(), report, stop);
  });
  result.stopped = stop();
  result.files = gCleaningStatus->FilesDeleted;
  result.kilobytes = platform::LibSize().BytesToKilobytes(gCleaningStatus->SizeFreedUp);
  m_Registry::SaveCleaningStatus();
  report.Line("");
  report.Line(Count("Files removed in all", core::NumberText(result.files)));
  report.Line(Count("Size freed up", core::NumberText(result.kilobytes) + " KB"));
  report.Line(Count(result.stopped ? "Stopped before the end" : "Finished", MomentText()));
  report.Finish();
  desktop.onBox = nullptr;
  desktop.onPump = nullptr;
  gCleaningStatus.reset();
  gAppRunning.reset();
  return result;
}

}  // namespace chronel
