// What the scheduler has of the process that it runs in.
#pragma once

#include <chrono>
#include <functional>

namespace chronel {

struct Surroundings {
  // The process has been told to end. Asked for each file of a run.
  std::function<bool()> toldToEnd;
  // Returns after that time, or when the process is told to end.
  std::function<void(std::chrono::milliseconds)> wait;
  // For how long a start waits for an instance that has been told to end and may still be there.
  std::chrono::milliseconds patience{10'000};
};

}  // namespace chronel
