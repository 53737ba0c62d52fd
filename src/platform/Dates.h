// Between the program's dates and the calendar of the standard library.
#pragma once

#include <chrono>

#include "platform/Machine.h"

namespace platform {

inline std::chrono::year_month_day CalendarDay(const DateTime& date) {
  return {std::chrono::year(date.year), std::chrono::month(static_cast<unsigned>(date.month)),
          std::chrono::day(static_cast<unsigned>(date.day))};
}

// There is such a day, in the year 1 or later.
inline bool IsDay(const DateTime& date) {
  return date.year > 0 && date.month > 0 && date.day > 0 && CalendarDay(date).ok();
}

inline std::chrono::sys_days DayOf(const DateTime& date) {
  return CalendarDay(date);
}

// The day at midnight.
inline DateTime DateOf(std::chrono::sys_days day) {
  std::chrono::year_month_day date(day);
  return {.year = static_cast<int>(date.year()),
          .month = static_cast<int>(static_cast<unsigned>(date.month())),
          .day = static_cast<int>(static_cast<unsigned>(date.day()))};
}

}  // namespace platform
