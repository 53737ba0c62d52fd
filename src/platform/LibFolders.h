// The special folders.
#pragma once

#include <string>

namespace platform {

// Each gives the folder's path, without a trailing backslash, or an empty string when it can't be found.
class LibFolders {
 public:
  std::string InternetCache() const;
  std::string Cookies() const;
  std::string History() const;
  std::string Recent() const;
  std::string AppData() const;
  std::string Temp() const;
  std::string Windows() const;
  // The Windows folder, which is what %SystemRoot% means.
  std::string System() const;
  // Start menu and desktop, of the current user and of all users.
  std::string UserFolderA() const;
  std::string UserFolderB() const;
  std::string AllUsersFolderA() const;
  std::string AllUsersFolderB() const;
};

}  // namespace platform
