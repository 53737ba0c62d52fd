#include "platform/windows/WindowsClock.h"

#include "platform/windows/WindowsPaths.h"

namespace platform {

namespace {

DateTime DateTimeOf(const SYSTEMTIME& time) {
  return {time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond};
}

}  // namespace

DateTime WindowsClock::Now() {
  SYSTEMTIME time;
  GetLocalTime(&time);
  return DateTimeOf(time);
}

DateTime WindowsClock::ToLocal(Moment moment) {
  FILETIME file = TimeOf(moment);
  SYSTEMTIME time, local;
  if (!FileTimeToSystemTime(&file, &time)) return {};
  TIME_ZONE_INFORMATION zone;
  bool known = GetTimeZoneInformationForYear(time.wYear, nullptr, &zone);
  if (!SystemTimeToTzSpecificLocalTime(known ? &zone : nullptr, &time, &local)) return {};
  return DateTimeOf(local);
}

}  // namespace platform
