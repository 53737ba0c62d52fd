#include "platform/windows/WindowsText.h"

#include "platform/Utf.h"

namespace platform {

void AppendUtf8(std::wstring_view text, std::string& utf8) {
  AppendUtf8<wchar_t>(text, utf8);
}

std::string ToUtf8(std::wstring_view text) {
  return ToUtf8<wchar_t>(text);
}

std::optional<std::wstring> ToWide(std::string_view text) {
  std::wstring wide;
  wide.reserve(text.size());
  bool afterHalf = false;
  while (!text.empty()) {
    Character character = DecodeUtf8(text, Surrogates::Valid);
    if (character.length == 0 || (afterHalf && IsLowSurrogate(character.value))) return std::nullopt;
    afterHalf = IsHighSurrogate(character.value);
    AppendUtf16(character.value, wide);
    text.remove_prefix(character.length);
  }
  return wide;
}

}  // namespace platform
