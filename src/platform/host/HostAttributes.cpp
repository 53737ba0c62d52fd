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

std::uint32_t ReadStored(int opened, mode_t mode) {
  char text[16];
  ssize_t length = getxattr(ProcPath(opened).c_str(), kName, text, sizeof text - 1);
  if (length < 0) return Default(mode);
  text[length] = 0;
  return static_cast<std::uint32_t>(std::strtoul(text, nullptr, 10)) & kStored;
}

// Where attributes can't be kept that is no failure.
Status WriteStored(int opened, mode_t mode, std::uint32_t stored) {
  std::string path = ProcPath(opened);
  int result;
  if (stored == Default(mode)) {
    result = removexattr(path.c_str(), kName);
    if (result != 0 && errno == ENODATA) return Status::Done;
  } else {
    std::string text = std::to_string(stored);
    result = setxattr(path.c_str(), kName, text.data(), text.size(), 0);
  }
  return result == 0 || errno == ENOTSUP ? Status::Done : StatusOf(errno);
}

}  // namespace

std::uint32_t ReadAttributes(const HostPlace& place, mode_t mode) {
  return (IsReadOnly(mode) ? kReadOnly : 0u) | (S_ISDIR(mode) ? kFolder : 0u) | ReadStored(place, mode);
}

std::string ProcPath(int opened) {
  return "/proc/self/fd/" + std::to_string(opened);
}

Status SetReadOnly(int opened, const struct stat& found, bool readOnly) {
  mode_t mode = found.st_mode & (S_ISDIR(found.st_mode) ? 07777u : 0777u);
  mode = readOnly ? mode & ~static_cast<mode_t>(S_IWUSR) : mode | S_IWUSR;
  return chmod(ProcPath(opened).c_str(), mode) == 0 ? Status::Done : StatusOf(errno);
}

Status WriteAttributes(int opened, const struct stat& found, std::uint32_t attributes) {
  bool isReadOnly = IsReadOnly(found.st_mode), beReadOnly = (attributes & kReadOnly) != 0;
  if (ReadStored(opened, found.st_mode) != (attributes & kStored)) {
    // The stored ones can only be changed while the file can be written to.
    if (isReadOnly) {
      Status status = SetReadOnly(opened, found, false);
      if (status != Status::Done) return status;
    }
    Status status = WriteStored(opened, found.st_mode, attributes & kStored);
    if (status != Status::Done) {
      if (isReadOnly) SetReadOnly(opened, found, true);
      return status;
    }
    isReadOnly = false;
  }
  return isReadOnly == beReadOnly ? Status::Done : SetReadOnly(opened, found, beReadOnly);
}

}  // namespace platform
