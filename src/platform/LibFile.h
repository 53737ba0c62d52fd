// Single files.
#pragma once

#include <cstdint>
#include <string>

namespace platform {

// Nothing here follows a link or acts through one, and what removes refuses a path that is empty, relative, a
// drive root or holds a "." or ".." component: a refusal is the operation's failure code.
class LibFile {
 public:
  // Bytes. 2147483647 for a larger file, 0 for one that isn't there, -1 for a link, a folder or a file that
  // can't be looked at.
  long GetSize(const std::string& path) const;
  // The same, and whether the read-only bit is set, in one look.
  long GetSize(const std::string& path, bool& readOnly) const;
  // So many bytes as GetSize gives them.
  static long AsSize(std::uint64_t bytes) { return bytes > INT32_MAX ? INT32_MAX : static_cast<long>(bytes); }
  // The attribute word, of the bits 1 (read-only), 2 (hidden), 4 (system), 16 (folder) and 32 (archive); 0
  // for a file that isn't there.
  long GetAttributes(const std::string& path) const;
  // 1 done, 0 failed (missing, in use, denied, refused). Clears the read-only bit first and sets it again if
  // the removal fails. A link is removed as a link.
  long Delete(const std::string& path) const;
  // 0 done, any other value failed. Read-only files as for Delete.
  long MoveToRecycleBin(const std::string& path) const;
  // Empties the file at once. True: it is locked and stayed as it was. False: it is empty, or wasn't there.
  bool ClearFile(const std::string& path) const;
  // 1 a file of that name is there, -1 not.
  long Exists(const std::string& path) const;
  // The same as a Boolean.
  bool IsPresent(const std::string& path) const;
  // Opens the file with its associated program; starts it if it is an executable (".exe"). Greater than 32
  // done.
  long ShellOpen(const std::string& path) const;
  // Shows the content in a viewer. 0 done, else failed (no such file).
  long ViewContent(const std::string& path) const;
  // The shell's properties of the file. 0 failed.
  long ShowProperties(const std::string& path) const;
  // The file picker; an empty string if cancelled.
  std::string BrowseForFile() const;
};

}  // namespace platform
