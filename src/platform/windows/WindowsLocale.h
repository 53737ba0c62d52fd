// The regional settings of the user, and the code page of the system.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Machine.h"

namespace platform {

// Dates are written and read by the Gregorian calendar. Where the user's short date has another one it is
// "yyyy-MM-dd".
class WindowsLocale : public Locale {
 public:
  WindowsLocale();
  std::string ShortDate(const DateTime& date) override;
  std::string LongTime(const DateTime& time) override;
  // By the order, the separators and the names of months that ShortDate writes; day and month have one or two
  // digits.
  std::optional<DateTime> ParseDate(std::string_view text) override;
  // One character always becomes one character, as in the upper-case table of a disk, so that a name such as
  // "Straße" is never taken for "STRASSE"; only the ASCII letters fold to ASCII letters. Bytes that are no
  // text are kept.
  std::string Fold(std::string_view text) override;
  // No character is replaced by one that only looks like it.
  std::optional<std::string> ToAnsi(std::string_view text) override;
  std::string FromAnsi(std::string_view bytes) override;

 private:
  // What each code unit folds to.
  std::unique_ptr<std::array<wchar_t, 0x10000>> folded_;
};

}  // namespace platform
