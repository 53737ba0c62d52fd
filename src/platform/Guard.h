// What no operation may remove or list for removing, in one place below all callers.
#pragma once

#include <string_view>

namespace platform {

// An absolute path with a drive letter that isn't a drive's root and holds no empty, "." or ".." component,
// no stream name and no device name. What removes a single file or folder asks this.
bool MayActOn(std::string_view path);

// MayActOn, and the path is none of: the Windows folder, the Program Files folders, the folder of all
// profiles or a profile's root, an ancestor of one of these or of the installation folder or of a known
// folder. What removes a tree, or lists one for removing, asks this.
bool MayClearTree(std::string_view path);

// The folder whose ancestors MayClearTree keeps; set once when the settings are read ("C:\Program
// Files\Tidorra").
void SetInstallFolder(std::string_view path);

}  // namespace platform
