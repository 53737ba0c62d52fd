// When a schedule is due.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Machine.h"

namespace chronel {

// The stored date and time of the next run; a text that is no time stands for the beginning of the day. Empty
// for a text that is no date in the short date form.
std::optional<platform::DateTime> DueAt(std::string_view date, std::string_view time);

// Seconds from `from` to `to`, of the calendar.
std::int64_t SecondsBetween(const platform::DateTime& from, const platform::DateTime& to);

// `due` moved on by whole steps of `weeks`, at least one, until it lies behind `now`.
platform::DateTime NextDue(const platform::DateTime& due, int weeks, const platform::DateTime& now);

}  // namespace chronel
