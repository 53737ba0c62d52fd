// Removing a file so that its content can't be read back from the disk.
#pragma once

#include <string>

namespace platform {

class LibEraser {
 public:
  // Overwrites the file `passes` times (clamped to 1..35; random bytes, in the last pass zeros), over its
  // whole length rounded up to `clusterSize` (bytes; less than 1 counts as 1), flushed to the disk after each
  // pass, then renames it to a name that tells nothing, truncates and removes it. 1 done, 0 failed. A file in
  // use, one that has several names (hard links) and a folder are refused untouched; a link is removed as a
  // link. On a failure before the removal the file keeps its name, and its read-only bit is set again. Lets
  // the stop control in meanwhile.
  long EraseFile(const std::string& path, short passes, long clusterSize) const;
  // Overwrites the file in the same way and empties it; the file stays. 1 done, 0 failed. A file in use, one
  // that has several names, a link and a folder are refused untouched.
  long OverwriteFile(const std::string& path, short passes, long clusterSize) const;
};

}  // namespace platform
