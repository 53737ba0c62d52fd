// Path text. Touches nothing on disk.
#pragma once

#include <string>
#include <string_view>

namespace platform {

class LibPath {
 public:
  // With exactly one backslash at its end; an empty text stays empty.
  std::string AddBackslash(std::string_view path) const;
  // The folder part of a file path, without its last backslash, but for a drive root, which keeps it ("C:\").
  // Empty for a text without a backslash.
  std::string GetFolder(std::string_view path) const;
  // What stands behind the last backslash.
  std::string GetFileName(std::string_view path) const;
  // What stands behind the last dot of the last component, without the dot; empty if there is none.
  std::string GetExtension(std::string_view path) const;
  // The name of a folder: the last component, whether or not a backslash follows.
  std::string GetBaseName(std::string_view path) const;
  // "C:\" of a path that begins with a drive letter and a colon; otherwise empty.
  std::string GetDriveRoot(std::string_view path) const;
  // `text` with every `find` replaced; an empty `find` replaces nothing.
  std::string ReplaceChars(std::string_view text, std::string_view find, std::string_view replacement) const;
};

}  // namespace platform
