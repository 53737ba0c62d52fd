// The walk through a tree of folders.
#pragma once

#include <string>

#include "platform/FileSystem.h"

namespace platform {

// FileSystem::Walk below the folder `native`, which is `path` in the program's form; both end in a backslash.
// What a folder's listing tells of an entry is taken as it is: nothing is opened but the folders themselves,
// and no link.
Status WalkFolders(std::wstring native, std::string path, const WalkOptions& options, TreeVisitor& visitor);

}  // namespace platform
