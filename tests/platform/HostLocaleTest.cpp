#include <cstdlib>
#include <ctime>
#include <gtest/gtest.h>

#include "platform/host/HostClock.h"
#include "platform/host/HostLocale.h"

namespace platform {
namespace {

TEST(HostLocaleTest, FoldsLettersThatDifferInCaseAlone) {
  HostLocale locale;
  auto same = [&](const char* a, const char* b) { return locale.Fold(a) == locale.Fold(b); };
  EXPECT_EQ(locale.Fold("C:\\Program FILES\\[a]@`{Z}"), "c:\\program files\\[a]@`{z}");
  EXPECT_TRUE(same("ÄÖÜ ÉÈ ÑŸ Œ", "äöü éè ñÿ œ"));
  EXPECT_TRUE(same("ΣΊΣΥΦΟΣ", "σίσυφος"));
  EXPECT_TRUE(same("ЖУРНАЛ", "журнал"));
  EXPECT_TRUE(same("\U00010400", "\U00010428")) << "beyond the first plane";
  EXPECT_TRUE(same("\u01C4", "\u01C5"));
  // Two names on a disk that must never be taken for one.
  EXPECT_FALSE(same("Straße", "STRASSE"));
  EXPECT_FALSE(same("\u212A", "k")) << "the Kelvin sign";
  EXPECT_FALSE(same("\u0131", "i")) << "the dotless i";
  EXPECT_FALSE(same("\u0130", "i")) << "the capital with a dot";
  EXPECT_FALSE(same("\uFB01", "fi")) << "a ligature";
  EXPECT_FALSE(same("\u017F", "s")) << "the long s";
  EXPECT_FALSE(same("\u00E9", "e\u0301")) << "composed and decomposed";
  // Bytes that are no text stay themselves, and don't eat what follows.
  EXPECT_EQ(locale.Fold("\xC3(A\xFF\xE2\x82Z"), "\xC3(a\xFF\xE2\x82z");
  EXPECT_EQ(locale.Fold("A\xED\xA0\x80Z"), "a\xED\xA0\x80z");
}

TEST(HostLocaleTest, TheCodePageGoesBothWays) {
  HostLocale locale;
  EXPECT_EQ(locale.ToAnsi("C:\\Café €100 – “š”"),
            "C:\\Caf\xE9 \x80"
            "100 \x96 \x93\x9A\x94");
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
  EXPECT_EQ(locale.FromAnsi("\x80\x9F\xA0\xFF"), "\u20AC\u0178\u00A0\u00FF");
  for (const char* text : {"\u0081", "\u009D", "\u0080", "Ω", "a\u0301", "😀", "ok\xFF", "\xED\xA0\x80"})
    EXPECT_EQ(locale.ToAnsi(text), std::nullopt) << text;
  EXPECT_EQ(locale.ToAnsi(""), "");
}

TEST(HostLocaleTest, WritesAndReadsDates) {
  HostLocale locale;
  DateTime moment{2024, 2, 9, 7, 5, 3};
  EXPECT_EQ(locale.ShortDate(moment), "02/09/2024");
  EXPECT_EQ(locale.LongTime(moment), "07:05:03");
  EXPECT_EQ(locale.ParseDate("02/09/2024"), (DateTime{2024, 2, 9}));
  EXPECT_EQ(locale.ParseDate("2/9/2024"), (DateTime{2024, 2, 9}));
  EXPECT_EQ(locale.ParseDate("02/29/2024"), (DateTime{2024, 2, 29}));
  EXPECT_EQ(locale.ParseDate("02/29/2000"), (DateTime{2000, 2, 29}));
  for (const char* text :
       {"", "02/30/2024", "02/29/2023", "02/29/1900", "13/01/2024", "00/01/2024", "01/00/2024", "04/31/2024",
        "02/09/24", "2024-02-09", "02/09/2024 07:05:03", "02/09/20245", " 2/9/2024", "2/9/2024 ", "2//2024",
        "-2/9/2024", "02.09.2024", "02/09/0000"})
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
