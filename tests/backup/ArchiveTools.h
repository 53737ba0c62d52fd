// Archives from outside: made byte by byte, read by other programs.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "support/WatchedFiles.h"

namespace test {

// An entry as it is to stand in the archive, true or not. It is stored, never packed.
struct RawEntry {
  std::string name;
  std::string content;
  std::uint16_t flags = 0;
  std::uint16_t method = 0;
  std::uint16_t system = 0;        // upper byte of "version made by": 0 DOS, 3 Unix
  std::uint32_t attributes = 0;    // external
  std::int64_t declaredSize = -1;  // where it differs from the content's
  std::int64_t sharedWith = -1;    // the place of an entry whose data this one points to
};
std::string MakeZip(const std::vector<RawEntry>& entries);

// On the host: runs a program on the native files; its output and, on a line of its own, its exit code.
std::string RunProgram(const std::string& command);
// A text in quotes for the shell.
std::string Quoted(const std::string& text);

}  // namespace test
