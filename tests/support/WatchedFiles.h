// The test computer's files, watched and made to fail where a test wants it.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "support/FaultyMachine.h"

namespace test {

// A machine whose file system asks before it acts. A hook that gives Done lets the call through.
class WatchedFiles : public FaultyMachine, public platform::FileSystem {
 public:
  explicit WatchedFiles(platform::Machine& machine) : FaultyMachine(machine), real_(machine.Files()) {}

  std::function<platform::Status(std::string_view path, platform::OpenMode mode)> onOpen;
  // Before a read at this offset.
  std::function<platform::Status(const std::string& path, std::uint64_t offset)> onRead;
  // Before this many bytes are written.
  std::function<platform::Status(const std::string& path, std::size_t bytes)> onWrite;
  std::function<platform::Status(std::string_view from, std::string_view to)> onRename;
  // Before each operation that changes the disk, or asks for something to be on it.
  std::function<void()> onStep;
  // "write", "truncate", "flush", "rename", "remove", "flush folder", in their order.
  std::vector<std::string> steps;
  std::function<platform::Status(std::string_view path, std::string_view name)> onLink;
  int flushes = 0, looks = 0;
  // Whether devices and streams have names; as on the real one otherwise.
  std::optional<bool> specialNames;

  platform::FileSystem& Files() override { return *this; }

  platform::EntryInfo Look(std::string_view path) override {
    ++looks;
    return real_.Look(path);
  }
  platform::Status RemoveFile(std::string_view path, bool readOnlyToo) override;
  platform::Status RemoveFolder(std::string_view path, bool readOnlyToo) override {
    Step();
    return real_.RemoveFolder(path, readOnlyToo);
  }
  platform::Status SetAttributes(std::string_view path, std::uint32_t attributes,
                                 std::optional<platform::Identity> only) override {
    Step();
    return real_.SetAttributes(path, attributes, only);
  }
  platform::Status SetTimes(std::string_view path, std::optional<platform::Moment> created,
                            std::optional<platform::Moment> accessed,
                            std::optional<platform::Moment> modified) override {
    Step();
    return real_.SetTimes(path, created, accessed, modified);
  }
  platform::Status Rename(std::string_view from, std::string_view to, bool replace) override;
  platform::Status RenameExactly(std::string_view from, std::string_view to) override {
    Step();
    platform::Status status = onRename ? onRename(from, to) : platform::Status::Done;
    return status == platform::Status::Done ? real_.RenameExactly(from, to) : status;
  }
  platform::Status Link(std::string_view path, std::string_view name) override {
    Step();
    platform::Status status = onLink ? onLink(path, name) : platform::Status::Done;
    return status == platform::Status::Done ? real_.Link(path, name) : status;
  }
  platform::Status CreateFolder(std::string_view path) override {
    Step();
    return real_.CreateFolder(path);
  }
  std::unique_ptr<platform::File> Open(std::string_view path, platform::OpenMode mode,
                                       platform::Status& status) override;
  std::unique_ptr<platform::HeldFile> Hold(std::string_view path, platform::Status& status) override;
  platform::Status TestLock(std::string_view path) override { return real_.TestLock(path); }
  std::vector<platform::Identity> Ancestry(std::string_view path) override { return real_.Ancestry(path); }
  bool HasSpecialNames() const override { return specialNames.value_or(real_.HasSpecialNames()); }
  platform::Status Walk(std::string_view root, const platform::WalkOptions& options,
                        platform::TreeVisitor& visitor) override {
    return real_.Walk(root, options, visitor);
  }
  platform::Status FlushFolder(std::string_view path) override;

  // Before a step, which is noted if it has a name.
  void Step(const char* name = nullptr) {
    if (name) steps.push_back(name);
    if (onStep) onStep();
  }

 private:
  platform::FileSystem& real_;
};

}  // namespace test
