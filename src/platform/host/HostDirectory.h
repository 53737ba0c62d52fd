// Reading a folder's entries in large pieces.
#pragma once

#include <cstddef>

namespace platform {

// Hands out a folder's entries but "." and ".." and names that hold a backslash, in the order of the disk.
class DirectoryReader {
 public:
  // `folder` is open for reading, at its beginning. `buffer` must be aligned for 64-bit numbers.
  DirectoryReader(int folder, char* buffer, std::size_t size)
      : folder_(folder), buffer_(buffer), size_(size) {}

  // The next entry's name, which holds until the next call; null at the end and on an error.
  const char* Next();
  // DT_REG, DT_DIR, DT_LNK, ... or DT_UNKNOWN.
  unsigned char Type() const { return type_; }
  // The number of the error that ended the reading; 0 for the end itself.
  int Error() const { return error_; }

 private:
  int folder_;
  char* buffer_;
  std::size_t size_, filled_ = 0, next_ = 0;
  unsigned char type_ = 0;
  int error_ = 0;
};

// A link in the folder stands for a folder. One that leads there by more than 16 links or 256 names counts as
// one that doesn't, so that no chain of links costs more than a few.
bool LeadsToFolder(int folder, const char* name);

}  // namespace platform
