#include "view/Text.h"

#include <cctype>

namespace view {

namespace {

// The length of the well-formed sequence at `at`, 0 if there is none.
std::size_t SequenceAt(std::string_view text, std::size_t at) {
  auto byte = [&](std::size_t i) {
    return at + i < text.size() ? static_cast<unsigned char>(text[at + i]) : 0u;
  };
  unsigned lead = byte(0);
  if (lead < 0x80) return 1;
  std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4) return 0;
  for (std::size_t i = 1; i < length; ++i)
    if ((byte(i) & 0xC0) != 0x80) return 0;
  unsigned second = byte(1);
  // Overlong forms, surrogates and what lies above the last code point.
  if ((lead == 0xE0 && second < 0xA0) || (lead == 0xED && second > 0x9F) || (lead == 0xF0 && second < 0x90) ||
      (lead == 0xF4 && second > 0x8F))
    return 0;
  return length;
}

}  // namespace

bool IsUtf8(std::string_view bytes, bool cut) {
  for (std::size_t at = 0; at < bytes.size();) {
    std::size_t length = SequenceAt(bytes, at);
    if (!length) return cut && bytes.size() - at < 4 && static_cast<unsigned char>(bytes[at]) >= 0xC2;
    at += length;
  }
  return true;
}

wxString ToWx(std::string_view text) {
  wxString result = wxString::FromUTF8(text.data(), text.size());
  if (!result.empty() || text.empty()) return result;
  std::string clean;
  for (std::size_t at = 0; at < text.size();) {
    std::size_t length = SequenceAt(text, at);
    if (length) {
      clean.append(text.substr(at, length));
      at += length;
    } else {
      clean += "\xEF\xBF\xBD";
      ++at;
    }
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
