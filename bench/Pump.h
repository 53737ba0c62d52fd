// A desktop whose pump costs what the real one does while no frame is due.
#pragma once

#include <algorithm>
#include <chrono>

#include "Bench.h"
#include "platform/CoarseClock.h"

namespace bench {

// Looks at the clock at each call, and keeps the longest time between two, to some milliseconds: for so long
// the window would stand still.
class PumpingDesktop : public NoDesktop {
 public:
  void DoEvents() override { Pump(); }
  void Breathe() override { Pump(); }

  void Restart() {
    last_ = platform::CoarseNow();
    longest_ = {};
  }
  // Milliseconds since Restart, the time up to now included.
  double LongestGap() {
    Pump();
    return std::chrono::duration<double, std::milli>(longest_).count();
  }

 private:
  using Clock = std::chrono::steady_clock;
  void Pump() {
    Clock::time_point now = platform::CoarseNow();
    longest_ = std::max(longest_, now - last_);
    last_ = now;
  }
  Clock::time_point last_ = platform::CoarseNow();
  Clock::duration longest_{};
};

}  // namespace bench
