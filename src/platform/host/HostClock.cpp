#include "platform/host/HostClock.h"

#include <chrono>
#include <ctime>

namespace platform {

DateTime HostClock::Now() {
  auto now = std::chrono::system_clock::now().time_since_epoch();
  return ToLocal(std::chrono::duration_cast<std::chrono::nanoseconds>(now).count());
}

DateTime HostClock::ToLocal(Moment moment) {
  constexpr Moment kSecond = 1'000'000'000;
  // Downwards, also before 1970.
  auto seconds = static_cast<std::time_t>(moment / kSecond - (moment % kSecond < 0 ? 1 : 0));
  std::tm local{};
  if (!localtime_r(&seconds, &local)) return {};
  return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec};
}

}  // namespace platform
