// The classes of one or two operations.
#pragma once

#include <string>

#include "platform/CountedList.h"
#include "platform/Operations.h"

namespace platform {

// Display units: divided by 1024 or 1048576 and rounded to two decimals, half away from zero.
class LibSize {
 public:
  double BytesToKilobytes(double size) const;
  double BytesToMegabytes(double size) const;
};

class LibInternetCache {
 public:
  // Appends the keys of the browser cache's entries. 0 done.
  long ListEntries(CountedList& entries) const {
    return ops::ListCacheEntries(entries) == Status::Done ? 0 : 1;
  }
  // Removes one entry by key. 0 done.
  long DeleteEntry(const std::string& entry) const {
    return ops::RemoveCacheEntry(entry) == Status::Done ? 0 : 1;
  }
};

class LibFileTime {
 public:
  // Creation date and time as text, one blank between them, in the user's locale; empty for a file that isn't
  // there.
  std::string GetCreated(const std::string& path) const;
};

class LibShortcut {
 public:
  // 0: the shortcut's target is missing; non-zero: good. A shortcut whose target can't be learned is good, so
  // that nothing is reported as broken that only can't be judged; so is one whose target isn't a drive path.
  long IsTargetValid(const std::string& path) const;
  // The target's path as the shortcut file holds it; raises RuntimeError for a file that can't be read.
  std::string GetPath(const std::string& path) const;
};

class LibProcess {
 public:
  // Ends the running program of that name, if it is the user's own and lies in the installation folder. 1 if
  // one was told to end, 0 if not.
  long CloseByName(const std::string& name) const;
};

}  // namespace platform
