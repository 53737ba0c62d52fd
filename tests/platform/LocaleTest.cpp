// Case, the code page and dates, which are the same on every system.
#include "PlatformTest.h"

namespace test {

class LocaleTest : public PlatformTest {
 protected:
  platform::Locale& locale = computer.Machine().GetLocale();
};

TEST_F(LocaleTest, FoldsOneCharacterToOne) {
  auto same = [&](const char* a, const char* b) { return locale.Fold(a) == locale.Fold(b); };
  EXPECT_EQ(locale.Fold("C:\\Program FILES\\[a]@`{Z}"), "c:\\program files\\[a]@`{z}");
  for (auto [one, other] : {std::pair{"ÄÖÜ ÉÈ ÑŸ Œ", "äöü éè ñÿ œ"}, {"ЖУРНАЛ", "журнал"}})
    EXPECT_TRUE(same(one, other)) << one;
#ifndef _WIN32
  EXPECT_TRUE(same("\U00010400", "\U00010428")) << "beyond the first plane";
  EXPECT_TRUE(same("\u01C4", "\u01C5") && same("ΣΊΣΥΦΟΣ", "σίσυφος"));
#endif
  // Two names on a disk that must never be taken for one: sharp s, Kelvin sign, dotless and dotted i,
  // ligature, long s, composed and decomposed.
  for (auto [one, other] : {std::pair{"Straße", "STRASSE"},
                            {"\u212A", "k"},
                            {"\u0131", "i"},
                            {"\u0130", "i"},
                            {"\uFB01", "fi"},
                            {"\u017F", "s"},
                            {"\u00E9", "e\u0301"}})
    EXPECT_FALSE(same(one, other)) << one;
  // Bytes that are no text stay themselves, and don't eat what follows.
  EXPECT_EQ(locale.Fold("\xC3(A\xFF\xE2\x82Z"), "\xC3(a\xFF\xE2\x82z");
  EXPECT_EQ(locale.Fold("Ä\xED\xA0\x80Z"), "ä\xED\xA0\x80z");
}

TEST_F(LocaleTest, TheCodePageHoldsNothingThatOnlyLooksAlike) {
  EXPECT_EQ(locale.ToAnsi("C:\\Café €100 – “š”"),
            "C:\\Caf\xE9 \x80"
            "100 \x96 \x93\x9A\x94");
  EXPECT_EQ(locale.FromAnsi("\x80\x9F\xA0\xFF"), "\u20AC\u0178\u00A0\u00FF");
  // A best fit would be e, A, Z or a question mark.
  for (const char* text : {"Ω", "a\u0301", "😀", "\uFF21", "\u0179", "ok\xFF", "\xED\xA0\x80"})
    EXPECT_EQ(locale.ToAnsi(text), std::nullopt) << text;
#ifndef _WIN32
  EXPECT_EQ(locale.ToAnsi(""), "");
  for (const char* text : {"\u0081", "\u009D", "\u0080"})
    EXPECT_EQ(locale.ToAnsi(text), std::nullopt) << text;
#endif
}

TEST_F(LocaleTest, WritesAndReadsDates) {
  EXPECT_EQ(locale.ShortDate({2024, 2, 9, 17, 5, 3}), "02/09/2024");
  EXPECT_EQ(locale.LongTime({2024, 2, 9, 7, 5, 3}), "07:05:03");
  EXPECT_EQ(locale.ParseDate("02/09/2024"), (platform::DateTime{2024, 2, 9}));
  EXPECT_EQ(locale.ParseDate("2/29/2000"), (platform::DateTime{2000, 2, 29}));
  for (const char* text : {"", "02/30/2024", "02/29/2023", "13/01/2024", "00/01/2024", "01/00/2024",
                           "02/09/24", "02/09/2024 07:05:03", "02.09.2024", " 2/9/2024", "02/09/0000"})
    EXPECT_EQ(locale.ParseDate(text), std::nullopt) << text;
}

}  // namespace test
