// What a failed system call means.
#pragma once

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <string>
#include <unistd.h>

#include "platform/FileSystem.h"

namespace platform {

inline Status StatusOf(int error) {
  switch (error) {
    case 0:
      return Status::Done;
    case ENOENT:
    case ENOTDIR:
    case ENAMETOOLONG:  // nothing can have such a name
      return Status::Missing;
    case EACCES:
    case EPERM:
    case EROFS:
      return Status::Denied;
    case EBUSY:
    case ETXTBSY:
    case EAGAIN:
      return Status::Locked;
    case EEXIST:
      return Status::Exists;
    case ENOTEMPTY:
      return Status::NotEmpty;
    case ENOSPC:
    case EDQUOT:
      return Status::Full;
    case ELOOP:
      return Status::Refused;
    default:
      return Status::Failed;
  }
}

// Renames to a name that nothing may have; the number of the error, 0 for none.
inline int RenameNew(int folder, const std::string& name, int newFolder, const std::string& newName) {
  if (renameat2(folder, name.c_str(), newFolder, newName.c_str(), RENAME_NOREPLACE) == 0) return 0;
  if (errno != EINVAL && errno != ENOSYS) return errno;
  // Not every file system knows the flag.
  bool differs = folder != newFolder || name != newName;
  if (differs && faccessat(newFolder, newName.c_str(), F_OK, AT_SYMLINK_NOFOLLOW) == 0) return EEXIST;
  return renameat(folder, name.c_str(), newFolder, newName.c_str()) == 0 ? 0 : errno;
}

}  // namespace platform
