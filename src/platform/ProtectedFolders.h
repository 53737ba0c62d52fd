// The folders that the guards know, for the operations of this room.
#pragma once

#include <string>
#include <vector>

#include "platform/FileSystem.h"

namespace platform {

// What SetInstallFolder was given, without a backslash at its end; empty before.
const std::string& InstallFolder();

// What no listing of a tree that is to be removed may enter, by whatever way: the folders that MayClear
// refuses for what they are themselves.
std::vector<Identity> KeptFolders();

// The known folders that there are.
std::vector<std::string> KnownFolderPaths();

}  // namespace platform
