// A Windows computer played on a Linux machine: real files, an SQLite registry, the user's own profile.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/Machine.h"

namespace platform {

struct HostOptions {
  // The program's data folder, a native absolute path; empty means DefaultDataFolder. It holds drives/ (the
  // entries "c:", "d:", ...), registry.sqlite and the claims of running programs.
  std::string dataFolder = {};
  // The native folder of the family's executables (see HostProcesses); empty means that none is started.
  std::string programs = {};
  // The name of the profile below C:\Users; empty means the name that the password database has for the user.
  std::string userName = {};
  // The time; not owned, null for that of the system.
  Clock* clock = nullptr;
  // Whether a write to the registry waits until it is on the disk itself. Tests don't need that, and it takes
  // most of their time.
  bool waitForDisk = true;
};

// Where there is no drives/ folder yet, a first start makes it with a drive C: that holds the folders of a
// user profile. The data folder is taken from the eyes of others. Nothing here raises: a data folder that
// can't be made shows in the operations on it.
class HostMachine : public Machine {
 public:
  explicit HostMachine(HostOptions options = {});
  ~HostMachine() override;

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
  // The home of the user that this process runs for, where it lies on a drive.
  std::vector<std::string> ProfileFolders() override;

  // $XDG_DATA_HOME/brasmir, or ~/.local/share/brasmir.
  static std::string DefaultDataFolder();
  // The folder share/ that the build or the installation filled, beside this process's executable or else in
  // the folder above it. Its sub-folder bin/ holds the family's executables.
  static std::string ShareFolder();

  const std::string& DataFolder() const;
  const std::string& DrivesFolder() const;

  // The native path behind "C:\..."; names match without regard to case, and what isn't there is named as
  // given. Empty for a path without a drive that is there.
  std::string ToNative(std::string_view path);
  // The computer's path of a native one, "C:\..."; empty for what lies on no drive.
  std::string FromNative(std::string_view path);
  // Takes the rights of others off a file or folder that belongs to the user, never through a link.
  void MakePrivate(std::string_view path);

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace platform
