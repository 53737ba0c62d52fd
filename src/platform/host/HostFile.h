// An open native file.
#pragma once

#include "platform/FileSystem.h"
#include "platform/host/UniqueFd.h"

namespace platform {

class HostFile : public File {
 public:
  explicit HostFile(UniqueFd file) : file_(std::move(file)) {}
  std::optional<std::size_t> Read(std::uint64_t offset, std::span<std::byte> buffer) override;
  Status Write(std::uint64_t offset, std::span<const std::byte> data) override;
  std::uint64_t Size() override;
  Status Truncate(std::uint64_t size) override;
  Status Flush() override;
  Status SetPermissions(std::uint32_t permissions) override;
  int Fd() const { return file_.Get(); }

 private:
  UniqueFd file_;
};

}  // namespace platform
