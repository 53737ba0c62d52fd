// Erasing a file, with the result codes of the support library.
#pragma once

#include <string>

#include "platform/Erase.h"

namespace platform {

class LibEraser {
 public:
  // See ops::Erase. 1 done, 0 failed.
  long EraseFile(const std::string& path, short passes, long clusterSize) const {
    return ops::Erase(path, passes, clusterSize) == Status::Done ? 1 : 0;
  }
};

}  // namespace platform
