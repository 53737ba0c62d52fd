#include "platform/Utf.h"

namespace platform {

Character DecodeUtf8(std::string_view text, Surrogates surrogates) {
  auto byte = [text](std::size_t i) -> char32_t { return static_cast<unsigned char>(text[i]); };
  if (text.empty()) return {};
  char32_t first = byte(0);
  if (first < 0x80) return {first, 1};
  std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4 || length > text.size()) return {};
  char32_t character = first & (0x7Fu >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0) != 0x80) return {};
    character = character << 6 | (byte(i) & 0x3F);
  }
  constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
  if (character < kLeast[length] || character > 0x10FFFF) return {};
  bool half = IsHighSurrogate(character) || IsLowSurrogate(character);
  if (half && surrogates == Surrogates::Invalid) return {};
  return {character, length};
}

bool IsUtf8(std::string_view text) {
  while (!text.empty()) {
    std::size_t length = DecodeUtf8(text).length;
    if (length == 0) return false;
    text.remove_prefix(length);
  }
  return true;
}

void AppendUtf8(char32_t character, std::string& text) {
  auto put = [&text](char32_t bits) { text += static_cast<char>(bits); };
  if (character < 0x80) return put(character);
  if (character < 0x800) {
    put(0xC0 | character >> 6);
  } else {
    if (character < 0x10000) {
      put(0xE0 | character >> 12);
    } else {
      put(0xF0 | character >> 18);
      put(0x80 | (character >> 12 & 0x3F));
    }
    put(0x80 | (character >> 6 & 0x3F));
  }
  put(0x80 | (character & 0x3F));
}

}  // namespace platform
