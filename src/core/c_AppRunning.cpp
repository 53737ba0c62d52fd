#include "core/c_AppRunning.h"

#include "core/Numbers.h"

double c_AppRunning::TotalFileSize() const {
  return core::RoundHalfEven(totalFileSize_ / 1024);
}
