#include "platform/host/HostAttributes.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <sys/xattr.h>

#include "platform/host/HostStatus.h"

namespace platform {

namespace {

constexpr const char* kName = "user.brasmir.attributes";
constexpr std::uint32_t kStored = kHidden | kSystem | kArchive;

std::uint32_t Default(mode_t mode) {
  return S_ISDIR(mode) ? 0u : kArchive;
}

std::uint32_t ReadStored(const HostPlace& place, mode_t mode) {
  if (place.folder->noXattrs) return Default(mode);
  char path[32 + NAME_MAX + 1], text[16];
  std::snprintf(path, sizeof path, "/proc/self/fd/%d/%s", place.Fd(), place.name.c_str());
  ssize_t length = lgetxattr(path, kName, text, sizeof text - 1);
  if (length < 0) {
    if (errno == ENOTSUP) place.folder->noXattrs = true;
    return Default(mode);
  }
  text[length] = 0;
  return static_cast<std::uint32_t>(std::strtoul(text, nullptr, 10)) & kStored;
}

// Where attributes can't be kept that is no failure.
Status WriteStored(const HostPlace& place, mode_t mode, std::uint32_t stored) {
  std::string path = ProcPath(place);
  int result;
  if (stored == Default(mode)) {
    result = lremovexattr(path.c_str(), kName);
    if (result != 0 && errno == ENODATA) return Status::Done;
  } else {
    std::string text = std::to_string(stored);
    result = lsetxattr(path.c_str(), kName, text.data(), text.size(), 0);
  }
  return result == 0 || errno == ENOTSUP ? Status::Done : StatusOf(errno);
}

Status Chmod(const HostPlace& place, mode_t mode) {
  // Never through a link that has taken the file's place.
  return fchmodat(place.Fd(), place.name.c_str(), mode & 07777, AT_SYMLINK_NOFOLLOW) == 0 ? Status::Done
                                                                                          : StatusOf(errno);
}

}  // namespace

std::uint32_t ReadAttributes(const HostPlace& place, mode_t mode) {
  return (IsReadOnly(mode) ? kReadOnly : 0u) | (S_ISDIR(mode) ? kFolder : 0u) | ReadStored(place, mode);
}

Status WriteAttributes(const HostPlace& place, mode_t mode, std::uint32_t attributes) {
  bool isReadOnly = IsReadOnly(mode), beReadOnly = (attributes & kReadOnly) != 0;
  if (ReadStored(place, mode) != (attributes & kStored)) {
    // The stored ones can only be changed while the file can be written to.
    if (isReadOnly) {
      Status status = Chmod(place, mode | S_IWUSR);
      if (status != Status::Done) return status;
      isReadOnly = false;
    }
    Status status = WriteStored(place, mode, attributes & kStored);
    if (status != Status::Done) {
      if (IsReadOnly(mode)) Chmod(place, mode);
      return status;
    }
  }
  if (isReadOnly == beReadOnly) return Status::Done;
  return Chmod(place, beReadOnly ? mode & ~static_cast<mode_t>(S_IWUSR) : mode | S_IWUSR);
}

}  // namespace platform
