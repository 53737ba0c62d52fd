// Whether the user has asked for a stop. For the ZIP control alone.
#pragma once

#include "core/m_SharedProcedures.h"

namespace backup {

// A stop that is asked for after this object was made; what was asked of an earlier run doesn't count.
class StopWatch {
 public:
  StopWatch() : before_(Asked()) {}
  bool Stopped() const { return !before_ && Asked(); }

 private:
  static bool Asked() { return gAppRunning && gAppRunning->StopProcess; }
  bool before_;
};

}  // namespace backup
