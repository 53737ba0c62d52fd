#include "siblings/chronel/DueTime.h"

#include <charconv>

#include "core/Text.h"
#include "schedule/Calendar.h"

namespace chronel {

using platform::DateTime;

namespace {

// Takes a number of one or two digits off the front.
std::optional<int> TakeNumber(std::string_view& text) {
  int number = 0;
  auto end = std::from_chars(text.data(), text.data() + text.size(), number).ptr;
  auto length = static_cast<std::size_t>(end - text.data());
  if (length == 0 || length > 2 || text.front() == '-') return {};
  text.remove_prefix(length);
  return number;
}

bool TakeSeparator(std::string_view& text) {
  if (text.empty() || (text.front() != ':' && text.front() != '.')) return false;
  text.remove_prefix(1);
  return true;
}

}  // namespace

std::optional<DateTime> ParseTime(std::string_view text) {
  text = core::Trim(text);
  DateTime time;
  auto hour = TakeNumber(text);
  if (!hour || !TakeSeparator(text)) return {};
  auto minute = TakeNumber(text);
  std::optional<int> second = 0;
  if (TakeSeparator(text)) second = TakeNumber(text);
  if (!minute || !second) return {};
  text = core::Trim(text);
  if (!text.empty()) {
    bool afternoon = core::Equals(text, "PM");
    if ((!afternoon && !core::Equals(text, "AM")) || *hour < 1 || *hour > 12) return {};
    *hour = *hour % 12 + (afternoon ? 12 : 0);
  }
  if (*hour > 23 || *minute > 59 || *second > 59) return {};
  time.hour = *hour;
  time.minute = *minute;
  time.second = *second;
  return time;
}

std::optional<DateTime> DueAt(std::string_view date, std::string_view time) {
  auto due = platform::CurrentMachine().GetLocale().ParseDate(date);
  if (!due) return {};
  DateTime at = ParseTime(time).value_or(DateTime{});
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
