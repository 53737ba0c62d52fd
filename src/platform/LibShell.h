// The shell and the system, with the result codes of the support library.
#pragma once

#include <string>

#include "platform/Operations.h"

namespace platform {

class LibShell {
 public:
  // The folder picker; an empty string if cancelled.
  std::string BrowseForFolder() const;
  // 0 done, else failed (an empty path, no such folder).
  long OpenFolder(const std::string& folder) const { return ops::OpenFolder(folder) == Status::Done ? 0 : 3; }
  // 0 done, else failed.
  long EmptyRecycleBin() const { return ops::EmptyBin() == Status::Done ? 0 : 1; }
  bool IsNT() const;
  // Each 0 for a failure.
  long RebootNT() const { return ops::Restart() == Status::Done ? 1 : 0; }
  long RebootWin9x() const { return RebootNT(); }
  // Changes the display mode; what the system answered.
  long SetScreenResolution(int width, int height) const;
};

}  // namespace platform
