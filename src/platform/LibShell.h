// The shell and the system.
#pragma once

#include <string>

namespace platform {

class LibShell {
 public:
  // The folder picker; an empty string if cancelled.
  std::string BrowseForFolder() const;
  // Opens the folder in the shell. 0 done, else failed (an empty path, no such folder).
  long OpenFolder(const std::string& folder) const;
  // 0 done, else failed.
  long EmptyRecycleBin() const;
  bool IsNT() const;
  // 0 failed.
  long RebootNT() const;
  long RebootWin9x() const;
  // Changes the display mode; what the system answered.
  long SetScreenResolution(int width, int height) const;
};

}  // namespace platform
