// The targets of shortcut files.
#pragma once

#include "platform/Machine.h"

namespace platform {

// What the file itself holds goes first, read by its published format: the path, or the one with variables,
// whose values are put in; one that is unknown makes the target unknown. Only a shortcut that names its
// target by the shell's item ids alone is handed to the shell, which turns them into a path without looking
// at the disk. Nothing ever searches for a target that has moved.
class WindowsShortcuts : public Shortcuts {
 public:
  WindowsShortcuts(FileSystem& files, Locale& locale) : files_(files), locale_(locale) {}
  std::string Target(std::string_view path) override;

 private:
  FileSystem& files_;
  Locale& locale_;
};

}  // namespace platform
