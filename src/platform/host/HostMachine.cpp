#include "platform/host/HostMachine.h"

#include <cstdlib>
#include <filesystem>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/host/HostBrowserCache.h"
#include "platform/host/HostClock.h"
#include "platform/host/HostDrives.h"
#include "platform/host/HostFileSystem.h"
#include "platform/host/HostFolders.h"
#include "platform/host/HostLocale.h"
#include "platform/host/HostPower.h"
#include "platform/host/HostPrivacy.h"
#include "platform/host/HostProcesses.h"
#include "platform/host/HostRecycleBin.h"
#include "platform/host/HostRegistry.h"
#include "platform/host/HostShortcuts.h"

namespace platform {

namespace {

std::string HomeFolder() {
  if (const char* home = std::getenv("HOME"); home && home[0] == '/') return home;
  const passwd* entry = getpwuid(getuid());
  return entry && entry->pw_dir && entry->pw_dir[0] == '/' ? entry->pw_dir : std::string();
}

// A fresh computer has a drive C: with the folders of a user profile. What is there already is left alone.
void MakeFirstDrive(const std::string& drives, const HostFolders& folders) {
  namespace fs = std::filesystem;
  std::error_code error;
  if (fs::symlink_status(drives, error).type() != fs::file_type::not_found) return;
  for (const std::string& folder : folders.Layout()) {
    std::string native = drives + "/c:" + folder.substr(2);
    for (char& c : native)
      if (c == '\\') c = '/';
    fs::create_directories(native, error);
  }
}

}  // namespace

struct HostMachine::Parts {
  Parts(HostMachine& machine, HostOptions options)
      : dataFolder(options.dataFolder.empty() ? DefaultDataFolder() : std::move(options.dataFolder)),
        drivesFolder(dataFolder + "/drives"),
        folders(options.userName.empty() ? CurrentUserName() : options.userName, drivesFolder),
        clock(options.clock ? *options.clock : ownClock),
        files(drivesFolder, locale, [this] { return folders.Paths(); }),
        registry(dataFolder + "/registry.sqlite", options.waitForDisk),
        drives(drivesFolder),
        bin(files),
        cache(files, folders.Path(KnownFolder::InternetCache)),
        shortcuts(machine),
        processes(locale, dataFolder, options.programs) {}

  std::string dataFolder, drivesFolder;
  HostFolders folders;
  HostClock ownClock;
  Clock& clock;
  HostLocale locale;
  HostFileSystem files;
  HostRegistry registry;
  HostDrives drives;
  HostRecycleBin bin;
  HostBrowserCache cache;
  HostShortcuts shortcuts;
  HostProcesses processes;
  HostPower power;
};

HostMachine::HostMachine(HostOptions options) {
  std::string dataFolder = options.dataFolder.empty() ? DefaultDataFolder() : options.dataFolder;
  options.dataFolder = dataFolder;
  if (!dataFolder.empty()) {
    std::error_code ignored;
    std::filesystem::create_directories(dataFolder, ignored);
    MakeFolderPrivate(dataFolder);
    HostFolders folders(options.userName.empty() ? CurrentUserName() : options.userName);
    MakeFirstDrive(dataFolder + "/drives", folders);
  }
  parts_ = std::make_unique<Parts>(*this, std::move(options));
}

HostMachine::~HostMachine() = default;

FileSystem& HostMachine::Files() {
  return parts_->files;
}
RegistryStore& HostMachine::Registry() {
  return parts_->registry;
}
Drives& HostMachine::GetDrives() {
  return parts_->drives;
}
RecycleBin& HostMachine::Bin() {
  return parts_->bin;
}
BrowserCache& HostMachine::Cache() {
  return parts_->cache;
}
Shortcuts& HostMachine::GetShortcuts() {
  return parts_->shortcuts;
}
Processes& HostMachine::GetProcesses() {
  return parts_->processes;
}
Power& HostMachine::GetPower() {
  return parts_->power;
}
Clock& HostMachine::GetClock() {
  return parts_->clock;
}
Locale& HostMachine::GetLocale() {
  return parts_->locale;
}
std::string HostMachine::Folder(KnownFolder folder) {
  return parts_->folders.Find(folder, parts_->files);
}
std::vector<std::string> HostMachine::ProfileFolders() {
  std::string home = HomeFolder();
  std::string path = home.empty() ? home : FromNative(home);
  return path.empty() ? std::vector<std::string>() : std::vector<std::string>{std::move(path)};
}

std::string HostMachine::DefaultDataFolder() {
  // The rules for base folders have a relative path ignored.
  if (const char* data = std::getenv("XDG_DATA_HOME"); data && data[0] == '/')
    return std::string(data) + "/brasmir";
  std::string home = HomeFolder();
  return home.empty() ? home : home + "/.local/share/brasmir";
}

std::string HostMachine::ShareFolder() {
  namespace fs = std::filesystem;
  std::error_code error;
  fs::path folder = fs::read_symlink("/proc/self/exe", error).parent_path();
  for (const fs::path& share : {folder / "share", folder.parent_path() / "share"})
    if (fs::is_directory(share, error)) return share;
  return folder / "share";
}

const std::string& HostMachine::DataFolder() const {
  return parts_->dataFolder;
}
const std::string& HostMachine::DrivesFolder() const {
  return parts_->drivesFolder;
}
std::string HostMachine::ToNative(std::string_view path) {
  return parts_->files.ToNative(path);
}
std::string HostMachine::FromNative(std::string_view path) {
  return parts_->files.FromNative(path);
}

void HostMachine::MakePrivate(std::string_view path) {
  parts_->files.TakeRightsOfOthers(path);
}

}  // namespace platform
