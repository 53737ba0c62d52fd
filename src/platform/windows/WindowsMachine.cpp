#include "platform/windows/WindowsMachine.h"

#include <windows.h>
#include <knownfolders.h>
#include <shlobj.h>

#include "platform/windows/WindowsBrowserCache.h"
#include "platform/windows/WindowsClock.h"
#include "platform/windows/WindowsDrives.h"
#include "platform/windows/WindowsFileSystem.h"
#include "platform/windows/WindowsFolders.h"
#include "platform/windows/WindowsLocale.h"
#include "platform/windows/WindowsPaths.h"
#include "platform/windows/WindowsPower.h"
#include "platform/windows/WindowsProcesses.h"
#include "platform/windows/WindowsRecycleBin.h"
#include "platform/windows/WindowsRegistry.h"
#include "platform/windows/WindowsRights.h"
#include "platform/windows/WindowsShortcuts.h"
#include "platform/windows/WindowsText.h"

namespace platform {

namespace {

// Where the claims' files of a stage, or of the user, lie.
std::wstring ClaimsFolder(const std::string& stage) {
  if (!stage.empty()) return ToWide(stage).value() + L"\\claims";
  PWSTR path = nullptr;
  std::wstring folder;
  if (SUCCEEDED(SHGetKnownFolderPath(FOLDERID_LocalAppData, KF_FLAG_DONT_VERIFY, nullptr, &path)))
    folder = path;
  CoTaskMemFree(path);
  return folder + L"\\Tidorra\\Claims";
}

}  // namespace

struct WindowsMachine::Parts {
  explicit Parts(WindowsOptions options)
      : stage(std::move(options.stage)),
        clock(options.clock ? *options.clock : ownClock),
        folders(stage.knownFolders),
        paths(ToWide(stage.folder).value(), locale, [this] { return folders.Paths(); }),
        files(paths),
        registry(ToWide(stage.registryKey).value()),
        drives(paths, stage.drives),
        bin(files, paths),
        shortcuts(files, locale),
        processes(files, locale, paths, ClaimsFolder(stage.folder)),
        power(stage.folder.empty()) {}

  WindowsStage stage;
  WindowsClock ownClock;
  Clock& clock;
  WindowsLocale locale;
  WindowsFolders folders;
  WindowsPaths paths;
  WindowsFileSystem files;
  WindowsRegistry registry;
  WindowsDrives drives;
  WindowsRecycleBin bin;
  WindowsBrowserCache cache;
  WindowsShortcuts shortcuts;
  WindowsProcesses processes;
  WindowsPower power;
};

WindowsMachine::WindowsMachine(WindowsOptions options) {
  // A drive without a disk in it is a failure of the call, not a box that waits for somebody.
  SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
  parts_ = std::make_unique<Parts>(std::move(options));
}

WindowsMachine::~WindowsMachine() = default;

FileSystem& WindowsMachine::Files() {
  return parts_->files;
}
RegistryStore& WindowsMachine::Registry() {
  return parts_->registry;
}
Drives& WindowsMachine::GetDrives() {
  return parts_->drives;
}
RecycleBin& WindowsMachine::Bin() {
  return parts_->bin;
}
BrowserCache& WindowsMachine::Cache() {
  return parts_->cache;
}
Shortcuts& WindowsMachine::GetShortcuts() {
  return parts_->shortcuts;
}
Processes& WindowsMachine::GetProcesses() {
  return parts_->processes;
}
Power& WindowsMachine::GetPower() {
  return parts_->power;
}
Clock& WindowsMachine::GetClock() {
  return parts_->clock;
}
Locale& WindowsMachine::GetLocale() {
  return parts_->locale;
}
std::string WindowsMachine::Folder(KnownFolder folder) {
  return parts_->folders.Find(folder, parts_->paths);
}

std::vector<std::string> WindowsMachine::ProfileFolders() {
  return parts_->folders.Profiles();
}
std::vector<std::string> WindowsMachine::UsersOwnFolders() {
  return parts_->folders.UsersOwn();
}

std::vector<StartEntry> WindowsMachine::StartOnceEntries(std::string_view program) {
  // A name with a blank in it would have the system try what lies before the blank first.
  StartEntry own{kCurrentUser, "\"" + std::string(program) + "\""}, all{kLocalMachine, own.data};
  std::wstring native;
  // What runs at the next logon of an administrator must be an administrator's.
  bool safe = parts_->paths.Native(program, native) == Status::Done && OnlyAdministratorsMayChange(native);
  return safe ? std::vector{all, own} : std::vector{own};
}

}  // namespace platform
