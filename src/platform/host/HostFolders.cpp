#include "platform/host/HostFolders.h"

#include <algorithm>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

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

HostFolders::HostFolders(std::string_view userName, std::string drivesFolder)
    : drivesFolder_(std::move(drivesFolder)) {
  std::string profile = std::string(kProfiles) + "\\" + std::string(userName);
  for (std::string_view folder : kFolders)
    paths_.push_back(folder.empty() || folder.front() == '\\' ? profile + std::string(folder)
                                                              : std::string(folder));
}

const std::string& HostFolders::Path(KnownFolder folder) const {
  return paths_[static_cast<std::size_t>(folder)];
}

std::string HostFolders::Find(KnownFolder folder, FileSystem& files) const {
  const std::string& path = Path(folder);
  if (!drivesFolder_.empty()) {
    // As it is spelt here it is there nearly always.
    std::string native = drivesFolder_ + "/c:" + path.substr(2);
    std::replace(native.begin(), native.end(), '\\', '/');
    struct stat info;
    if (stat(native.c_str(), &info) == 0 && S_ISDIR(info.st_mode)) return path;
  }
  EntryKind kind = files.Look(path).kind;
  return kind == EntryKind::Folder || kind == EntryKind::FolderLink ? path : std::string();
}

std::vector<std::string> HostFolders::Layout() const {
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

std::string CurrentUserName() {
  std::string name;
  if (const passwd* entry = getpwuid(getuid()); entry && entry->pw_name) name = entry->pw_name;
  if (name.empty() || name.find_first_of("\\/:*?\"<>|") != std::string::npos || name.back() == '.' ||
      name.front() == '.')
    return "User";
  return name;
}

}  // namespace platform
