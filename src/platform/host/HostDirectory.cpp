#include "platform/host/HostDirectory.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdint>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "platform/host/UniqueFd.h"

namespace platform {

namespace {
// As the system call lays an entry out.
struct Entry {
  std::uint64_t inode;
  std::int64_t offset;
  std::uint16_t length;
  std::uint8_t type;
  char name[1];
};
constexpr std::size_t kNameOffset = offsetof(Entry, name);

bool IsPassedOver(const char* name) {
  if (name[0] == '.' && (name[1] == 0 || (name[1] == '.' && name[2] == 0))) return true;
  return std::strchr(name, '\\') != nullptr;
}
}  // namespace

const char* DirectoryReader::Next() {
  for (;;) {
    if (next_ == filled_) {
      long read = syscall(SYS_getdents64, folder_, buffer_, size_);
      if (read <= 0) {
        error_ = read < 0 ? errno : 0;
        return nullptr;
      }
      filled_ = static_cast<std::size_t>(read);
      next_ = 0;
    }
    const char* entry = buffer_ + next_;
    std::uint16_t length;
    std::memcpy(&length, entry + offsetof(Entry, length), sizeof length);
    type_ = static_cast<unsigned char>(entry[offsetof(Entry, type)]);
    next_ += length;
    const char* name = entry + kNameOffset;
    if (!IsPassedOver(name)) return name;
  }
}

bool LeadsToFolder(int folder, const char* name) {
  constexpr int kLinks = 16, kNames = 256;
  std::string rest = name;
  UniqueFd at(openat(folder, ".", O_PATH | O_DIRECTORY | O_CLOEXEC));
  struct stat found {};
  for (int links = 0, names = 0; at && !rest.empty();) {
    std::size_t end = std::min(rest.find('/'), rest.size());
    std::string step = rest.substr(0, end);
    rest.erase(0, rest.find_first_not_of('/', end));
    if (step.empty()) continue;
    UniqueFd next(openat(at.Get(), step.c_str(), O_PATH | O_NOFOLLOW | O_CLOEXEC));
    if (!next || fstat(next.Get(), &found) != 0 || ++names > kNames) return false;
    if (!S_ISLNK(found.st_mode)) {
      at = std::move(next);
      continue;
    }
    char target[PATH_MAX];
    ssize_t length = readlinkat(next.Get(), "", target, sizeof target);
    if (length <= 0 || ++links > kLinks) return false;
    if (target[0] == '/') at = UniqueFd(open("/", O_PATH | O_DIRECTORY | O_CLOEXEC));
    std::string whole(target, static_cast<std::size_t>(length));
    rest = whole.append("/").append(rest);
    if (rest.size() > std::size_t{2} * PATH_MAX) return false;
  }
  return at && fstat(at.Get(), &found) == 0 && S_ISDIR(found.st_mode);
}

}  // namespace platform
