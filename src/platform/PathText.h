// Tests on the text of paths, shared by the operations and the backends.
#pragma once

#include <string_view>

namespace platform {

// Begins with a drive letter, a colon and a backslash.
bool IsDrivePath(std::string_view path);

// "C:\".
bool IsDriveRoot(std::string_view path);

// A drive path whose components are all real names: none is empty (so that no backslash stands at the end),
// "." or "..", and none holds a slash or a zero character. A drive's root is one too.
bool IsPlainPath(std::string_view path);

// Without the backslash at the end, if there is one; a drive's root keeps its own.
std::string_view WithoutBackslash(std::string_view path);

// Takes the first component off the front of `rest` (a path without "C:\"), with the backslash behind it.
std::string_view TakeComponent(std::string_view& rest);

}  // namespace platform
