// Text files of the program: lines in the system's ANSI code page, each ended by CR LF.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/FileSystem.h"

namespace platform {

// Reads a text file line by line; CR LF, LF and CR end a line. Raises 53 "File not found", 76 "Path not
// found", 70 "Permission denied" or 75 where it can't be opened. Text comes as UTF-8.
class TextReader {
 public:
  // A file larger than `most` bytes isn't opened (error 7 "Out of memory").
  explicit TextReader(const std::string& path, std::uint64_t most = UINT64_MAX);
  ~TextReader();
  bool AtEnd();
  // Raises 62 "Input past end of file" at the end, 57 on a failing disk.
  std::string ReadLine();

 private:
  bool Fill();
  std::unique_ptr<File> file_;
  std::string buffer_;
  std::size_t next_ = 0;
  std::uint64_t offset_ = 0;
  bool ended_ = false;
};

// Writes all lines to a file, which is emptied or made. The whole text is encoded before the file is touched:
// a character that the code page can't hold raises error 5 "Invalid procedure call or argument" and leaves
// the file as it was. The text is written beside and renamed, so that a kill leaves the old file or the new
// one. Raises 76, 70, 75, 61 or 57 as TextReader does.
void WriteTextFile(const std::string& path, const std::vector<std::string>& lines);

// Appends one line; the file is made where it is missing, its folder is not (76 "Path not found"). Raises as
// above, and 5 for a text that holds a line's end.
void AppendTextLine(const std::string& path, const std::string& line);

}  // namespace platform
