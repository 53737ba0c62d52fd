// Archives from outside: made byte by byte, read by other programs; and a file system that can be made to
// fail.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Machine.h"

namespace test {

// An entry as it is to stand in the archive, true or not. It is stored, never packed.
struct RawEntry {
  std::string name;
  std::string content;
  std::uint16_t flags = 0;
  std::uint16_t method = 0;
  std::uint16_t system = 0;        // upper byte of "version made by": 0 DOS, 3 Unix
  std::uint32_t attributes = 0;    // external
  std::int64_t declaredSize = -1;  // where it differs from the content's
  std::int64_t sharedWith = -1;    // the place of an entry whose data this one points to
};
std::string MakeZip(const std::vector<RawEntry>& entries);

// Writes an archive of `holes` entries "hole1", "hole2", ... to a native file, each of so many zeros that
// take no room on the disk. Their checksums are wrong. More than 4 GiB together make it Zip64.
void MakeSparseZip(const std::string& native, int holes, std::uint32_t size);

// On the host: runs a program on the native files; its output and, on a line of its own, its exit code.
std::string RunProgram(const std::string& command);
// A text in quotes for the shell.
std::string Quoted(const std::string& text);

// The current machine with a file system that asks before it acts. A hook that gives Done lets the call
// through.
class WatchedFiles : public platform::Machine, public platform::FileSystem {
 public:
  explicit WatchedFiles(platform::Machine& machine);
  ~WatchedFiles() override;

  std::function<platform::Status(std::string_view path, platform::OpenMode mode)> onOpen;
  // Before a read at this offset.
  std::function<platform::Status(const std::string& path, std::uint64_t offset)> onRead;
  // Before this many bytes are written.
  std::function<platform::Status(const std::string& path, std::size_t bytes)> onWrite;
  std::function<platform::Status(std::string_view from, std::string_view to)> onRename;
  int flushes = 0;

  platform::EntryInfo Look(std::string_view path) override { return Real().Look(path); }
  platform::Status RemoveFile(std::string_view path) override { return Real().RemoveFile(path); }
  platform::Status RemoveFolder(std::string_view path) override { return Real().RemoveFolder(path); }
  platform::Status SetAttributes(std::string_view path, std::uint32_t attributes) override {
    return Real().SetAttributes(path, attributes);
  }
  platform::Status SetTimes(std::string_view path, std::optional<platform::Moment> created,
                            std::optional<platform::Moment> accessed,
                            std::optional<platform::Moment> modified) override {
    return Real().SetTimes(path, created, accessed, modified);
  }
  platform::Status Rename(std::string_view from, std::string_view to, bool replace) override;
  platform::Status CreateFolder(std::string_view path) override { return Real().CreateFolder(path); }
  std::unique_ptr<platform::File> Open(std::string_view path, platform::OpenMode mode,
                                       platform::Status& status) override;
  platform::Status TestLock(std::string_view path) override { return Real().TestLock(path); }
  platform::Status Walk(std::string_view root, const platform::WalkOptions& options,
                        platform::TreeVisitor& visitor) override {
    return Real().Walk(root, options, visitor);
  }
  platform::Status FlushFolder(std::string_view path) override { return Real().FlushFolder(path); }

  platform::FileSystem& Files() override { return *this; }
  platform::RegistryStore& Registry() override { return machine_.Registry(); }
  platform::Drives& GetDrives() override { return machine_.GetDrives(); }
  platform::RecycleBin& Bin() override { return machine_.Bin(); }
  platform::BrowserCache& Cache() override { return machine_.Cache(); }
  platform::Shortcuts& GetShortcuts() override { return machine_.GetShortcuts(); }
  platform::Processes& GetProcesses() override { return machine_.GetProcesses(); }
  platform::Power& GetPower() override { return machine_.GetPower(); }
  platform::Clock& GetClock() override { return machine_.GetClock(); }
  platform::Locale& GetLocale() override { return machine_.GetLocale(); }
  std::string Folder(platform::KnownFolder folder) override { return machine_.Folder(folder); }

 private:
  platform::FileSystem& Real() { return machine_.Files(); }
  platform::Machine& machine_;
};

}  // namespace test
