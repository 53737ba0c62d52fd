// A file that is held to be erased.
#pragma once

#include "platform/windows/WindowsFile.h"

namespace platform {

class WindowsHeldFile : public HeldFile {
 public:
  // What overwriting doesn't reach: new bytes would go elsewhere on the disk, or to a server.
  static constexpr DWORD kOutOfReach = FILE_ATTRIBUTE_COMPRESSED | FILE_ATTRIBUTE_ENCRYPTED |
                                       FILE_ATTRIBUTE_REPARSE_POINT | FILE_ATTRIBUTE_OFFLINE;

  // `file` is open with GENERIC_READ, GENERIC_WRITE and DELETE; `attributes`, the same file, for its
  // attributes. `lifted` are those that it gets back, unless it is removed; 0 for none.
  WindowsHeldFile(UniqueHandle file, UniqueHandle attributes, DWORD lifted);
  ~WindowsHeldFile() override;

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
  // By FileRenameInfo and the whole path that the system tells of the file: no folder above an open file can
  // be moved.
  Status Rename(std::string_view name) override;
  Status Remove() override;
  // By FSCTL_QUERY_ALLOCATED_RANGES; the whole rest where the system can't tell.
  std::optional<Stretch> NextStretch(std::uint64_t offset) override;

 private:
  HANDLE handle_;
  WindowsFile file_;
  UniqueHandle attributes_;
  DWORD lifted_;
};

}  // namespace platform
