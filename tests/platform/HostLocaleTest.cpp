#include <cstdlib>
#include <ctime>
#include <gtest/gtest.h>

#include "platform/host/HostClock.h"
#include "platform/host/HostLocale.h"

namespace platform {
namespace {

TEST(HostLocaleTest, EveryByteOfTheCodePageGoesBothWays) {
  HostLocale locale;
  for (int byte = 0; byte < 256; ++byte) {
    std::string bytes(1, static_cast<char>(byte));
    std::string text = locale.FromAnsi(bytes);
    bool undefined = byte == 0x81 || byte == 0x8D || byte == 0x8F || byte == 0x90 || byte == 0x9D;
    if (undefined) {
      EXPECT_EQ(text, "\uFFFD") << byte;
    } else {
      EXPECT_EQ(locale.ToAnsi(text), bytes) << byte;
    }
  }
}

TEST(HostLocaleTest, TakesNoDateInAnotherForm) {
  HostLocale locale;
  EXPECT_EQ(locale.ParseDate("2/9/2024"), (DateTime{2024, 2, 9}));
  for (const char* text :
       {"02/29/1900", "04/31/2024", "2024-02-09", "02/09/20245", "2/9/2024 ", "2//2024", "-2/9/2024"})
    EXPECT_EQ(locale.ParseDate(text), std::nullopt) << text;
}

TEST(HostClockTest, TellsLocalTime) {
  struct Zone {
    explicit Zone(const char* name) {
      setenv("TZ", name, 1);
      tzset();
    }
    ~Zone() {
      unsetenv("TZ");
      tzset();
    }
  } zone("XYZ-5:30");
  HostClock clock;
  constexpr Moment kSecond = 1'000'000'000;
  EXPECT_EQ(clock.ToLocal(0), (DateTime{1970, 1, 1, 5, 30, 0}));
  EXPECT_EQ(clock.ToLocal(1709251199 * kSecond + 999'999'999), (DateTime{2024, 3, 1, 5, 29, 59}));
  EXPECT_EQ(clock.ToLocal(-1), (DateTime{1970, 1, 1, 5, 29, 59}));
}

}  // namespace
}  // namespace platform
