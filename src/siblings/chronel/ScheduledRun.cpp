#include "siblings/chronel/ScheduledRun.h"

#include <optional>
#include <string>

#include "core/ErrorReport.h"
#include "core/Numbers.h"
#include "core/m_SharedProcedures.h"
#include "jobs/Jobs.h"
#include "jobs/Session.h"
#include "places/Places.h"
#include "platform/LibSmall.h"
#include "settings/FormSettings.h"
#include "siblings/chronel/RunReport.h"
#include "siblings/common/Setting.h"

namespace chronel {

namespace {

using siblings::IsOn;

std::string Count(const std::string& what, const std::string& count) {
  return what + ": " + count;
}

void RunBrasmir(frmMain& form, RunReport& report, const std::function<bool()>& stop) {
  report.Line("");
  report.Line("Brasmir, " + MomentText());
  form.lblViewSettingsScanComputerBrasmir.Click();
  jobs::Scan(form);
  report.Line(Count("Garbage files found", std::to_string(gGarbageFiles.UpperBound())));
  report.Line(Count("Their size", core::NumberText(gAppRunning->TotalFileSize()) + " KB"));
  report.Line(Count("Zero byte files found", std::to_string(gZeroByteFiles.UpperBound())));
  report.Line(Count("Broken shortcuts found", std::to_string(gInvalidShortcuts.UpperBound())));
  if (stop()) return;
  jobs::CleanFound(
      form, stop,
      {.begins = [&](forms::ResultCategory, const std::string& name,
                     int files) { report.Line(Count(name, std::to_string(files))); },
       .file = [&](const std::string& path,
                   bool removed) { report.Line((removed ? "    Removed: " : "    Not removed: ") + path); },
       .ends =
           [&](int left) {
             if (left > 0) report.Line("    Left: " + std::to_string(left));
             if (form.Locked != forms::LockedFiles::None)
               report.Line(std::string("    ") + forms::TextOf(form.Locked));
           }});
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
  jobs::ScanPlaces(form);
  CountLumaro(form, report, "Before:");
  if (stop()) return;
  const double before = gCleaningStatus->FilesDeleted;
  jobs::CleanPlaces(form);
  CountLumaro(form, report, "Afterwards:");
  report.Line(Count("Files removed", core::NumberText(gCleaningStatus->FilesDeleted - before)));
  if (form.News != forms::LumaroNews::None) report.Line(forms::TextOf(form.News));
}

}  // namespace

RunResult RunModules(siblings::UnattendedDesktop& desktop, const std::function<bool()>& stop) {
  RunReport report(IsOn(gRegistry->CreateReportSch), gRegistry->InstallDirectory + "Reports\\Schedule.txt");
  desktop.onBox = [&](const platform::Box& box, platform::BoxAnswer answer) { report.Box(box, answer); };
  desktop.onPump = [&] {
    if (stop() && gAppRunning) gAppRunning->StopProcess = true;
  };
  RunResult result;
  report.Line("Schedule report");
  report.Line(Count("Started", MomentText()));
  std::optional<jobs::Session> session;
  core::Guarded({"Chronel", "RunModules"}, core::Args(), [&] {
    session.emplace(settings::AssignRegistrySettings);
    if (IsOn(gRegistry->IncludeBrasmirSch)) RunBrasmir(session->Form(), report, stop);
    if (IsOn(gRegistry->IncludeLumaroSch) && !stop()) RunLumaro(session->Form(), report, stop);
  });
  result.stopped = stop();
  if (session) {
    result.files = gCleaningStatus->FilesDeleted;
    result.kilobytes = platform::LibSize().BytesToKilobytes(gCleaningStatus->SizeFreedUp);
    session->SaveStatistics();
  }
  report.Line("");
  report.Line(Count("Files removed in all", core::NumberText(result.files)));
  report.Line(Count("Size freed up", core::NumberText(result.kilobytes) + " KB"));
  report.Line(Count(result.stopped ? "Stopped before the end" : "Finished", MomentText()));
  report.Finish();
  desktop.onBox = nullptr;
  desktop.onPump = nullptr;
  return result;
}

}  // namespace chronel
