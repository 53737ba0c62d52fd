// UTF-8 and UTF-16, read and written character by character.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace platform {

// A character and how many bytes, or units of UTF-16, it took. Length 0: nothing valid stands there.
struct Character {
  char32_t value = 0;
  std::size_t length = 0;
};

enum class Surrogates {
  Invalid,  // as UTF-8 has it
  Valid,    // half a pair, in three bytes ("WTF-8"): names on a disk of Windows may hold one
};

// The character that `text` begins with.
Character DecodeUtf8(std::string_view text, Surrogates surrogates = Surrogates::Invalid);
// The whole text is well-formed.
bool IsUtf8(std::string_view text);
// A surrogate is written as its three bytes.
void AppendUtf8(char32_t character, std::string& text);

inline bool IsHighSurrogate(char32_t character) {
  return character >= 0xD800 && character < 0xDC00;
}
inline bool IsLowSurrogate(char32_t character) {
  return character >= 0xDC00 && character < 0xE000;
}

// The character that `text` begins with; half a pair is a character of its own. Unit: a type of 16 bits.
template <class Unit>
Character DecodeUtf16(std::basic_string_view<Unit> text) {
  static_assert(sizeof(Unit) == 2);
  if (text.empty()) return {};
  char32_t first = static_cast<char16_t>(text[0]);
  if (!IsHighSurrogate(first) || text.size() < 2) return {first, 1};
  char32_t second = static_cast<char16_t>(text[1]);
  if (!IsLowSurrogate(second)) return {first, 1};
  return {0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00), 2};
}

template <class Unit>
void AppendUtf8(std::basic_string_view<Unit> text, std::string& utf8) {
  while (!text.empty()) {
    Character character = DecodeUtf16(text);
    AppendUtf8(character.value, utf8);
    text.remove_prefix(character.length);
  }
}
template <class Unit>
std::string ToUtf8(std::basic_string_view<Unit> text) {
  std::string utf8;
  utf8.reserve(text.size());
  AppendUtf8(text, utf8);
  return utf8;
}

template <class Unit>
void AppendUtf16(char32_t character, std::basic_string<Unit>& text) {
  static_assert(sizeof(Unit) == 2);
  if (character >= 0x10000) {
    character -= 0x10000;
    text += static_cast<Unit>(0xD800 + (character >> 10));
    character = 0xDC00 + (character & 0x3FF);
  }
  text += static_cast<Unit>(character);
}

}  // namespace platform
