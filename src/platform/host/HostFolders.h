// The known folders of the played computer, in the layout of a current Windows user profile.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/FolderLayout.h"
#include "platform/Machine.h"

namespace platform {

class HostFolders {
 public:
  // `userName` names the folder below C:\Users. With the native folder of the drives, Find mostly costs one
  // call to the system.
  explicit HostFolders(std::string_view userName, std::string drivesFolder = {});

  // Where the folder belongs, whether or not it is there.
  const std::string& Path(KnownFolder folder) const { return layout_.Path(folder); }
  // The same of all known folders, for who wants to know whether a path leads to one.
  const std::vector<std::string>& Paths() const { return layout_.Paths(); }
  // The path if a folder (or a link to one) is there now, otherwise empty.
  std::string Find(KnownFolder folder, FileSystem& files) const;

  // The folders of a fresh computer; see FolderLayout.
  std::vector<std::string> Layout() const { return layout_.Folders(); }

 private:
  FolderLayout layout_;
  std::string drivesFolder_;
};

// The name of the user that this process runs for, as a folder can be called; "User" if there is none.
std::string CurrentUserName();

}  // namespace platform
