// The recycle bin of the computer.
#pragma once

#include "platform/FileSystem.h"
#include "platform/Machine.h"
#include "platform/windows/WindowsPaths.h"

namespace platform {

// The shell's own bin, with its own rules: a drive without one, or a file that doesn't fit into it, is asked
// about or refused, never quietly removed for good. A folder, a link to one and a name that the shell can't
// be told are Refused.
class WindowsRecycleBin : public RecycleBin {
 public:
  WindowsRecycleBin(FileSystem& files, WindowsPaths& paths) : files_(files), paths_(paths) {}
  Status Move(std::string_view path) override;
  // Drives that aren't built in have no bin.
  bool IsThereFor(std::string_view path) override;
  // All drives' bins of this user, with all that is in them, in one step.
  Status Empty(const std::function<bool()>& stop = {}) override;

 private:
  FileSystem& files_;
  WindowsPaths& paths_;
};

}  // namespace platform
