// Removing a file so that its content can't be read back from the disk.
#pragma once

#include <string>

#include "platform/FileSystem.h"

namespace platform::ops {

// Renames the file to a name that tells nothing, overwrites it `passes` times (clamped to 1..35; random
// bytes, in the last pass zeros), flushed to the disk after each pass, truncates and removes it. It is
// overwritten over its whole length rounded up to `clusterSize` (bytes; less than 1 counts as 1), a sparse
// file where it takes room on the disk. Lets the stop control in meanwhile.
//
// The file is held from the beginning to the end, so that nothing that takes its name meanwhile is touched. A
// file in use (Locked), one that has several names (hard links), one that can't be renamed or removed and a
// folder are refused untouched; a link is removed as a link. On a failure the file has its name and its
// read-only bit again. Overwritten, where its content is gone by then.
Status Erase(const std::string& path, int passes, long clusterSize);
// Overwrites the file in the same way and empties it; the file stays, with its name. A file in use, one that
// has several names, a link and a folder are refused untouched.
Status Overwrite(const std::string& path, int passes, long clusterSize);

}  // namespace platform::ops
