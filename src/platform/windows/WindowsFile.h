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

// What is open: by FILE_ID_INFO, and where the file system has none by the volume's serial number and the
// file's index. Empty where the system tells neither.
std::optional<Identity> IdentityOf(HANDLE opened);

// Removes what is open (with DELETE), at once and not when the last who has it open lets it go, read-only or
// not; FILE_DISPOSITION_IGNORE_READONLY_ATTRIBUTE leaves the bit to a file's other names.
Status RemoveOpened(HANDLE opened);

}  // namespace platform
