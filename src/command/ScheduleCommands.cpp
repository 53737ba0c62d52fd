// The weekly schedule.
#include <algorithm>

#include "command/Commands.h"
#include "core/Keys.h"
#include "core/Numbers.h"
#include "core/Text.h"
#include "core/m_SharedProcedures.h"
#include "jobs/Session.h"
#include "platform/LibRegistry.h"
#include "platform/RuntimeError.h"
#include "platform/TextFile.h"
#include "schedule/Calendar.h"
#include "schedule/TimeOfDay.h"
#include "schedule/m_Schedule.h"
#include "settings/m_Registry.h"

namespace command {

namespace {

constexpr std::uint64_t kLargestStatus = 64 * 1024;

bool IsOn(const std::string& setting) {
  return setting == "1";
}

// What the scheduler has written about itself; nothing where it hasn't yet.
std::vector<std::string> Status() {
  std::vector<std::string> lines;
  try {
    platform::TextReader reader(gRegistry->InstallDirectory + "Reports\\Status Schedule.txt", kLargestStatus);
    while (!reader.AtEnd()) lines.push_back(reader.ReadLine());
  } catch (const platform::RuntimeError&) {
  }
  return lines;
}

// The name in the program's own spelling; empty for one that is none.
template <class Names>
std::string Spelled(const Names& names, const std::string& text) {
  for (const char* name : names)
    if (core::Equals(name, text)) return name;
  return {};
}

// 1 to 4, or the words of the schedule's page.
std::string Week(const std::string& text) {
  if (text.size() == 1 && text[0] >= '1' && text[0] <= '4')
    return schedule::kWeeks[static_cast<std::size_t>(text[0] - '1')];
  return Spelled(schedule::kWeeks, text);
}

bool ApplyWishes(Context& context, frmMain& form) {
  const Wishes& wishes = context.wishes;
  if (!wishes.day.empty()) {
    std::string day = Spelled(schedule::kDays, wishes.day);
    if (day.empty()) return UsedWrongly(context, wishes.day + " is no day of the week"), false;
    form.cboDaySchedule.SetText(day);
  }
  if (!wishes.time.empty()) {
    auto time = schedule::ParseTime(wishes.time);
    if (!time) return UsedWrongly(context, wishes.time + " is no time; 14:30 is one"), false;
    form.txtTimeSchedule.Text = platform::CurrentMachine().GetLocale().LongTime(*time);
  }
  if (!wishes.week.empty()) {
    std::string week = Week(wishes.week);
    if (week.empty()) return UsedWrongly(context, wishes.week + " is none of 1, 2, 3 and 4"), false;
    form.cboWeekSchedule.SetText(week);
  }
  if (wishes.onlyBrasmir || wishes.onlyLumaro) {
    form.chkIncludeBrasmirSchedule.Value = wishes.onlyBrasmir ? 1 : 0;
    form.chkIncludeLumaroSchedule.Value = wishes.onlyLumaro ? 1 : 0;
  }
  form.chkEnableSchedule.Value = 1;
  return true;
}

}  // namespace

int ScheduleShow(Context& context) {
  const c_Registry& settings = *gRegistry;
  std::string date =
      platform::LibRegistry().ReadValue(platform::kCurrentUser, core::keys::kSchedule, "Start date");
  context.output.Table({{"What", 10}, {"Setting", 0}});
  const bool on = IsOn(settings.EnableScheduleSch);
  Json object = {{"type", "schedule"},
                 {"on", on},
                 {"day", settings.DaySch},
                 {"time", settings.TimeSch},
                 {"week", settings.WeekSch},
                 {"brasmir", IsOn(settings.IncludeBrasmirSch)},
                 {"lumaro", IsOn(settings.IncludeLumaroSch)},
                 {"next", date},
                 {"status", Status()}};
  if (context.wishes.form == Form::Json) {
    context.output.Row({}, object);
    return kAllDone;
  }
  auto row = [&](const char* what, const std::string& setting) { context.output.Row({what, setting}, {}); };
  row("On", on ? "yes" : "no");
  row("Day", settings.DaySch);
  row("Time", settings.TimeSch);
  row("Week", settings.WeekSch);
  row("Brasmir", IsOn(settings.IncludeBrasmirSch) ? "yes" : "no");
  row("Lumaro", IsOn(settings.IncludeLumaroSch) ? "yes" : "no");
  if (on) row("Next date", date);
  for (const std::string& line : Status()) row("", line);
  return kAllDone;
}

int ScheduleSet(Context& context) {
  int code = kAllDone;
  jobs::Session session([](frmMain& form) {
    m_Registry::AssignOptionSettings(form);
    m_Schedule::LoadScheduleSettings(form);
  });
  frmMain& form = session.Form();
  if (!ApplyWishes(context, form)) return kUsedWrongly;
  const std::string what = form.cboDaySchedule.Text() + ", " + form.txtTimeSchedule.Text.Get() + ", " +
                           form.cboWeekSchedule.Text();
  if (!context.desktop.Confirm("Remove files without a question on " + what + "?", code)) return code;
  m_Schedule::StartSchedule(form);
  if (!form.ScheduleIsOn) return kNothingDone;
  context.output.Summary("The schedule is on: " + what, {{"type", "summary"},
                                                         {"on", true},
                                                         {"day", form.cboDaySchedule.Text()},
                                                         {"time", form.txtTimeSchedule.Text.Get()},
                                                         {"week", form.cboWeekSchedule.Text()}});
  return kAllDone;
}

int ScheduleOff(Context& context) {
  jobs::Session session([](frmMain&) {});
  m_Schedule::StopSchedule(session.Form());
  if (IsOn(platform::LibRegistry().ReadValue(platform::kCurrentUser, core::keys::kSchedule, "Schedule")))
    return NothingDone(context, "the settings can't be written");
  context.output.Summary("The schedule is off", {{"type", "summary"}, {"on", false}});
  return kAllDone;
}

}  // namespace command
