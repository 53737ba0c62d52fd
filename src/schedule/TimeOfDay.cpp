#include "schedule/TimeOfDay.h"

#include <charconv>

#include "core/Text.h"

namespace schedule {

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

}  // namespace schedule
