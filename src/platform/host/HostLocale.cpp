#include "platform/host/HostLocale.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <utf8proc.h>

#include "platform/Dates.h"
#include "platform/Utf.h"

namespace platform {

namespace {

// Code page 1252 from 0x80 to 0x9F; 0 for the undefined positions. The rest of the page is Latin-1.
constexpr std::array<char16_t, 32> kUpperHalf = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

bool IsAscii(std::string_view text) {
  for (unsigned char c : text)
    if (c >= 0x80) return false;
  return true;
}

// Takes `least` to `most` digits off the front of `text`; -1 if there are fewer.
int TakeNumber(std::string_view& text, std::size_t least, std::size_t most) {
  int number = 0;
  std::size_t digits = 0;
  while (digits < most && digits < text.size() && text[digits] >= '0' && text[digits] <= '9')
    number = number * 10 + (text[digits++] - '0');
  if (digits < least) return -1;
  text.remove_prefix(digits);
  return number;
}

bool TakeSlash(std::string_view& text) {
  if (text.empty() || text.front() != '/') return false;
  text.remove_prefix(1);
  return true;
}

}  // namespace

void FoldCase(std::string_view text, std::string& folded) {
  std::size_t i = 0;
  while (i < text.size()) {
    std::size_t end = i;
    while (end < text.size() && static_cast<unsigned char>(text[end]) < 0x80) ++end;
    if (end > i) {
      std::size_t start = folded.size();
      folded.append(text, i, end - i);
      for (std::size_t at = start; at < folded.size(); ++at)
        if (folded[at] >= 'A' && folded[at] <= 'Z') folded[at] = static_cast<char>(folded[at] + 32);
      i = end;
      continue;
    }
    auto [character, length] = DecodeUtf8(text.substr(i));
    // By way of the capital, so that letters with two small forms (the two sigmas) meet.
    auto capital = utf8proc_toupper(static_cast<utf8proc_int32_t>(character));
    auto small = static_cast<char32_t>(utf8proc_tolower(capital));
    length = std::max<std::size_t>(length, 1);
    if (small < 0x80)
      folded.append(text, i, length);
    else
      AppendUtf8(small, folded);
    i += length;
  }
}

std::string HostLocale::Fold(std::string_view text) {
  std::string folded;
  FoldCase(text, folded);
  return folded;
}

std::string HostLocale::ShortDate(const DateTime& date) {
  char text[48];
  std::snprintf(text, sizeof text, "%02d/%02d/%04d", date.month, date.day, date.year);
  return text;
}

std::string HostLocale::LongTime(const DateTime& time) {
  char text[48];
  std::snprintf(text, sizeof text, "%02d:%02d:%02d", time.hour, time.minute, time.second);
  return text;
}

std::optional<DateTime> HostLocale::ParseDate(std::string_view text) {
  DateTime date;
  date.month = TakeNumber(text, 1, 2);
  if (!TakeSlash(text)) return std::nullopt;
  date.day = TakeNumber(text, 1, 2);
  if (!TakeSlash(text)) return std::nullopt;
  date.year = TakeNumber(text, 4, 4);
  return text.empty() && IsDay(date) ? std::optional(date) : std::nullopt;
}

std::optional<std::string> HostLocale::ToAnsi(std::string_view text) {
  if (IsAscii(text)) return std::string(text);
  std::string bytes;
  bytes.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    auto [character, length] = DecodeUtf8(text.substr(i));
    if (length == 0) return std::nullopt;
    i += length;
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
      bytes += static_cast<char>(character);
      continue;
    }
    std::size_t place = 0;
    while (place < kUpperHalf.size() && (kUpperHalf[place] == 0 || kUpperHalf[place] != character)) ++place;
    if (place == kUpperHalf.size()) return std::nullopt;
    bytes += static_cast<char>(0x80 + place);
  }
  return bytes;
}

std::string HostLocale::FromAnsi(std::string_view bytes) {
  if (IsAscii(bytes)) return std::string(bytes);
  std::string text;
  text.reserve(bytes.size() + bytes.size() / 4);
  for (unsigned char byte : bytes) {
    if (byte < 0x80) {
      text += static_cast<char>(byte);
    } else {
      char32_t character = byte < 0xA0 ? kUpperHalf[byte - 0x80] : byte;
      AppendUtf8(character == 0 ? 0xFFFD : character, text);
    }
  }
  return text;
}

}  // namespace platform
