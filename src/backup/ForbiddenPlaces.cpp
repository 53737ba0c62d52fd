#include "backup/ForbiddenPlaces.h"

#include <string>

#include "core/Text.h"
#include "platform/Machine.h"
#include "platform/ProtectedFolders.h"

namespace backup {

namespace {

constexpr char kStartup[] = "\\Programs\\Startup";

// `folder` without a backslash at its end; `path` is folded.
bool LiesIn(std::string_view path, const std::string& folder) {
  if (folder.empty()) return false;
  std::string folded = core::Fold(folder);
  return path.starts_with(folded) && (path.size() == folded.size() || path[folded.size()] == '\\');
}

}  // namespace

bool IsForbidden(std::string_view path) {
  std::string folded = core::Fold(path);
  // A user's whom this session doesn't know.
  if (core::Contains(path, std::string("\\Start Menu") + kStartup + "\\")) return true;
  platform::Machine& machine = platform::CurrentMachine();
  for (platform::KnownFolder menu :
       {platform::KnownFolder::StartMenu, platform::KnownFolder::CommonStartMenu}) {
    std::string folder = machine.Folder(menu);
    if (!folder.empty() && LiesIn(folded, folder + kStartup)) return true;
  }
  return LiesIn(folded, platform::InstallFolder());
}

}  // namespace backup
