#include <fcntl.h>
#include <stdexcept>
#include <sys/file.h>
#include <unistd.h>

#include "support/Hold.h"

namespace test {

Hold::Hold(const std::string& native) : file_(open(native.c_str(), O_RDONLY | O_CLOEXEC)) {
  if (file_ < 0 || flock(file_, LOCK_EX | LOCK_NB) != 0) throw std::runtime_error("can't hold " + native);
}

Hold::~Hold() {
  close(file_);
}

}  // namespace test
