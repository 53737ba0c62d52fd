// A computer in memory, small and quick: what a fuzzing program acts on. Names match without regard to ASCII
// case.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/Fuzz.h"
#include "platform/Desktop.h"
#include "platform/Machine.h"

namespace fuzz {

// Without regard to ASCII case.
std::string Folded(std::string_view text);

// A drive C: with the folders of a user. While it lives it is the current machine, and nobody is at its
// screen.
class MemoryMachine : public platform::Machine,
                      public platform::FileSystem,
                      public platform::Drives,
                      public platform::RecycleBin,
                      public platform::Clock,
                      public platform::Locale {
 public:
  MemoryMachine();
  ~MemoryMachine() override;

  struct Node {
    std::string path;  // as it was made
    platform::EntryKind kind = platform::EntryKind::File;
    // Shared with those who have the file open: it may be removed under them.
    std::shared_ptr<std::string> content = std::make_shared<std::string>();
    std::uint32_t attributes = 0;
    platform::Moment created = 0, accessed = 0, modified = 0;
  };
  // With the folders above it.
  void Put(const std::string& path, const std::string& content);
  void PutLink(const std::string& path);
  // By folded path, so that a folder comes before what lies in it.
  const std::map<std::string, Node>& Nodes() const { return nodes_; }
  // The contents of what is in the bin, by the paths that it had.
  const std::multimap<std::string, std::string>& Recycled() const { return recycled_; }

  platform::EntryInfo Look(std::string_view path) override;
  platform::Status RemoveFile(std::string_view path, bool readOnlyToo = false) override;
  platform::Status RemoveFolder(std::string_view path, bool readOnlyToo = false) override;
  platform::Status SetAttributes(std::string_view path, std::uint32_t attributes,
                                 std::optional<platform::Identity> only = {}) override;
  platform::Status SetTimes(std::string_view path, std::optional<platform::Moment> created,
                            std::optional<platform::Moment> accessed,
                            std::optional<platform::Moment> modified) override;
  platform::Status Rename(std::string_view from, std::string_view to, bool replace) override;
  platform::Status CreateFolder(std::string_view path) override;
  std::unique_ptr<platform::File> Open(std::string_view path, platform::OpenMode mode,
                                       platform::Status& status) override;
  // Nothing is erased here.
  std::unique_ptr<platform::HeldFile> Hold(std::string_view, platform::Status&) override {
    Fail("a file was to be erased");
  }
  std::vector<platform::Identity> Ancestry(std::string_view path) override;
  platform::Status TestLock(std::string_view path) override;
  platform::Status Walk(std::string_view root, const platform::WalkOptions& options,
                        platform::TreeVisitor& visitor) override;
  platform::Status FlushFolder(std::string_view) override { return platform::Status::Done; }

  std::vector<platform::Drive> List() override { return {{'C', platform::DriveKind::Fixed}}; }
  std::optional<platform::DriveInfo> Info(std::string_view root) override;
  platform::Status Move(std::string_view path) override;
  platform::Status Empty(const std::function<bool()>& = {}) override { return platform::Status::Done; }
  platform::DateTime Now() override { return {2026, 11, 17, 22, 46, 9}; }
  platform::DateTime ToLocal(platform::Moment moment) override;
  std::string ShortDate(const platform::DateTime& date) override;
  std::string LongTime(const platform::DateTime& time) override;
  std::optional<platform::DateTime> ParseDate(std::string_view) override { return {}; }
  std::string Fold(std::string_view text) override { return Folded(text); }
  std::optional<std::string> ToAnsi(std::string_view text) override { return std::string(text); }
  std::string FromAnsi(std::string_view bytes) override { return std::string(bytes); }

  platform::FileSystem& Files() override { return *this; }
  platform::Drives& GetDrives() override { return *this; }
  platform::RecycleBin& Bin() override { return *this; }
  platform::Clock& GetClock() override { return *this; }
  platform::Locale& GetLocale() override { return *this; }
  std::string Folder(platform::KnownFolder folder) override;
  // Not to be had here: asking for one is a fault of the program that asks.
  platform::RegistryStore& Registry() override { Fail("the registry was asked for"); }
  platform::BrowserCache& Cache() override { Fail("the browser's cache was asked for"); }
  platform::Shortcuts& GetShortcuts() override { Fail("the shortcuts were asked for"); }
  platform::Processes& GetProcesses() override { Fail("the processes were asked for"); }
  platform::Power& GetPower() override { Fail("the power was asked for"); }

 private:
  Node* Find(std::string_view path);
  // The same where nothing on the way refuses; otherwise null and why.
  Node* At(std::string_view path, platform::Status& status);
  // Done if a name may be made in the folder of this path.
  platform::Status Way(std::string_view path);

  std::map<std::string, Node> nodes_;
  std::multimap<std::string, std::string> recycled_;
};

}  // namespace fuzz
