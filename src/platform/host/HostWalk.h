// The walk through a tree of folders.
#pragma once

#include <string>

#include "platform/FileSystem.h"
#include "platform/host/UniqueFd.h"

namespace platform {

// FileSystem::Walk below a folder that is open for finding names. `path` is the folder's, ended by a
// backslash. Links are never entered; sockets, pipes and devices, which no Windows computer has among its
// files, aren't listed.
Status WalkFolders(const UniqueFd& root, std::string path, const WalkOptions& options, TreeVisitor& visitor);

}  // namespace platform
