#include "platform/windows/WindowsFile.h"

#include <algorithm>

#include "platform/windows/WindowsStatus.h"

namespace platform {

namespace {

// The most that is handed over in one call.
constexpr std::size_t kMost = std::size_t{1} << 30;

OVERLAPPED At(std::uint64_t offset) {
  OVERLAPPED place{};
  place.Offset = static_cast<DWORD>(offset);
  place.OffsetHigh = static_cast<DWORD>(offset >> 32);
  return place;
}

}  // namespace

std::optional<std::size_t> WindowsFile::Read(std::uint64_t offset, std::span<std::byte> buffer) {
  OVERLAPPED place = At(offset);
  DWORD read = 0;
  if (ReadFile(file_.Get(), buffer.data(), static_cast<DWORD>(std::min(buffer.size(), kMost)), &read, &place))
    return read;
  if (GetLastError() == ERROR_HANDLE_EOF) return 0;
  return std::nullopt;
}

Status WindowsFile::Write(std::uint64_t offset, std::span<const std::byte> data) {
  while (!data.empty()) {
    OVERLAPPED place = At(offset);
    DWORD written = 0;
    if (!WriteFile(file_.Get(), data.data(), static_cast<DWORD>(std::min(data.size(), kMost)), &written,
                   &place))
      return LastStatus();
    if (written == 0) return Status::Full;
    offset += written;
    data = data.subspan(written);
  }
  return Status::Done;
}

std::uint64_t WindowsFile::Size() {
  LARGE_INTEGER size;
  return GetFileSizeEx(file_.Get(), &size) ? static_cast<std::uint64_t>(size.QuadPart) : 0;
}

Status WindowsFile::Truncate(std::uint64_t size) {
  FILE_END_OF_FILE_INFO end;
  end.EndOfFile.QuadPart = static_cast<LONGLONG>(size);
  return SetFileInformationByHandle(file_.Get(), FileEndOfFileInfo, &end, sizeof end) ? Status::Done
                                                                                      : LastStatus();
}

Status WindowsFile::Flush() {
  return FlushFileBuffers(file_.Get()) ? Status::Done : LastStatus();
}

bool IsRangeLocked(HANDLE file) {
  OVERLAPPED place = At(0);
  if (!LockFileEx(file, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, MAXDWORD, MAXDWORD, &place))
    return GetLastError() == ERROR_LOCK_VIOLATION || GetLastError() == ERROR_IO_PENDING;
  UnlockFileEx(file, 0, MAXDWORD, MAXDWORD, &place);
  return false;
}

}  // namespace platform
