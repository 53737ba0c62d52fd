#include "platform/windows/WindowsFile.h"

#include <algorithm>
#include <cstring>

#include "platform/windows/WindowsStatus.h"

namespace platform {

namespace {

// The most that is handed over in one call.
constexpr std::size_t kMost = std::size_t{1} << 30;

// Of FileDispositionInfoEx, which older headers don't have.
constexpr DWORD kDelete = 1, kPosixSemantics = 2, kIgnoreReadOnly = 0x10;
constexpr auto kDispositionEx = static_cast<FILE_INFO_BY_HANDLE_CLASS>(21);

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

std::optional<Identity> IdentityOf(HANDLE opened) {
  Identity identity;
  FILE_ID_INFO whole;
  static_assert(sizeof whole.FileId == sizeof identity.file);
  if (GetFileInformationByHandleEx(opened, FileIdInfo, &whole, sizeof whole)) {
    identity.volume = whole.VolumeSerialNumber;
    std::memcpy(identity.file.data(), &whole.FileId, sizeof whole.FileId);
    return identity;
  }
  BY_HANDLE_FILE_INFORMATION found;
  if (!GetFileInformationByHandle(opened, &found)) return std::nullopt;
  identity.volume = found.dwVolumeSerialNumber;
  identity.file[0] = std::uint64_t{found.nFileIndexHigh} << 32 | found.nFileIndexLow;
  return identity;
}

Status RemoveOpened(HANDLE opened) {
  // Each is known since another version of the system.
  for (DWORD flags : {kDelete | kPosixSemantics | kIgnoreReadOnly, kDelete | kPosixSemantics}) {
    if (SetFileInformationByHandle(opened, kDispositionEx, &flags, sizeof flags)) return Status::Done;
    DWORD error = GetLastError();
    if (error != ERROR_INVALID_PARAMETER && error != ERROR_INVALID_FUNCTION && error != ERROR_NOT_SUPPORTED &&
        error != ERROR_CALL_NOT_IMPLEMENTED && error != ERROR_ACCESS_DENIED)
      return StatusOf(error);
  }
  // The oldest refuses a read-only file; the bit is taken off by another handle to the same file.
  BY_HANDLE_FILE_INFORMATION found;
  UniqueHandle lifter;
  FILE_BASIC_INFO attributes{};
  if (GetFileInformationByHandle(opened, &found) && (found.dwFileAttributes & FILE_ATTRIBUTE_READONLY)) {
    lifter = UniqueHandle(ReOpenFile(opened, FILE_WRITE_ATTRIBUTES,
                                     FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                     FILE_FLAG_OPEN_REPARSE_POINT | FILE_FLAG_BACKUP_SEMANTICS));
    DWORD rest = found.dwFileAttributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY);
    attributes.FileAttributes = rest ? rest : FILE_ATTRIBUTE_NORMAL;
    if (!lifter || !SetFileInformationByHandle(lifter.Get(), FileBasicInfo, &attributes, sizeof attributes))
      return Status::Denied;
  }
  FILE_DISPOSITION_INFO disposition{};
  disposition.DeleteFile = TRUE;
  if (SetFileInformationByHandle(opened, FileDispositionInfo, &disposition, sizeof disposition))
    return Status::Done;
  Status status = LastStatus();
  if (lifter) {
    attributes.FileAttributes = found.dwFileAttributes;
    SetFileInformationByHandle(lifter.Get(), FileBasicInfo, &attributes, sizeof attributes);
  }
  return status;
}

}  // namespace platform
