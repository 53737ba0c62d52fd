#include "platform/host/HostLocks.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <memory>
#include <sys/file.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace platform {

namespace {

// A lock of flock that it was granted stays with the open file.
bool CannotLock(int file) {
  struct flock lock {};
  lock.l_type = F_WRLCK;
  lock.l_whence = SEEK_SET;
#ifdef F_OFD_GETLK
  if (fcntl(file, F_OFD_GETLK, &lock) == 0 && lock.l_type != F_UNLCK && lock.l_pid != getpid()) return true;
#else
  if (fcntl(file, F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK) return true;
#endif
  // There is no asking for a lock of flock, only trying.
  return flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

}  // namespace

bool IsLockedByAnother(int file) {
  if (CannotLock(file)) return true;
  flock(file, LOCK_UN);
  return false;
}

bool IsLockedByAnother(UniqueFd file) {
  // Its end is the lock's end.
  return CannotLock(file.Get());
}

bool IsListedAsLocked(dev_t device, ino_t inode) {
  std::unique_ptr<FILE, int (*)(FILE*)> list(std::fopen("/proc/locks", "re"), std::fclose);
  if (!list) return false;
  char line[256];
  while (std::fgets(line, sizeof line, list.get())) {
    // "1: FLOCK  ADVISORY  WRITE 1234 fd:00:5678 0 EOF", with "->" behind the number for one that only waits.
    long process;
    unsigned major, minor;
    unsigned long long number;
    if (std::sscanf(line, "%*d: %*[A-Z] %*s %*s %ld %x:%x:%llu", &process, &major, &minor, &number) != 4)
      continue;
    if (number == inode && makedev(major, minor) == device && process != getpid()) return true;
  }
  return false;
}

}  // namespace platform
