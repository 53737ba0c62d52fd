// Where nothing may come to lie that isn't from the user's own backups. For the ZIP control alone.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/FileSystem.h"

namespace backup {

// The program's own folder, and every user's and the computer's start-up folder. They are known by their
// names, and by what they are: another drive letter or a link on the way makes no difference.
class ForbiddenPlaces {
 public:
  ForbiddenPlaces();
  // Whether a file of that path would lie in one of them.
  bool Hold(std::string_view path);

 private:
  bool IsIn(std::string folder);

  std::vector<std::string> folders_;  // folded, without a backslash at the end
  std::vector<platform::Identity> identities_;
  std::unordered_map<std::string, bool> known_;  // by folder
};

}  // namespace backup
