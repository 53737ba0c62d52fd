// An open file.
#pragma once

#include "platform/FileSystem.h"
#include "platform/windows/WindowsHandle.h"

namespace platform {

class WindowsFile : public File {
 public:
  explicit WindowsFile(UniqueHandle file) : file_(std::move(file)) {}
  std::optional<std::size_t> Read(std::uint64_t offset, std::span<std::byte> buffer) override;
  Status Write(std::uint64_t offset, std::span<const std::byte> data) override;
  std::uint64_t Size() override;
  Status Truncate(std::uint64_t size) override;
  Status Flush() override;

 private:
  UniqueHandle file_;
};

// Another process, or this one by another way, holds a lock on a part of the open file.
bool IsRangeLocked(HANDLE file);

}  // namespace platform
