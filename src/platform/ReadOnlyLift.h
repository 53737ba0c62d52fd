// The read-only bit of what is about to be removed.
#pragma once

#include <string>
#include <string_view>

#include "platform/FileSystem.h"

namespace platform {

// Clears the read-only bit of a file or folder that has it, and sets it again at the end of its scope unless
// told that the work was done. `info` is what Look gave: what has taken the path since isn't touched.
class ReadOnlyLift {
 public:
  ReadOnlyLift(std::string_view path, const EntryInfo& info);
  ~ReadOnlyLift();
  ReadOnlyLift(const ReadOnlyLift&) = delete;
  ReadOnlyLift& operator=(const ReadOnlyLift&) = delete;
  // False if there was no bit to clear, or if it could not be cleared.
  bool Lifted() const { return lifted_; }
  void WorkDone() { lifted_ = false; }

 private:
  std::string path_;
  std::optional<Identity> identity_;
  std::uint32_t attributes_ = 0;
  bool lifted_ = false;
};

}  // namespace platform
