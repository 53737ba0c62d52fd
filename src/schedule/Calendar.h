// Days of the week and steps between dates.
#pragma once

#include <chrono>
#include <string>

#include "platform/Dates.h"

namespace schedule {

inline constexpr const char* kDays[] = {"Monday", "Tuesday",  "Wednesday", "Thursday",
                                        "Friday", "Saturday", "Sunday"};
inline constexpr const char* kWeeks[] = {"Every Week", "Every second Week", "Every third Week",
                                         "Every fourth Week"};

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
