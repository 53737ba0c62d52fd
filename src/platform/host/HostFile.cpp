#include "platform/host/HostFile.h"

#include <sys/stat.h>

#include "platform/host/HostStatus.h"

namespace platform {

std::optional<std::size_t> HostFile::Read(std::uint64_t offset, std::span<std::byte> buffer) {
  for (;;) {
    ssize_t read = pread(file_.Get(), buffer.data(), buffer.size(), static_cast<off_t>(offset));
    if (read >= 0) return static_cast<std::size_t>(read);
    if (errno != EINTR) return std::nullopt;
  }
}

Status HostFile::Write(std::uint64_t offset, std::span<const std::byte> data) {
  while (!data.empty()) {
    ssize_t written = pwrite(file_.Get(), data.data(), data.size(), static_cast<off_t>(offset));
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return StatusOf(errno);
    if (written == 0) return Status::Full;
    offset += static_cast<std::uint64_t>(written);
    data = data.subspan(static_cast<std::size_t>(written));
  }
  return Status::Done;
}

std::uint64_t HostFile::Size() {
  struct stat found;
  return fstat(file_.Get(), &found) == 0 ? static_cast<std::uint64_t>(found.st_size) : 0;
}

Status HostFile::Truncate(std::uint64_t size) {
  return ftruncate(file_.Get(), static_cast<off_t>(size)) == 0 ? Status::Done : StatusOf(errno);
}

Status HostFile::Flush() {
  return fdatasync(file_.Get()) == 0 ? Status::Done : StatusOf(errno);
}

Status HostFile::SetPermissions(std::uint32_t permissions) {
  return fchmod(file_.Get(), permissions & 0777) == 0 ? Status::Done : StatusOf(errno);
}

}  // namespace platform
