// The rule file's vocabulary: where a file lies, the names of kinds and roots, the path tokens.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace plugins {

inline constexpr std::string_view kSingleFile = "Single File";
inline constexpr std::string_view kAllFiles = "All Files";
inline constexpr std::string_view kAllFilesSub = "All Files/Sub";
inline constexpr std::string_view kSingleValue = "Single Value";
inline constexpr std::string_view kAllValues = "All Values";

// True for a text that can name one file or folder: not empty, not "." or "..", without separators and the
// other characters that a name can't hold, and not ending in a dot or a blank.
bool IsOneName(std::string_view text);

// The folder of all plug-ins, without a trailing backslash.
std::string PlugInsFolder();
// The folder of a category; empty where the category isn't one name, so that nothing leads out of the
// plug-ins' folder.
std::string CategoryFolder(std::string_view category);
// The file of a plug-in: a category that is one name, or is empty for a file that lies in no category, and a
// name that is one. Empty otherwise.
std::string PlugInPath(std::string_view category, std::string_view name);

// The root key of a root name, compared exactly; nothing for a name that is none of the seven.
std::optional<std::uint32_t> RootKey(std::string_view name);

// What the tokens of a path stand for, each with a trailing backslash.
struct TokenFolders {
  std::string systemRoot, windows, programFiles;
};
// Replaces the tokens %SystemRoot%, %windir% and %ProgramFiles%, in this order and in any case. A token takes
// with it all that stands before the path's first "%" and the one character behind the token's length.
std::string ExpandTokens(std::string path, const TokenFolders& folders);

// The text before the first "|", which is taken off `rest` with it. Raises error 5 where there is none.
std::string_view TakeField(std::string_view& rest);

}  // namespace plugins
