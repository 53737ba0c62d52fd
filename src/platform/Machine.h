// The computer, as primitives: what a backend implements and the operations of this room are made of.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/RegistryStore.h"

namespace platform {

enum class KnownFolder {
  InternetCache,
  Cookies,
  History,
  Recent,
  AppData,
  Temp,
  Windows,
  System,  // what %SystemRoot% stands for
  ProgramFiles,
  Profile,   // the user's own profile folder
  Profiles,  // the folder that holds all users' profiles
  StartMenu,
  Desktop,
  CommonStartMenu,
  CommonDesktop,
};

// Numbers as the system gives them.
enum class DriveKind { Unknown = 0, Removable = 1, Fixed = 2, Network = 3, CdRom = 4, RamDisk = 5 };

struct Drive {
  char letter;  // a capital
  DriveKind kind;
};

struct DriveInfo {
  double total = 0, used = 0, free = 0;  // bytes
  std::string label, fileSystem;
  long clusterSize = 0;  // bytes; 0 if it can't be had
};

class Drives {
 public:
  virtual ~Drives() = default;
  // In the system's order.
  virtual std::vector<Drive> List() = 0;
  // `root` as "C:\". Empty for a drive that isn't there or isn't ready.
  virtual std::optional<DriveInfo> Info(std::string_view root) = 0;
};

class RecycleBin {
 public:
  virtual ~RecycleBin() = default;
  // Moves a file (or a link, as a link) into the bin of its drive.
  virtual Status Move(std::string_view path) = 0;
  // Whether there is a bin that a file of this path could go to at all.
  virtual bool IsThereFor(std::string_view /*path*/) { return true; }
  // `stop`, if given, is asked on the way; once it says True the rest stays, where the system lets emptying
  // be stopped. Lets the stop control in meanwhile.
  virtual Status Empty(const std::function<bool()>& stop = {}) = 0;
};

class BrowserCache {
 public:
  virtual ~BrowserCache() = default;
  virtual Status List(std::vector<std::string>& keys) = 0;
  virtual Status Remove(std::string_view key) = 0;
};

class Shortcuts {
 public:
  virtual ~Shortcuts() = default;
  // The target's path as the shortcut file holds it, unchanged; empty for a shortcut without a path, for a
  // file that can't be read and for one that is no shortcut.
  virtual std::string Target(std::string_view path) = 0;
};

class Processes {
 public:
  virtual ~Processes() = default;
  // Starts a program of the computer; False if it can't be started.
  virtual bool Start(std::string_view program) = 0;
  // Ends the user's own processes of this name whose program lies in `folder`; the number told to end.
  virtual int CloseByName(std::string_view name, std::string_view folder) = 0;
  // Claims `name` for this process until it ends; False if another process has it.
  virtual bool ClaimInstance(std::string_view name) = 0;
  // Gives a claim back before that; nothing where this process doesn't hold it.
  virtual void ReleaseInstance(std::string_view name) = 0;
  // True while any process holds the claim.
  virtual bool InstanceRuns(std::string_view name) = 0;
};

class Power {
 public:
  virtual ~Power() = default;
  virtual bool IsNT() = 0;
  virtual bool Reboot() = 0;  // False on failure
};

// Local time, whole seconds.
struct DateTime {
  int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
  bool operator==(const DateTime&) const = default;
};

class Clock {
 public:
  virtual ~Clock() = default;
  virtual DateTime Now() = 0;
  virtual DateTime ToLocal(Moment moment) = 0;
};

// The user's regional settings.
class Locale {
 public:
  virtual ~Locale() = default;
  virtual std::string ShortDate(const DateTime& date) = 0;
  virtual std::string LongTime(const DateTime& time) = 0;
  // The short date form back into a date (its time 0); empty if the text is none.
  virtual std::optional<DateTime> ParseDate(std::string_view text) = 0;
  // Letters folded so that texts that differ only in case become equal.
  virtual std::string Fold(std::string_view text) = 0;
  // UTF-8 into the ANSI code page; empty if a character has no place in it.
  virtual std::optional<std::string> ToAnsi(std::string_view text) = 0;
  virtual std::string FromAnsi(std::string_view bytes) = 0;
};

// A value of a RunOnce key: the key's root, and the data that has a program started.
struct StartEntry {
  std::uint32_t root;
  std::string data;
};

class Machine {
 public:
  virtual ~Machine() = default;
  virtual FileSystem& Files() = 0;
  virtual RegistryStore& Registry() = 0;
  virtual Drives& GetDrives() = 0;
  virtual RecycleBin& Bin() = 0;
  virtual BrowserCache& Cache() = 0;
  virtual Shortcuts& GetShortcuts() = 0;
  virtual Processes& GetProcesses() = 0;
  virtual Power& GetPower() = 0;
  virtual Clock& GetClock() = 0;
  virtual Locale& GetLocale() = 0;
  // The folder's path without a trailing backslash; empty if there is none.
  virtual std::string Folder(KnownFolder folder) = 0;
  // The profile folders of all users as far as the system tells them, wherever they lie; some may not be
  // there.
  virtual std::vector<std::string> ProfileFolders() { return {}; }
  // The folders that the user keeps documents, downloads, pictures, music and videos in, beside those of
  // these names in a profile.
  virtual std::vector<std::string> UsersOwnFolders() { return {}; }
  // The entries by which the system may be told to start a program once, the best one first.
  virtual std::vector<StartEntry> StartOnceEntries(std::string_view program) {
    return {{kLocalMachine, std::string(program)}};
  }
};

// The computer that the operations of this room work on. One at a time; set before anything else is called.
Machine& CurrentMachine();
void SetCurrentMachine(Machine* machine);

}  // namespace platform
