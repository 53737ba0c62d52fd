#include "siblings/chronel/DueTime.h"

#include "schedule/Calendar.h"
#include "schedule/TimeOfDay.h"

namespace chronel {

using platform::DateTime;

std::optional<DateTime> DueAt(std::string_view date, std::string_view time) {
  auto due = platform::CurrentMachine().GetLocale().ParseDate(date);
  if (!due) return {};
  DateTime at = schedule::ParseTime(time).value_or(DateTime{});
  due->hour = at.hour;
  due->minute = at.minute;
  due->second = at.second;
  return due;
}

std::int64_t SecondsBetween(const DateTime& from, const DateTime& to) {
  auto seconds = [](const DateTime& moment) {
    return platform::DayOf(moment).time_since_epoch().count() * std::int64_t{86'400} + moment.hour * 3600 +
           moment.minute * 60 + moment.second;
  };
  return seconds(to) - seconds(from);
}

DateTime NextDue(const DateTime& due, int weeks, const DateTime& now) {
  const std::int64_t step = weeks * std::int64_t{7 * 86'400};
  std::int64_t passed = SecondsBetween(due, now);
  std::int64_t steps = passed < 0 ? 1 : passed / step + 1;
  DateTime next = platform::DateOf(platform::DayOf(due) + std::chrono::days(7 * weeks * steps));
  next.hour = due.hour;
  next.minute = due.minute;
  next.second = due.second;
  return next;
}

}  // namespace chronel
