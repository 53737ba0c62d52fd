#include "command/Progress.h"

#include <cmath>

namespace command {

using std::chrono::steady_clock;

namespace {

constexpr auto kInterval = std::chrono::milliseconds(100);
// Of a terminal's usual line of 80.
constexpr std::size_t kWidth = 78;
constexpr char kEraseLine[] = "\r\x1b[K";

}  // namespace

void Progress::Tick() {
  if (!on_ || !text) return;
  auto now = steady_clock::now();
  if (now < next_) return;
  next_ = now + kInterval;
  std::string line = text();
  if (line.empty()) return Clear();
  if (line.size() > kWidth) line.resize(kWidth);
  console_.err << kEraseLine << line << std::flush;
  shown_ = true;
}

void Progress::Clear() {
  if (shown_) console_.err << kEraseLine << std::flush;
  shown_ = false;
}

std::string Estimate(double done, double all, steady_clock::time_point begun) {
  std::string text =
      std::to_string(static_cast<long long>(done)) + " of " + std::to_string(static_cast<long long>(all));
  const std::chrono::duration<double> passed = steady_clock::now() - begun;
  // A guess from the first moments would jump about.
  if (done > 0 && passed.count() > 1)
    text += ", about " +
            std::to_string(static_cast<long long>(std::ceil(passed.count() / done * (all - done)))) +
            " s left";
  return text;
}

}  // namespace command
