// The process that a command runs in.
#pragma once

#include <functional>
#include <istream>
#include <ostream>

namespace command {

struct Console {
  std::istream& in;
  std::ostream& out;
  std::ostream& err;
  bool inIsTerminal = false, outIsTerminal = false, errIsTerminal = false;
  // The user has asked the program to stop (Ctrl+C).
  std::function<bool()> interrupted = [] { return false; };
};

// What a process ends with.
enum ExitCode {
  kAllDone = 0,
  kSomethingStayed = 1,
  kUsedWrongly = 2,
  kNothingDone = 3,
  kInterrupted = 130,
};

}  // namespace command
