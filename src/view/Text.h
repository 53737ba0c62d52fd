// Between the program's UTF-8 texts and the toolkit's strings.
#pragma once

#include <string>
#include <string_view>
#include <wx/string.h>

namespace view {

// Never fails: each byte that isn't part of valid UTF-8 becomes a replacement sign.
wxString ToWx(std::string_view text);
// The same for a text that must stay on one line: control characters become blanks.
wxString ToWxLine(std::string_view text);
std::string FromWx(const wxString& text);

// The label of a native control: "&" is doubled, and one stands before the mnemonic's first occurrence.
wxString ToWxLabel(std::string_view text, char mnemonic);

}  // namespace view
