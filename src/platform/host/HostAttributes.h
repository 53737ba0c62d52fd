// The attribute word of a native file.
#pragma once

#include <cstdint>
#include <sys/stat.h>

#include "platform/FileSystem.h"
#include "platform/host/HostPaths.h"

namespace platform {

// Read-only is the owner's right to write, taken away. Hidden, system and archive are kept in the extended
// attribute "user.brasmir.attributes" as a decimal number. A file without it has archive, as a file has that
// somebody has just made; a folder has none of them. A name that begins with a dot hides nothing. Where the
// file system keeps no extended attributes, a file has archive, a folder nothing, and what is set is lost.

inline bool IsReadOnly(mode_t mode) {
  return (mode & S_IWUSR) == 0;
}

// For a file or a folder, not for a link.
std::uint32_t ReadAttributes(const HostPlace& place, mode_t mode);

// The same of what is open, by whatever kind of descriptor, so that nothing else can be meant. Bits that give
// a file its owner's rights (setuid, setgid) are lost with a change of the read-only bit.
Status WriteAttributes(int opened, const struct stat& found, std::uint32_t attributes);
// Changes the owner's right to write alone.
Status SetReadOnly(int opened, const struct stat& found, bool readOnly);

// "/proc/self/fd/N": the way to change what a descriptor stands for that was opened for nothing.
std::string ProcPath(int opened);

}  // namespace platform
