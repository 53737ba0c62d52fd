// A computer of its own for one test: real files in a fresh temporary folder, a registry, a clock and a
// desktop.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#ifdef _WIN32
#include "platform/windows/WindowsClock.h"
#include "platform/windows/WindowsMachine.h"
#else
#include "platform/host/HostClock.h"
#include "platform/host/HostMachine.h"
#endif
#include "support/ScriptedDesktop.h"

namespace test {

using Strings = std::vector<std::string>;

// The backend of this build.
#ifdef _WIN32
using RealMachine = platform::WindowsMachine;
using RealClock = platform::WindowsClock;
using RealOptions = platform::WindowsOptions;
#else
using RealMachine = platform::HostMachine;
using RealClock = platform::HostClock;
using RealOptions = platform::HostOptions;
#endif

// Tells what it was set to, and the real time until then.
class TestClock : public platform::Clock {
 public:
  void Set(const platform::DateTime& now) {
    now_ = now;
    set_ = true;
  }
  platform::DateTime Now() override { return set_ ? now_ : real_.Now(); }
  platform::DateTime ToLocal(platform::Moment moment) override { return real_.ToLocal(moment); }

 private:
  RealClock real_;
  platform::DateTime now_;
  bool set_ = false;
};

struct TestOptions {
  std::string userName = "User";
  std::vector<std::pair<char, platform::DriveKind>> drives = {{'C', platform::DriveKind::Fixed}};
  // The folders of Windows, the user's profile and the program on drive C:, and "Install Directory" and
  // "Program Files" in the registry. Without it the drives are empty.
  bool layout = true;
};

// While it lives it is the current machine and its desktop the current desktop. Afterwards everything in its
// folder is gone; links are removed as links.
//
// On Windows it is a stage (see WindowsStage) on a computer that nothing leads out of, or it refuses to be
// made. The recycle bin and the browser's cache are that computer's; both are found empty.
//
// Paths are "C:\folder\name". The helpers work on the native files by the exact spelling and not through the
// program, so that a fault there shows.
class TestComputer {
 public:
  explicit TestComputer(TestOptions options = {});
  ~TestComputer();
  TestComputer(const TestComputer&) = delete;
  TestComputer& operator=(const TestComputer&) = delete;

  TestClock clock;
  ScriptedDesktop desktop;

  RealMachine& Machine() { return *machine_; }
  platform::FileSystem& Files() { return machine_->Files(); }
  platform::RegistryStore& Registry() { return machine_->Registry(); }
  // The temporary folder that everything lies in; its sub-folder brasmir/ is the program's data folder. A
  // test may use it for what lies on no drive.
  const std::string& Root() const { return root_; }
  std::string DataFolder() const { return root_ + "/brasmir"; }

  // A second machine on the same data, as another program of the family has it.
  std::unique_ptr<RealMachine> AnotherMachine();
  // Ends the machine and makes a new one on the same data, as a new start of the program does.
  void Restart();

  // The user's profile, "C:\Users\User"; the installation folder, "C:\Program Files\Tidorra\".
  std::string Profile() const { return "C:\\Users\\" + options_.userName; }
  static std::string InstallDirectory() { return "C:\\Program Files\\Tidorra\\"; }

  // The native path; names are taken as they are spelt.
  std::string Native(std::string_view path) const;
  // Makes the file, and the folders above it that are missing.
  void WriteFile(std::string_view path, std::string_view content = "content");
  // Several of the usual content.
  void WriteFiles(const Strings& paths);
  void MakeFolder(std::string_view path);
  // Empty for a file that isn't there.
  std::string ReadFile(std::string_view path) const;
  // Whether anything of that name is there, a dead link too.
  bool Exists(std::string_view path) const;
  // Those of the paths where anything is.
  Strings Left(const Strings& paths) const;
  bool IsLink(std::string_view path) const;
  void Remove(std::string_view path);
  // A symbolic link to a path of the computer, or to a native one (which begins with a slash).
  void MakeLink(std::string_view path, std::string_view target);
  // A second name (hard link) for a file.
  void MakeSecondName(std::string_view path, std::string_view second);
  // A file of `size` bytes that takes no room on the disk.
  void MakeSparseFile(std::string_view path, std::uint64_t size);
  // Through the machine, which alone knows how attributes and moments are kept.
  void SetAttributes(std::string_view path, std::uint32_t attributes);
  std::uint32_t GetAttributes(std::string_view path);
  void SetModified(std::string_view path, platform::Moment moment);
  // Names in a folder, sorted; empty for one that isn't there.
  Strings List(std::string_view path) const;

  // The registry of the current user; keys without a root.
  void SetValue(std::string_view key, std::string_view name, std::string_view data);
  std::string GetValue(std::string_view key, std::string_view name);
  bool HasValue(std::string_view key, std::string_view name);
  void RemoveValue(std::string_view key, std::string_view name);
  Strings ValueNames(std::string_view key);
  // The same with a root.
  void SetValue(std::uint32_t root, std::string_view key, std::string_view name, std::string_view data);
  std::string GetValue(std::uint32_t root, std::string_view key, std::string_view name);
  // The start entry of the boot-time cleaner: whether it says what it is to say, and nothing else is there.
  bool WillStartKelvish();

  // An entry of the browser's cache; `file` is a path below the cache folder ("IE\AB12\logo.png", made with
  // `content`) or empty for an entry without a file.
  void AddCacheEntry(std::string_view key, std::string_view file = {}, std::string_view content = "cached");
  Strings CacheKeys();

  // How many files have come into the recycle bin and are there.
  int InBin();

 private:
  // What each backend has its own way for.
  void MakeRoot();
  void RemoveRoot();
  RealOptions Options();

  void MakeLayout();

  TestOptions options_;
  std::string root_;
  std::unique_ptr<RealMachine> machine_;
};

// Waits for a state that another process brings about; the limit is only for a fault.
bool Comes(const std::function<bool()>& state);

// The lines of a text that each end in CR LF; what stands behind the last end is left out.
Strings LinesOf(const std::string& text);

}  // namespace test
