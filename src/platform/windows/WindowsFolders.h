// The known folders of the user and of the computer.
#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "platform/Machine.h"
#include "platform/windows/WindowsPaths.h"

namespace platform {

class WindowsFolders {
 public:
  // Where `played` isn't empty, it holds the paths, one for each KnownFolder.
  explicit WindowsFolders(std::vector<std::string> played) : played_(std::move(played)) {}

  // All paths, in the order of KnownFolder, whether or not the folders are there; empty for one that lies on
  // no drive of a letter. What the shell told is kept for two seconds, for it is asked for each of many
  // files.
  const std::vector<std::string>& Paths();
  // The path if a folder (or a link to one) is there now, otherwise empty.
  std::string Find(KnownFolder folder, const WindowsPaths& paths);

  // Of all users, by the system's list of profiles; none where the folders are played.
  std::vector<std::string> Profiles() const;
  // Documents, downloads, pictures, music and videos, wherever the user has put them; none where the folders
  // are played.
  std::vector<std::string> UsersOwn() const;

 private:
  std::vector<std::string> played_, told_;
  std::chrono::steady_clock::time_point toldAt_;
};

}  // namespace platform
