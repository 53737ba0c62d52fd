// A text file that takes the place of the old one once it is whole.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/FileSystem.h"

namespace siblings {

// Lines in the system's ANSI code page, each ended by CR LF, written as they come, so that a list of a
// million files takes no room. They go to a file beside, "<path>.new", which Finish brings onto the disk and
// renames; until then the old file stays as it is. A character that the code page can't hold, or that would
// end the line, becomes "?". Nothing here raises.
class NewTextFile {
 public:
  // Makes the folder where it is missing.
  explicit NewTextFile(std::string path);
  // Without Finish nothing is left of it.
  ~NewTextFile();
  NewTextFile(const NewTextFile&) = delete;
  NewTextFile& operator=(const NewTextFile&) = delete;

  // Removes what a kill has left of a file that was being written for `path`.
  static void Discard(const std::string& path);

  void Line(std::string_view text);
  // False if anything went wrong, and then the old file has stayed. What has the file's name must be a plain
  // file, if anything has.
  bool Finish();

 private:
  void Write();

  std::string path_, beside_, buffer_;
  std::unique_ptr<platform::File> file_;
  std::uint64_t offset_ = 0;
  bool good_ = false;
};

}  // namespace siblings
