// Days of the week and steps between dates.
#pragma once

#include <chrono>
#include <string>

#include "platform/Machine.h"

namespace schedule {

inline constexpr const char* kDays[] = {"Monday", "Tuesday",  "Wednesday", "Thursday",
                                        "Friday", "Saturday", "Sunday"};
inline constexpr const char* kWeeks[] = {"Every Week", "Every second Week", "Every third Week",
                                         "Every fourth Week"};

inline std::chrono::sys_days DayOf(const platform::DateTime& date) {
  return std::chrono::year_month_day(std::chrono::year(date.year),
                                     std::chrono::month(static_cast<unsigned>(date.month)),
                                     std::chrono::day(static_cast<unsigned>(date.day)));
}

// The day at midnight.
inline platform::DateTime DateOf(std::chrono::sys_days day) {
  std::chrono::year_month_day date(day);
  return {static_cast<int>(date.year()),
          static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day())),
          0,
          0,
          0};
}

inline std::string DayName(std::chrono::sys_days day) {
  return kDays[std::chrono::weekday(day).iso_encoding() - 1];
}

// The weeks that a week choice stands for, 1 to 4; 1 for a text that is none of the four.
inline int WeeksOf(const std::string& choice) {
  for (int i = 0; i < 4; ++i)
    if (choice == kWeeks[i]) return i + 1;
  return 1;
}

}  // namespace schedule
