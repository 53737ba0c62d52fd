// A text file that takes the place of the old one once it is whole.
#pragma once

#include <string>
#include <string_view>

#include "platform/WriteBeside.h"

namespace siblings {

// Lines in the system's ANSI code page, each ended by CR LF, written as they come, so that a list of a
// million files takes no room. They are written beside, and until Finish the old file stays as it is. A
// character that the code page can't hold, or that core::OneLine doesn't show, becomes "?". Nothing here
// raises.
class NewTextFile {
 public:
  // Makes the folder where it is missing. Without Finish nothing is left of the file.
  explicit NewTextFile(const std::string& path);
  void Line(std::string_view text);
  // False if anything went wrong, and then the old file has stayed. What has the file's name must be a plain
  // file, if anything has.
  bool Finish();

 private:
  void Write();

  std::string buffer_;
  platform::WriteBeside file_;
};

}  // namespace siblings
