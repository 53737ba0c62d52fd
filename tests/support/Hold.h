// A file in use.
#pragma once

#include <string>

namespace test {

// Holds a file while it lives, as a program does that uses it: others may read it, and do nothing else to it.
class Hold {
 public:
  // A native path.
  explicit Hold(const std::string& native);
  ~Hold();
  Hold(const Hold&) = delete;
  Hold& operator=(const Hold&) = delete;

 private:
#ifdef _WIN32
  void* file_;
#else
  int file_;
#endif
};

}  // namespace test
