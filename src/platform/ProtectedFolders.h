// The folders that the guards know, for the operations of this room.
#pragma once

#include <string>
#include <vector>

namespace platform {

// What SetInstallFolder was given, without a backslash at its end; empty before.
const std::string& InstallFolder();

// The known folders that there are.
std::vector<std::string> KnownFolderPaths();

}  // namespace platform
