// A native file that is held to be erased.
#pragma once

#include "platform/host/HostFile.h"
#include "platform/host/HostPaths.h"

namespace platform {

// Names are found in the folder that was open when the file was, wherever it has been moved meanwhile.
class HostHeldFile : public HeldFile {
 public:
  // `entry` stands for the plain file that has the place's name, and may be closed afterwards. `paths` must
  // live longer.
  static std::unique_ptr<HeldFile> Open(HostPaths& paths, HostPlace place, int entry, Status& status);
  ~HostHeldFile() override;

  std::optional<std::size_t> Read(std::uint64_t offset, std::span<std::byte> buffer) override {
    return file_.Read(offset, buffer);
  }
  Status Write(std::uint64_t offset, std::span<const std::byte> data) override {
    return file_.Write(offset, data);
  }
  std::uint64_t Size() override { return file_.Size(); }
  Status Truncate(std::uint64_t size) override { return file_.Truncate(size); }
  Status Flush() override { return file_.Flush(); }

  std::uint32_t Names() override;
  Status Rename(std::string_view name) override;
  Status Remove() override;
  std::optional<Stretch> NextStretch(std::uint64_t offset) override;

 private:
  HostHeldFile(HostPaths& paths, HostPlace place, UniqueFd file);
  bool Has(const std::string& name) const;

  HostPaths& paths_;
  HostPlace place_;
  int fd_;
  HostFile file_;
  struct stat found_ {};
  bool lifted_ = false;
};

}  // namespace platform
