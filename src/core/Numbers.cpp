#include "core/Numbers.h"

#include <charconv>
#include <cmath>
#include <cstdio>

#include "core/Text.h"
#include "platform/RuntimeError.h"

namespace core {

double ToNumber(std::string_view text) {
  // Most settings are a digit, and some are read for each of a million files.
  if (text.size() == 1 && text[0] >= '0' && text[0] <= '9') return text[0] - '0';
  text = Trim(text);
  if (!text.empty() && text.front() == '+') {
    text.remove_prefix(1);
    if (text.starts_with('-')) throw platform::TypeMismatch();
  }
  double value = 0;
  auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error == std::errc::result_out_of_range) throw platform::Overflow();
  if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value))
    throw platform::TypeMismatch();
  return value;
}

double RoundHalfEven(double value) {
  double whole = std::floor(value), rest = value - whole;
  if (rest > 0.5 || (rest == 0.5 && std::fmod(whole, 2) != 0)) whole += 1;
  return whole;
}

namespace {}  // namespace

std::int16_t ToInteger(std::string_view text) {
  double value = RoundHalfEven(ToNumber(text));
  if (value < INT16_MIN || value > INT16_MAX) throw platform::Overflow();
  return static_cast<std::int16_t>(value);
}

bool ToBoolean(std::string_view text) {
  if (Equals(text, "True")) return true;
  if (Equals(text, "False")) return false;
  return ToNumber(text) != 0;
}

bool IsOne(std::string_view text) {
  return ToNumber(text) == 1;
}

std::string BooleanText(bool value) {
  return value ? "True" : "False";
}

std::string NumberText(double value) {
  // Nearly every number is a whole one, and many are shown once for each of a million files.
  if (std::abs(value) < 1e15 && value == std::trunc(value))
    return std::to_string(static_cast<std::int64_t>(value));
  char text[40];
  std::snprintf(text, sizeof text, "%.15G", value);
  return text;
}

std::string WholeText(double value) {
  char text[330];
  double rounded = std::round(value);
  std::snprintf(text, sizeof text, "%.0f", rounded == 0 ? 0.0 : rounded);
  return text;
}

std::string PercentText(double step, double maximum) {
  return WholeText(maximum == 0 ? 0 : step * 100 / maximum) + "%";
}

}  // namespace core
