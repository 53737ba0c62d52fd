#include "schedule/m_Schedule.h"

#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "core/Keys.h"
#include "core/OpenForms.h"
#include "core/Text.h"
#include "core/UserInformation.h"
#include "core/m_SharedProcedures.h"
#include "platform/LibRegistry.h"
#include "platform/LibSmall.h"
#include "platform/Operations.h"
#include "schedule/Calendar.h"

using core::Args;
using core::BoxIcon;
using core::Guarded;
using core::Object;
using core::Value;

namespace m_Schedule {

namespace {

constexpr core::Procedure In(const char* procedure) {
  return {"m_Schedule", procedure};
}
constexpr Object kForm{"frmMain"};
// In twips; the box is made for shorter texts.
constexpr int kNoticeHeight = 5000;

platform::Locale& Locale() {
  return platform::CurrentMachine().GetLocale();
}
platform::DateTime Now() {
  return platform::CurrentMachine().GetClock().Now();
}

std::string SchedulerPath() {
  return gRegistry->InstallDirectory + "Chronel.exe";
}

long SwitchOff() {
  return platform::LibRegistry().WriteValue(gRegistry->HKEY_CURRENT_USER, core::keys::kSchedule, "Schedule",
                                            "0");
}

bool PageIsComplete(const frmMain& form) {
  if (form.chkIncludeBrasmirSchedule.Value == 0 && form.chkIncludeLumaroSchedule.Value == 0) return false;
  return !form.cboDaySchedule.Text().empty() && !form.cboWeekSchedule.Text().empty();
}

}  // namespace

void LoadScheduleSettings(frmMain& form) {
  Guarded(In("LoadScheduleSettings"), Args(kForm), [&] {
    form.cboDaySchedule.Clear();
    form.cboWeekSchedule.Clear();
    form.EnterModule(forms::Module::Schedule);
    for (const char* day : schedule::kDays) form.cboDaySchedule.AddItem(day);
    for (const char* week : schedule::kWeeks) form.cboWeekSchedule.AddItem(week);
    form.chkCreateReportSchedule.Value = core::ToInteger(gRegistry->CreateReportSch);
    form.cboDaySchedule.SetText(gRegistry->DaySch);
    form.chkIncludeBrasmirSchedule.Value = core::ToInteger(gRegistry->IncludeBrasmirSch);
    form.chkIncludeLumaroSchedule.Value = core::ToInteger(gRegistry->IncludeLumaroSch);
    form.chkEnableSchedule.Value = core::ToInteger(gRegistry->EnableScheduleSch);
    form.txtTimeSchedule.Text = gRegistry->TimeSch;
    form.cboWeekSchedule.SetText(gRegistry->WeekSch);
    bool on = core::IsOne(gRegistry->EnableScheduleSch);
    form.SetScheduleOn(on);
    form.lblUserInfoSchedule.Caption = on ? "Schedule started..." : "Schedule stopped...";
  });
}

bool SaveScheduleSettings(const std::string& sSetScheduleDate) {
  return Guarded(In("SaveScheduleSettings"), Args(Value("sSetScheduleDate", sSetScheduleDate)), [&] {
    frmMain& form = core::MainForm();
    platform::RegistryTransaction transaction;
    bool failed = false;
    auto write = [&failed](const char* name, const std::string& text) {
      if (platform::LibRegistry().WriteValue(gRegistry->HKEY_CURRENT_USER, core::keys::kSchedule, name,
                                             text) != 0)
        failed = true;
    };
    write("Schedule", core::NumberText(form.chkEnableSchedule.Value));
    write("Day", form.cboDaySchedule.Text());
    write("Time", form.txtTimeSchedule.Text);
    write("Week", form.cboWeekSchedule.Text());
    write("Brasmir", core::NumberText(form.chkIncludeBrasmirSchedule.Value));
    write("Lumaro", core::NumberText(form.chkIncludeLumaroSchedule.Value));
    write("Create report", core::NumberText(form.chkCreateReportSchedule.Value));
    write("Start date", sSetScheduleDate);
    return transaction.Commit() == 0 && !failed;
  });
}

std::string CalcScheduleDate() {
  return Guarded(In("CalcScheduleDate"), Args(), [] {
    const frmMain& form = core::MainForm();
    platform::DateTime now = Now();
    std::chrono::sys_days day = platform::DayOf(now);
    const std::string& wanted = form.cboDaySchedule.Text();
    if (schedule::DayName(day) == wanted) {
      bool passed = form.txtTimeSchedule.Text.Get() < Locale().LongTime(now);
      return Locale().ShortDate(platform::DateOf(day + std::chrono::days(passed ? 7 : 0)));
    }
    for (int step = 0; step < 7; ++step) {
      day += std::chrono::days(1);
      if (schedule::DayName(day) == wanted) return Locale().ShortDate(platform::DateOf(day));
    }
    return std::string();
  });
}

void SetCurrDayAndTime(frmMain& form) {
  Guarded(In("SetCurrDayAndTime"), Args(kForm), [&] {
    platform::DateTime now = Now();
    form.cboDaySchedule.SetText(schedule::DayName(platform::DayOf(now)));
    form.txtTimeSchedule.Text = Locale().LongTime(now);
  });
}

void StartSchedule(frmMain& form) {
  Guarded(In("StartSchedule"), Args(kForm), [&] {
    if (!PageIsComplete(form)) {
      core::Tell(BoxIcon::Exclamation, "Select settings to run...",
                 {"Utilities: Select Brasmir Or Lumaro", "Start: Select Day And Week"});
      return;
    }
    if (!SaveScheduleSettings(CalcScheduleDate())) {
      SwitchOff();
      core::Tell(BoxIcon::Critical, "Registry error...",
                 {"Saving settings to registry returned with error", core::kPermission,
                  "Error configure schedule to run"});
      form.lblUserInfoSchedule.Caption = "Error configure schedule to run...";
      return;
    }
    if (platform::ops::OpenDocument(SchedulerPath()) != platform::Status::Done) {
      SwitchOff();
      core::Tell(
          BoxIcon::Critical, "Schedule Brasmir...",
          {"Open the schedule application failed.",
           "Schedule application could not be located in the installation Directory.", SchedulerPath()});
      form.lblUserInfoSchedule.Caption = "Error starting schedule...";
      return;
    }
    form.lblUserInfoSchedule.Caption = "Schedule started...";
    form.SetScheduleOn(true);
    platform::LibRegistry().WriteValue(gRegistry->HKEY_CURRENT_USER, core::keys::kRun, "Chronel",
                                       SchedulerPath());
    if (core::UserInformationFlag(core::kStartScheduleKey) == 0) ShowNotice();
  });
}

void StopSchedule(frmMain& form) {
  Guarded(In("StopSchedule"), Args(kForm), [&] {
    SwitchOff();
    platform::LibRegistry().DeleteValue(gRegistry->HKEY_CURRENT_USER, core::keys::kRun, "Chronel");
    form.SetScheduleOn(false);
    form.lblUserInfoSchedule.Caption = "Schedule stopped...";
    platform::LibProcess().CloseByName("Chronel");
  });
}

void ShowNotice() {
  frmUserInformation& box = core::ShowUserInformation(core::kStartScheduleKey);
  box.Position.Height = kNoticeHeight;
  box.lblInfo.Caption = core::Lines(
      {"Important Schedule Information.", "", "Schedule will set Brasmir to run automatically.",
       "All settings set under Brasmir will apply to the schedule.",
       // NOLINTNEXTLINE(bugprone-suspicious-missing-comma): a text too long for one line
       "This means that the application will work like it would normally when you manually run the "
       "application.",
       "Since you will not be asked about which individual files you want to delete",
       "and which ones you want to keep, it is strongly recomended that you enable",
       "either the Use Backup option or the Move Files To Recycle Bin option before enabling Schedule.",
       "Scheduler will delete files without user input. ",
       "Be sure that the settings configured are correct. "});
}

}  // namespace m_Schedule
