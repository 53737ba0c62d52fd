#include "core/Text.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <utility>

#include "platform/Machine.h"

namespace core {

namespace {

constexpr char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

// Searches `folded`, which is in lower case, in an ASCII text of any case.
bool FindAscii(std::string_view text, std::string_view folded) {
  if (folded.size() > text.size()) return false;
  const char first = folded.front();
  const char other = first >= 'a' && first <= 'z' ? static_cast<char>(first - 32) : first;
  const char* end = text.data() + (text.size() - folded.size()) + 1;
  for (const char* at = text.data(); at < end; ++at) {
    if (*at != first && *at != other) continue;
    std::size_t i = 1;
    while (i < folded.size() && Lower(at[i]) == folded[i]) ++i;
    if (i == folded.size()) return true;
  }
  return false;
}

// The first character's number and how many bytes it takes; 0 for a byte that is no UTF-8.
std::pair<std::uint32_t, std::size_t> FirstCharacter(std::string_view text) {
  auto byte = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
  const unsigned first = byte(0);
  if (first < 0x80) return {first, 1};
  const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4 || text.size() < length) return {0, 1};
  std::uint32_t code = first & (0x7Fu >> length);
  for (std::size_t at = 1; at < length; ++at) {
    if ((byte(at) & 0xC0) != 0x80) return {0, 1};
    code = code << 6 | (byte(at) & 0x3F);
  }
  constexpr std::uint32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
  const bool good = code >= kSmallest[length] && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
  return good ? std::pair{code, length} : std::pair{0u, std::size_t{1}};
}

bool Hides(std::uint32_t code) {
  const bool control = code < 0x20 || (code >= 0x7F && code < 0xA0);
  const bool lineEnd = code == 0x2028 || code == 0x2029;
  const bool direction = code == 0x200E || code == 0x200F || (code >= 0x202A && code <= 0x202E) ||
                         (code >= 0x2066 && code <= 0x2069);
  return control || lineEnd || direction;
}

}  // namespace

bool IsAscii(std::string_view text) {
  const char* at = text.data();
  std::size_t left = text.size();
  for (; left >= 8; at += 8, left -= 8) {
    std::uint64_t word;
    std::memcpy(&word, at, 8);
    if (word & 0x8080808080808080ull) return false;
  }
  for (; left; ++at, --left)
    if (static_cast<unsigned char>(*at) >= 0x80) return false;
  return true;
}

std::string Fold(std::string_view text) {
  if (!IsAscii(text)) return platform::CurrentMachine().GetLocale().Fold(text);
  std::string folded(text);
  std::transform(folded.begin(), folded.end(), folded.begin(), Lower);
  return folded;
}

Part::Part(std::string_view part) : folded_(Fold(part)), ascii_(IsAscii(folded_)) {}

bool Part::In(std::string_view text) const {
  if (text.empty()) return false;
  if (folded_.empty()) return true;
  // Some letters outside ASCII fold into it, so only a plain text is searched without folding.
  if (IsAscii(text)) return ascii_ && FindAscii(text, folded_);
  return platform::CurrentMachine().GetLocale().Fold(text).find(folded_) != std::string::npos;
}

bool Contains(std::string_view text, std::string_view part) {
  return Part(part).In(text);
}

bool Equals(std::string_view a, std::string_view b) {
  if (IsAscii(a) && IsAscii(b))
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return Lower(x) == Lower(y); });
  return Fold(a) == Fold(b);
}

std::string Lines(const std::vector<std::string>& lines) {
  std::string text;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (i) text += "\r\n";
    text += lines[i];
  }
  return text;
}

std::string OneLine(std::string_view text) {
  constexpr std::string_view kReplacement = "\uFFFD";
  std::string line;
  line.reserve(text.size());
  while (!text.empty()) {
    auto [code, length] = FirstCharacter(text);
    if (Hides(code))
      line += kReplacement;
    else
      line += text.substr(0, length);
    text.remove_prefix(length);
  }
  return line;
}

std::string_view Trim(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

}  // namespace core
