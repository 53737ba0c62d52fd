// The computer that the program runs on.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Machine.h"

namespace platform {

// What is put in the place of the computer's own things, so that nothing happens outside of them. Where the
// folder is empty, the computer is itself.
struct WindowsStage {
  // A native folder; its sub-folders "c", "d", ... are the drives.
  std::string folder = {};
  // A key below HKEY_CURRENT_USER, for all that the registry holds.
  std::string registryKey = {};
  std::vector<Drive> drives = {};
  // One for each KnownFolder.
  std::vector<std::string> knownFolders = {};
};

struct WindowsOptions {
  WindowsStage stage = {};
  // The time; not owned, null for that of the system.
  Clock* clock = nullptr;
};

// The recycle bin and the browser's cache are the computer's own on a stage, too. A stage isn't restarted.
class WindowsMachine : public Machine {
 public:
  explicit WindowsMachine(WindowsOptions options = {});
  ~WindowsMachine() override;

  FileSystem& Files() override;
  RegistryStore& Registry() override;
  Drives& GetDrives() override;
  RecycleBin& Bin() override;
  BrowserCache& Cache() override;
  Shortcuts& GetShortcuts() override;
  Processes& GetProcesses() override;
  Power& GetPower() override;
  Clock& GetClock() override;
  Locale& GetLocale() override;
  std::string Folder(KnownFolder folder) override;
  std::vector<std::string> ProfileFolders() override;
  std::vector<std::string> UsersOwnFolders() override;
  // In the user's own key where anybody but an administrator may change the program or what it lies in, and
  // where the machine's key can't be written.
  std::vector<StartEntry> StartOnceEntries(std::string_view program) override;

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace platform
