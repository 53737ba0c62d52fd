// What a failed system call means.
#pragma once

#include <cerrno>

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

}  // namespace platform
