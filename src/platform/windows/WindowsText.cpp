#include "platform/windows/WindowsText.h"

#include <cstdint>

namespace platform {

namespace {

bool IsHigh(std::uint32_t unit) {
  return unit >= 0xD800 && unit < 0xDC00;
}
bool IsLow(std::uint32_t unit) {
  return unit >= 0xDC00 && unit < 0xE000;
}

// Takes the next character off `text`; False if there is none.
bool Take(std::string_view& text, std::uint32_t& character) {
  auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  std::size_t length = byte(0) < 0x80 ? 1 : byte(0) < 0xC2 ? 0 : byte(0) < 0xE0 ? 2 : byte(0) < 0xF0 ? 3 : 4;
  if (length == 0 || byte(0) > 0xF4 || length > text.size()) return false;
  character = length == 1 ? byte(0) : byte(0) & (0x7Fu >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0) != 0x80) return false;
    character = character << 6 | (byte(i) & 0x3F);
  }
  constexpr std::uint32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
  if (character < kLeast[length] || character > 0x10FFFF) return false;
  text.remove_prefix(length);
  return true;
}

}  // namespace

void AppendUtf8(std::wstring_view text, std::string& utf8) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    std::uint32_t character = text[i];
    if (IsHigh(character) && i + 1 < text.size() && IsLow(text[i + 1]))
      character = 0x10000 + ((character - 0xD800) << 10) + (text[++i] - 0xDC00u);
    auto put = [&](std::uint32_t bits) { utf8 += static_cast<char>(bits); };
    if (character < 0x80) {
      put(character);
      continue;
    }
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
}

std::string ToUtf8(std::wstring_view text) {
  std::string utf8;
  utf8.reserve(text.size());
  AppendUtf8(text, utf8);
  return utf8;
}

std::optional<std::wstring> ToWide(std::string_view text) {
  std::wstring wide;
  wide.reserve(text.size());
  bool afterHalf = false;
  while (!text.empty()) {
    std::uint32_t character;
    if (!Take(text, character)) return std::nullopt;
    if (afterHalf && IsLow(character)) return std::nullopt;
    afterHalf = IsHigh(character);
    if (character >= 0x10000) {
      character -= 0x10000;
      wide += static_cast<wchar_t>(0xD800 + (character >> 10));
      character = 0xDC00 + (character & 0x3FF);
    }
    wide += static_cast<wchar_t>(character);
  }
  return wide;
}

}  // namespace platform
