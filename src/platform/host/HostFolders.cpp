#include "platform/host/HostFolders.h"

#include <algorithm>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace platform {

HostFolders::HostFolders(std::string_view userName, std::string drivesFolder)
    : layout_(userName), drivesFolder_(std::move(drivesFolder)) {}

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

std::string CurrentUserName() {
  std::string name;
  if (const passwd* entry = getpwuid(getuid()); entry && entry->pw_name) name = entry->pw_name;
  if (name.empty() || name.find_first_of("\\/:*?\"<>|") != std::string::npos || name.back() == '.' ||
      name.front() == '.')
    return "User";
  return name;
}

}  // namespace platform
