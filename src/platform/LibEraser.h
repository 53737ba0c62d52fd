// Removing a file so that its content can't be read back from the disk.
#pragma once

#include <string>

#include "platform/FileSystem.h"

namespace platform {

class LibEraser {
 public:
  // Renames the file to a name that tells nothing, overwrites it `passes` times (clamped to 1..35; random
  // bytes, in the last pass zeros), flushed to the disk after each pass, truncates and removes it. It is
  // overwritten over its whole length rounded up to `clusterSize` (bytes; less than 1 counts as 1), a sparse
  // file where it takes room on the disk. Lets the stop control in meanwhile.
  //
  // The file is held from the beginning to the end, so that nothing that takes its name meanwhile is touched.
  // A file in use, one that has several names (hard links), one that can't be renamed or removed and a folder
  // are refused untouched; a link is removed as a link. On a failure the file has its name and its read-only
  // bit again. Overwritten, where its content is gone by then.
  Status Erase(const std::string& path, short passes, long clusterSize) const;
  // The same; 1 done, 0 failed.
  long EraseFile(const std::string& path, short passes, long clusterSize) const;
  // Overwrites the file in the same way and empties it; the file stays, with its name. 1 done, 0 failed. A
  // file in use, one that has several names, a link and a folder are refused untouched.
  long OverwriteFile(const std::string& path, short passes, long clusterSize) const;
};

}  // namespace platform
