// What a failed call of the system means.
#pragma once

#include <windows.h>

#include "platform/FileSystem.h"

namespace platform {

inline Status StatusOf(DWORD error) {
  switch (error) {
    case ERROR_SUCCESS:
      return Status::Done;
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_NOT_READY:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_INVALID_NAME:  // nothing can have such a name
    case ERROR_BAD_PATHNAME:
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_DIRECTORY:  // a file stands where a folder is to be
      return Status::Missing;
    case ERROR_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT:
    case ERROR_PRIVILEGE_NOT_HELD:
      return Status::Denied;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_USER_MAPPED_FILE:
    case ERROR_DELETE_PENDING:
    case ERROR_BUSY:
      return Status::Locked;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
      return Status::Exists;
    case ERROR_DIR_NOT_EMPTY:
      return Status::NotEmpty;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case 1295:  // the disk quota is exceeded
      return Status::Full;
    default:
      return Status::Failed;
  }
}

inline Status LastStatus() {
  Status status = StatusOf(GetLastError());
  return status == Status::Done ? Status::Failed : status;
}

}  // namespace platform
