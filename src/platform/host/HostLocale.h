// The regional settings of the played computer: fixed forms of date and time, code page 1252.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/Machine.h"

namespace platform {

// Dates are "MM/dd/yyyy" (read back with one or two digits of month and day), times "HH:mm:ss".
class HostLocale : public Locale {
 public:
  std::string ShortDate(const DateTime& date) override;
  std::string LongTime(const DateTime& time) override;
  std::optional<DateTime> ParseDate(std::string_view text) override;
  std::string Fold(std::string_view text) override;
  // The five positions that code page 1252 leaves undefined (81, 8D, 8F, 90, 9D) are no place for any
  // character, and come back as U+FFFD. A byte that isn't part of valid UTF-8 has no place either.
  std::optional<std::string> ToAnsi(std::string_view text) override;
  std::string FromAnsi(std::string_view bytes) override;
};

// Appends `text` to `folded` with each letter replaced by its small one. One character always becomes one
// character, as in the upper-case table of a Windows disk, so that a name such as "Straße" is never taken for
// "STRASSE"; and only the ASCII letters fold to ASCII letters (not the Kelvin sign, not the dotless i). Bytes
// that aren't valid UTF-8 are kept.
void FoldCase(std::string_view text, std::string& folded);

}  // namespace platform
