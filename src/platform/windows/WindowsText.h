// UTF-8 and the system's UTF-16.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace platform {

// A name on a disk may hold half of a surrogate pair; it is written as the three bytes that the half's number
// would have ("WTF-8"), so that every name has one text, which leads back to it.

// Appends `text` to `utf8`.
void AppendUtf8(std::wstring_view text, std::string& utf8);
std::string ToUtf8(std::wstring_view text);
// Empty for bytes that are no such text. Two halves that are written apart are none, since together they have
// another text.
std::optional<std::wstring> ToWide(std::string_view text);

}  // namespace platform
