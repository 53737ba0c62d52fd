// The time of a schedule, as a text.
#pragma once

#include <optional>
#include <string_view>

#include "platform/Machine.h"

namespace schedule {

// A time of day: hours and minutes, and seconds if they are told, parted by ":" or "."; "AM" or "PM" may
// stand behind. Empty for any other text. The date in the result is 0.
std::optional<platform::DateTime> ParseTime(std::string_view text);

}  // namespace schedule
