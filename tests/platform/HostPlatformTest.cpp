#include "HostPlatformTest.h"

#include <fcntl.h>
#include <stdexcept>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include "support/ChildProcess.h"

namespace test {

namespace {

// A file that may not be written to gets a lock for reading.
bool Lock(const char* path, LockKind kind) {
  int file = open(path, O_RDWR);
  bool readOnly = file < 0;
  if (readOnly) file = open(path, O_RDONLY);
  if (file < 0) return false;
  if (kind == LockKind::Flock) return flock(file, LOCK_EX | LOCK_NB) == 0;
  struct flock lock {};
  lock.l_type = readOnly ? F_RDLCK : F_WRLCK;
  lock.l_whence = SEEK_SET;
  lock.l_len = 1;
  return fcntl(file, kind == LockKind::ForProcess ? F_SETLK : F_OFD_SETLK, &lock) == 0;
}

}  // namespace

// Another process, for a process's own locks don't keep it out.
struct LockHolder::Holder : ChildProcess {
  Holder(const char* path, LockKind kind)
      : ChildProcess([=](const Told& told) -> std::string {
          if (!Lock(path, kind)) return "no lock";
          told();
          for (;;) pause();
        }) {}
};

LockHolder::LockHolder(const std::string& nativePath, LockKind kind)
    : holder_(std::make_unique<Holder>(nativePath.c_str(), kind)) {
  if (!holder_->HasTold()) throw std::runtime_error("no lock on " + nativePath);
}

LockHolder::~LockHolder() = default;

bool AsOrdinaryUser(TestComputer& computer, const std::function<bool()>& check) {
  if (getuid() != 0) return check();
  for (const std::string& folder : {computer.Root(), computer.DataFolder()}) chmod(folder.c_str(), 0755);
  return ChildProcess([&]() -> std::string {
           BecomeNobody();
           return check() ? "" : "no";
         })
      .Result()
      .empty();
}

SmallDisk::SmallDisk(const std::string& nativeFolder, const std::string& size)
    : folder_(nativeFolder),
      mounted_(mount("tmpfs", folder_.c_str(), "tmpfs", 0, ("size=" + size).c_str()) == 0) {}

SmallDisk::~SmallDisk() {
  if (mounted_) umount2(folder_.c_str(), MNT_DETACH);
}

}  // namespace test
