#include "platform/host/HostPrivacy.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

#include "platform/host/UniqueFd.h"

namespace platform {

namespace {

constexpr mode_t kOthers = S_IRWXG | S_IRWXO;

// A name in a trusted folder that SQLite would open: a plain file that may be believed, or nothing.
bool IsTrustedFile(int folder, const std::string& name) {
  UniqueFd file(openat(folder, name.c_str(), O_PATH | O_NOFOLLOW | O_CLOEXEC));
  if (!file) return errno == ENOENT;
  struct stat info;
  if (fstat(file.Get(), &info) != 0 || !S_ISREG(info.st_mode)) return false;
  TakeRightsOfOthers(file.Get(), info);
  return IsTrusted(info);
}

}  // namespace

void MakeNewFilesPrivate() {
  umask(kOthers);
}

bool IsTrusted(const struct stat& info) {
  return (info.st_uid == geteuid() || info.st_uid == 0) && (info.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

void TakeRightsOfOthers(int file, struct stat& info) {
  if (info.st_uid != geteuid() || (info.st_mode & kOthers) == 0) return;
  // A descriptor that only names a file can't be changed by itself.
  std::string name = "/proc/self/fd/" + std::to_string(file);
  if (chmod(name.c_str(), info.st_mode & 07777 & ~kOthers) == 0) fstat(file, &info);
}

void MakeFolderPrivate(const std::string& folder) {
  UniqueFd opened(open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
  struct stat info;
  if (opened && fstat(opened.Get(), &info) == 0) TakeRightsOfOthers(opened.Get(), info);
}

std::string PlaceOfDatabase(const std::string& file, bool& trusted) {
  trusted = false;
  std::size_t slash = file.rfind('/');
  char resolved[PATH_MAX];
  if (slash == file.npos || !realpath(file.substr(0, slash).c_str(), resolved)) return {};
  const std::string name = file.substr(slash + 1);
  UniqueFd folder(open(resolved, O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  struct stat info;
  if (!folder || fstat(folder.Get(), &info) != 0) return {};
  TakeRightsOfOthers(folder.Get(), info);
  trusted = IsTrusted(info);
  for (const char* suffix : {"", "-journal", "-wal", "-shm"})
    trusted = trusted && IsTrustedFile(folder.Get(), name + suffix);
  return std::string(resolved) + "/" + name;
}

}  // namespace platform
