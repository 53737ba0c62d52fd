#include "view/Text.h"

#include <cctype>

#include "platform/Utf.h"

namespace view {

wxString ToWx(std::string_view text) {
  wxString result = wxString::FromUTF8(text.data(), text.size());
  if (!result.empty() || text.empty()) return result;
  std::string clean;
  while (!text.empty()) {
    std::size_t length = platform::DecodeUtf8(text).length;
    clean += length ? text.substr(0, length) : "\uFFFD";
    text.remove_prefix(length ? length : 1);
  }
  return wxString::FromUTF8(clean.data(), clean.size());
}

wxString ToWxLine(std::string_view text) {
  for (char c : text) {
    if (static_cast<unsigned char>(c) >= 0x20) continue;
    std::string line(text);
    for (char& each : line)
      if (static_cast<unsigned char>(each) < 0x20) each = ' ';
    return ToWx(line);
  }
  return ToWx(text);
}

std::string FromWx(const wxString& text) {
  auto utf8 = text.utf8_str();
  return std::string(utf8.data(), utf8.length());
}

wxString ToWxLabel(std::string_view text, char mnemonic) {
  std::string label;
  bool marked = mnemonic == '\0';
  for (char c : text) {
    if (!marked &&
        std::tolower(static_cast<unsigned char>(c)) == std::tolower(static_cast<unsigned char>(mnemonic))) {
      label += '&';
      marked = true;
    }
    label += c;
    if (c == '&') label += '&';
  }
  return ToWx(label);
}

}  // namespace view
