// The time for what asks it very often.
#pragma once

#include <chrono>
#include <ctime>

namespace platform {

// The steady clock's time as of the system's last tick, some milliseconds ago at most; costs a fraction of
// the exact one.
inline std::chrono::steady_clock::time_point CoarseNow() {
#ifdef CLOCK_MONOTONIC_COARSE
  // The steady clock counts from the same moment.
  timespec time;
  clock_gettime(CLOCK_MONOTONIC_COARSE, &time);
  return std::chrono::steady_clock::time_point(std::chrono::seconds(time.tv_sec) +
                                               std::chrono::nanoseconds(time.tv_nsec));
#else
  return std::chrono::steady_clock::now();
#endif
}

}  // namespace platform
