#include "platform/FolderLayout.h"

#include <iterator>

namespace platform {

namespace {

constexpr std::string_view kProfiles = "C:\\Users";
constexpr std::string_view kProgramData = "C:\\ProgramData\\Microsoft\\Windows\\Start Menu";

// One for each KnownFolder, in its order; what begins with a backslash lies in the user's profile.
constexpr std::string_view kFolders[] = {
    "\\AppData\\Local\\Microsoft\\Windows\\INetCache",
    "\\AppData\\Local\\Microsoft\\Windows\\INetCookies",
    "\\AppData\\Local\\Microsoft\\Windows\\History",
    "\\AppData\\Roaming\\Microsoft\\Windows\\Recent",
    "\\AppData\\Roaming",
    "\\AppData\\Local\\Temp",
    "C:\\Windows",
    "C:\\Windows",
    "C:\\Program Files",
    "",
    kProfiles,
    "\\AppData\\Roaming\\Microsoft\\Windows\\Start Menu",
    "\\Desktop",
    kProgramData,
    "C:\\Users\\Public\\Desktop",
};
static_assert(std::size(kFolders) == static_cast<std::size_t>(KnownFolder::CommonDesktop) + 1);

constexpr std::string_view kOtherFolders[] = {
    "C:\\Windows\\System32",
    "C:\\Windows\\Prefetch",
    "C:\\Windows\\Temp",
    "C:\\Windows\\Downloaded Program Files",
    "C:\\Windows\\Offline Web Pages",
    "\\AppData\\Roaming\\Microsoft\\Windows\\Start Menu\\Programs",
    "C:\\ProgramData\\Microsoft\\Windows\\Start Menu\\Programs",
    "\\Documents",
    "\\Downloads",
};

}  // namespace

FolderLayout::FolderLayout(std::string_view userName) {
  std::string profile = std::string(kProfiles) + "\\" + std::string(userName);
  for (std::string_view folder : kFolders)
    paths_.push_back(folder.empty() || folder.front() == '\\' ? profile + std::string(folder)
                                                              : std::string(folder));
}

std::vector<std::string> FolderLayout::Folders() const {
  const std::string& profile = Path(KnownFolder::Profile);
  std::vector<std::string> leaves = paths_;
  for (std::string_view folder : kOtherFolders)
    leaves.push_back(folder.front() == '\\' ? profile + std::string(folder) : std::string(folder));

  std::vector<std::string> folders;
  for (const std::string& leaf : leaves)
    for (std::size_t end = leaf.find('\\', 3);; end = leaf.find('\\', end + 1)) {
      folders.push_back(leaf.substr(0, end));
      if (end == std::string::npos) break;
    }
  return folders;
}

}  // namespace platform
