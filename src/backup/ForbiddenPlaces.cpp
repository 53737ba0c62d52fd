#include "backup/ForbiddenPlaces.h"

#include <algorithm>

#include "core/Text.h"
#include "platform/Machine.h"
#include "platform/ProtectedFolders.h"

namespace backup {

namespace {

constexpr char kStartup[] = "\\Programs\\Startup";

}  // namespace

ForbiddenPlaces::ForbiddenPlaces() {
  platform::Machine& machine = platform::CurrentMachine();
  std::vector<std::string> folders = {platform::InstallFolder()};
  for (platform::KnownFolder menu :
       {platform::KnownFolder::StartMenu, platform::KnownFolder::CommonStartMenu})
    if (std::string folder = machine.Folder(menu); !folder.empty()) folders.push_back(folder + kStartup);
  for (const std::string& folder : folders) {
    if (folder.empty()) continue;
    folders_.push_back(core::Fold(folder));
    std::vector<platform::Identity> ancestry = machine.Files().Ancestry(folder);
    if (!ancestry.empty()) identities_.push_back(ancestry.front());
  }
}

bool ForbiddenPlaces::Hold(std::string_view path) {
  std::size_t end = path.rfind('\\');
  if (end == path.npos) return false;
  std::string folder(path.substr(0, end));
  auto [known, isNew] = known_.try_emplace(folder);
  if (isNew) known->second = IsIn(std::move(folder));
  return known->second;
}

bool ForbiddenPlaces::IsIn(std::string folder) {
  std::string folded = core::Fold(folder) + "\\";
  // Also a user's whom this session doesn't know.
  if (folded.find(core::Fold(std::string("\\Start Menu") + kStartup + "\\")) != folded.npos) return true;
  for (const std::string& forbidden : folders_)
    if (folded.starts_with(forbidden + "\\")) return true;
  // What isn't there yet will lie in what is.
  platform::FileSystem& files = platform::CurrentMachine().Files();
  std::vector<platform::Identity> ancestry = files.Ancestry(folder);
  while (ancestry.empty() && folder.rfind('\\') != folder.npos && folder.size() > 3) {
    folder.resize(std::max<std::size_t>(folder.rfind('\\'), 3));
    ancestry = files.Ancestry(folder);
  }
  return std::find_first_of(ancestry.begin(), ancestry.end(), identities_.begin(), identities_.end()) !=
         ancestry.end();
}

}  // namespace backup
