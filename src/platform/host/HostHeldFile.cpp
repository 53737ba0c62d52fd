#include "platform/host/HostHeldFile.h"

#include <fcntl.h>
#include <sys/stat.h>

#include "platform/host/HostAttributes.h"
#include "platform/host/HostLocks.h"
#include "platform/host/HostStatus.h"

namespace platform {

HostHeldFile::HostHeldFile(HostPaths& paths, HostPlace place, UniqueFd file)
    : paths_(paths), place_(std::move(place)), fd_(file.Get()), file_(std::move(file)) {}

std::unique_ptr<HeldFile> HostHeldFile::Open(HostPaths& paths, HostPlace place, int entry, Status& status) {
  struct stat found;
  if (fstat(entry, &found) != 0) {
    status = StatusOf(errno);
    return nullptr;
  }
  bool lifted = IsReadOnly(found.st_mode);
  if (lifted && (status = SetReadOnly(entry, found, false)) != Status::Done) return nullptr;
  // O_NONBLOCK, so that nothing waits for the holder of a lease.
  UniqueFd file(open(ProcPath(entry).c_str(), O_RDWR | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
  if (!file)
    status = StatusOf(errno);
  else if (IsLockedByAnother(file.Get()))
    status = Status::Locked;
  if (status != Status::Done) {
    if (lifted) SetReadOnly(entry, found, true);
    return nullptr;
  }
  std::unique_ptr<HostHeldFile> held(new HostHeldFile(paths, std::move(place), std::move(file)));
  held->found_ = found;
  held->lifted_ = lifted;
  return held;
}

HostHeldFile::~HostHeldFile() {
  if (lifted_) SetReadOnly(fd_, found_, true);
}

bool HostHeldFile::Has(const std::string& name) const {
  struct stat there;
  return fstatat(place_.Fd(), name.c_str(), &there, AT_SYMLINK_NOFOLLOW) == 0 &&
         there.st_ino == found_.st_ino && there.st_dev == found_.st_dev;
}

std::uint32_t HostHeldFile::Names() {
  struct stat now;
  return fstat(fd_, &now) == 0 ? static_cast<std::uint32_t>(now.st_nlink) : 0;
}

Status HostHeldFile::Rename(std::string_view name) {
  std::string wanted(name);
  if (!Has(place_.name)) return Status::Missing;
  if (int error = RenameNew(place_.Fd(), place_.name, place_.Fd(), wanted)) return StatusOf(error);
  if (!Has(wanted)) {
    // Something else had taken the name just before; it goes back.
    RenameNew(place_.Fd(), wanted, place_.Fd(), place_.name);
    return Status::Missing;
  }
  place_.name = std::move(wanted);
  paths_.Changed(*place_.folder, place_.name);
  return Status::Done;
}

Status HostHeldFile::Remove() {
  if (!Has(place_.name)) return Status::Missing;
  if (unlinkat(place_.Fd(), place_.name.c_str(), 0) != 0) return StatusOf(errno);
  paths_.Changed(*place_.folder, {});
  if (Names() != 0) return Status::Missing;
  lifted_ = false;
  return Status::Done;
}

std::optional<HeldFile::Stretch> HostHeldFile::NextStretch(std::uint64_t offset) {
  std::uint64_t size = Size();
  if (offset >= size) return std::nullopt;
  auto at = static_cast<off_t>(offset);
  off_t begin = lseek(fd_, at, SEEK_DATA);
  if (begin < 0) {
    if (errno == ENXIO) return std::nullopt;  // nothing but a hole
    return Stretch{offset, size};             // the file system can't tell
  }
  off_t end = lseek(fd_, begin, SEEK_HOLE);
  return Stretch{static_cast<std::uint64_t>(begin), end < 0 ? size : static_cast<std::uint64_t>(end)};
}

}  // namespace platform
