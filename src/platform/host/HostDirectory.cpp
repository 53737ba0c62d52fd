#include "platform/host/HostDirectory.h"

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <sys/syscall.h>
#include <unistd.h>

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

}  // namespace platform
