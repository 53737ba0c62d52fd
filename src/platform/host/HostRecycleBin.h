// The recycle bin of the played computer.
#pragma once

#include <string>
#include <string_view>

#include "platform/Machine.h"
#include "platform/host/HostFileSystem.h"

namespace platform {

// Each drive has its own bin, in the form that Windows 10 gives it: in the folder "$Recycle.Bin" of the
// drive's root, below it a folder named by the user's security identifier, there a pair of files for each one
// removed, with six random characters and the extension in their names. "$R..." is the file itself. "$I..."
// tells where it was, all numbers little-endian: 8 bytes version (2), 8 bytes size, 8 bytes moment of removal
// (100 ns since 1601), 4 bytes length of the path in UTF-16 units with the zero at its end, and the path. So
// a file can be brought back by hand, and a drive that is a mounted Windows disk shows what was removed from
// it in that computer's own bin folder.
//
// It isn't the desktop's trash: that has no room for a path on a played drive, and emptying this bin must
// never take what the user put there with other programs. The folder is named "S-1-22-1-" and the number of
// the native user, the form in which file servers write native users, so that it meets no bin of a Windows
// user on the same disk. A byte of a path that isn't valid UTF-8 is written as the code unit U+DC00 plus the
// byte.
//
// Nobody else may read what lies there, nor prepare it: the user's folder is the user's own and nobody else
// may enter it, "$Recycle.Bin" belongs to the user or the superuser and keeps others from what isn't theirs
// (as folders for temporary files do). Rights that are too wide are narrowed; what can't be made so is
// Refused.
//
// A move is a rename. A file on a file system that is mounted below the drive can't be renamed into the bin;
// it fails, and stays.
class HostRecycleBin : public RecycleBin {
 public:
  explicit HostRecycleBin(HostFileSystem& files) : files_(files) {}

  // Refused for a folder and for what lies in a bin already.
  Status Move(std::string_view path) override;
  // False where the drive's bin may not be used, and for what lies in a bin or on another file system.
  bool IsThereFor(std::string_view path) override;
  // Removes the pairs in the user's folder of each drive, nothing else. Goes on after a failure and answers
  // the first.
  Status Empty(const std::function<bool()>& stop = {}) override;

 private:
  // The user's folder in the bin of a drive ("C:\\"), checked as told above; made with `make`.
  UniqueFd OpenFolder(const std::string& root, bool make, Status& status);
  Status MoveInto(int folder, std::string_view path, const EntryInfo& info);
  Status EmptyFolder(const std::string& folder, const std::function<bool()>& stop);
  HostFileSystem& files_;
};

}  // namespace platform
