// Single files, with the result codes of the support library.
#pragma once

#include <cstdint>
#include <string>

#include "platform/Operations.h"

namespace platform {

// Operations.h tells what each does. Nothing here follows a link or acts through one.
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
  // 1 done, 0 failed (missing, in use, denied, refused).
  long Delete(const std::string& path) const { return ops::Remove(path) == Status::Done ? 1 : 0; }
  // 0 done, any other value failed.
  long MoveToRecycleBin(const std::string& path) const {
    return ops::MoveToBin(path) == Status::Done ? 0 : 1;
  }
  // True: the file is locked and stayed as it was. False: it is empty, or wasn't there.
  bool ClearFile(const std::string& path) const {
    Status status = ops::Empty(path);
    return status != Status::Done && status != Status::Missing;
  }
  // 1 a file of that name is there, -1 not.
  long Exists(const std::string& path) const { return ops::IsFile(path) ? 1 : -1; }
  // The same as a Boolean.
  bool IsPresent(const std::string& path) const { return ops::IsFile(path); }
  // Greater than 32 done.
  long ShellOpen(const std::string& path) const { return ops::OpenDocument(path) == Status::Done ? 33 : 2; }
  // 0 done, else failed.
  long ViewContent(const std::string& path) const { return ops::ViewContent(path) == Status::Done ? 0 : 2; }
  // 0 failed.
  long ShowProperties(const std::string& path) const {
    return ops::ShowProperties(path) == Status::Done ? 1 : 0;
  }
  // The file picker; an empty string if cancelled.
  std::string BrowseForFile() const;
};

}  // namespace platform
