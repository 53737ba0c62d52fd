// The small pictures of lists and menus, by position and key. Names are those of icon files, without size and
// extension.
#pragma once

#include <string>
#include <vector>

namespace forms {

// Positions in ControlIcons(), which is where a list row's small icon counts from 1.
enum ControlIcon {
  IconDrive = 1,
  IconFileFilter,
  IconExcludedDirectory,
  IconBackup,
  IconDescription,
  IconMru1,
  IconExcludedFile,
  IconClearFolder,
  IconPlugIn,
  IconTools,
  IconFinish,
};

// Eleven pictures, keys "Drive", "File filter", "Excluded directory", "Backup", "Description", "MRU1",
// "Excluded file", "Clear folder", "PlugIn", "Tools", "Finish".
const std::vector<std::string>& ControlIcons();

// Ten pictures, keys "Open file", "View file content", "Open container", "File property", "Delete", "Recycle
// bin", "Erase", "Windows startup", "Exclude file", "Exclude directory".
const std::vector<std::string>& MenuIcons();

}  // namespace forms
