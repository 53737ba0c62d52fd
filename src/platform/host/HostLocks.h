// Whether another process holds a file.
#pragma once

#include <sys/types.h>

#include "platform/host/UniqueFd.h"

namespace platform {

// Another process, or this one by another way, holds a lock on the open file: of flock, of fcntl for a
// process or of fcntl for an open file. Locks of fcntl that this process holds itself don't count.
bool IsLockedByAnother(int file);
// The same for a file that was opened for this question alone, and one system call cheaper.
bool IsLockedByAnother(UniqueFd file);

// The same by the system's list of locks, for a file that may not be opened. Sees the processes of this
// container only.
bool IsListedAsLocked(dev_t device, ino_t inode);

}  // namespace platform
