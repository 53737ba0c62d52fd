#include "HostPlatformTest.h"

#include <fcntl.h>
#include <grp.h>
#include <stdexcept>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

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
struct LockHolder::Holder {
  int process = -1, pipe = -1;
};

LockHolder::LockHolder(const std::string& nativePath, LockKind kind) : holder_(std::make_unique<Holder>()) {
  int held[2], done[2];
  if (pipe(held) != 0 || pipe(done) != 0) throw std::runtime_error("no pipe");
  holder_->process = fork();
  if (holder_->process == 0) {
    close(done[1]);
    char word = Lock(nativePath.c_str(), kind) ? 'y' : 'n';
    if (write(held[1], &word, 1) != 1) _exit(1);
    if (read(done[0], &word, 1) < 0) _exit(1);  // until the other end is closed
    _exit(0);
  }
  close(held[1]);
  close(done[0]);
  holder_->pipe = done[1];
  char word = 'n';
  bool locked = read(held[0], &word, 1) == 1 && word == 'y';
  close(held[0]);
  if (!locked) throw std::runtime_error("no lock on " + nativePath);
}

LockHolder::~LockHolder() {
  close(holder_->pipe);
  waitpid(holder_->process, nullptr, 0);
}

bool AsOrdinaryUser(TestComputer& computer, const std::function<bool()>& check) {
  if (getuid() != 0) return check();
  chmod(computer.Root().c_str(), 0755);
  int process = fork();
  if (process == 0) {
    constexpr unsigned kNobody = 65534;
    if (setgroups(0, nullptr) != 0 || setgid(kNobody) != 0 || setuid(kNobody) != 0) _exit(2);
    _exit(check() ? 0 : 1);
  }
  int status = 0;
  waitpid(process, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

SmallDisk::SmallDisk(const std::string& nativeFolder, const std::string& size)
    : folder_(nativeFolder),
      mounted_(mount("tmpfs", folder_.c_str(), "tmpfs", 0, ("size=" + size).c_str()) == 0) {}

SmallDisk::~SmallDisk() {
  if (mounted_) umount2(folder_.c_str(), MNT_DETACH);
}

}  // namespace test
