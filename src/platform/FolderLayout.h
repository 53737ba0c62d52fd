// Where the known folders lie in the layout of a current Windows user profile.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/Machine.h"

namespace platform {

// For a computer that is played: what the shell tells of a real one may differ.
class FolderLayout {
 public:
  // `userName` names the folder below C:\Users.
  explicit FolderLayout(std::string_view userName);

  const std::string& Path(KnownFolder folder) const { return paths_[static_cast<std::size_t>(folder)]; }
  // The same of all known folders, in their order.
  const std::vector<std::string>& Paths() const { return paths_; }
  // The folders of a fresh computer on drive C:, parents before children: what Paths() tells of, and what
  // Windows itself has beside them (its system folder, Prefetch, ...).
  std::vector<std::string> Folders() const;

 private:
  std::vector<std::string> paths_;
};

}  // namespace platform
