// Folders.
#pragma once

#include <string>

namespace platform {

class LibDirectory {
 public:
  bool Exists(const std::string& path) const;
  // Makes the folder and those above it that are missing. 1 done (also where it was there), 0 failed.
  long Create(const std::string& path) const;
  // Removes an empty folder, or a link to a folder as a link. 1 done, 0 failed.
  long Remove(const std::string& path) const;
  // Removes the folder with all that is in it; links inside are removed as links and never entered, and what
  // can't be removed stays with the folders above it. Refuses drive roots, the Windows and Program Files
  // folders, the roots of user profiles, known folders' ancestors and every ancestor of the installation
  // folder. 1 done, 0 failed or refused.
  long RemoveTree(const std::string& path) const;
  // Bytes of all files below `path`, links not counted. The second argument is always 0. 0 for a folder that
  // isn't there.
  double GetSize(const std::string& path, int reserved) const;
};

}  // namespace platform
