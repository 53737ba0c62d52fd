// Numbers from text and text from numbers.
#include <gtest/gtest.h>

#include "core/Numbers.h"
#include "platform/RuntimeError.h"

namespace {

// The number of the failure that `body` raises; 0 for none.
template <class Body>
int Raised(Body body) {
  try {
    body();
  } catch (const platform::RuntimeError& error) {
    return error.Number();
  }
  return 0;
}

TEST(NumbersTest, TextThatIsNoNumberRaises) {
  for (const char* text :
       {"", " ", "x", "1x", "0x10", "1,5", "--1", "+-1", "1 2", "nan", "inf", "infinity", ".", "1e", "True"})
    EXPECT_EQ(Raised([&] { core::ToNumber(text); }), 13) << text;
  EXPECT_EQ(Raised([] { core::ToNumber("1e999"); }), 6);
  EXPECT_EQ(core::ToNumber("1.0"), 1);
  EXPECT_EQ(core::ToNumber("  -2.5 "), -2.5);
  EXPECT_EQ(core::ToNumber("+3"), 3);
  EXPECT_EQ(core::ToNumber("1e3"), 1000);
  EXPECT_TRUE(core::IsOne(" 1.00"));
  EXPECT_FALSE(core::IsOne("0"));
  EXPECT_EQ(Raised([] { core::IsOne(""); }), 13);
}

TEST(NumbersTest, WholeNumbersRoundAHalfToTheEvenOneAndKeepTheirBounds) {
  EXPECT_EQ(core::ToInteger("0.5"), 0);
  EXPECT_EQ(core::ToInteger("1.5"), 2);
  EXPECT_EQ(core::ToInteger("2.5"), 2);
  EXPECT_EQ(core::ToInteger("-0.5"), 0);
  EXPECT_EQ(core::ToInteger("-1.5"), -2);
  EXPECT_EQ(core::ToInteger("32767.4"), 32767);
  EXPECT_EQ(Raised([] { core::ToInteger("32767.5"); }), 6);
  EXPECT_EQ(Raised([] { core::ToInteger("-32769"); }), 6);
  EXPECT_EQ(core::ToLong("-2147483648"), INT32_MIN);
  EXPECT_EQ(Raised([] { core::ToLong("2147483648"); }), 6);
}

TEST(NumbersTest, BooleansAreWordsOrNumbers) {
  for (const char* text : {"True", "TRUE", "true", "1", "-1", "0.1"})
    EXPECT_TRUE(core::ToBoolean(text)) << text;
  for (const char* text : {"False", "fALSE", "0", "0.0"}) EXPECT_FALSE(core::ToBoolean(text)) << text;
  for (const char* text : {"", "yes", "Truely", "T"})
    EXPECT_EQ(Raised([&] { core::ToBoolean(text); }), 13) << text;
}

TEST(NumbersTest, NumbersHaveTheirShortestText) {
  EXPECT_EQ(core::NumberText(3), "3");
  EXPECT_EQ(core::NumberText(-0.0), "0");
  EXPECT_EQ(core::NumberText(0.1 + 0.2), "0.3");
  EXPECT_EQ(core::NumberText(1536.25), "1536.25");
  EXPECT_EQ(core::NumberText(123456789012345), "123456789012345");
  EXPECT_EQ(core::NumberText(-2147483648.0), "-2147483648");
  EXPECT_EQ(core::NumberText(1000000), "1000000");
}

TEST(NumbersTest, PercentagesRoundAHalfAwayFromZero) {
  EXPECT_EQ(core::WholeText(0.5), "1");
  EXPECT_EQ(core::WholeText(2.5), "3");
  EXPECT_EQ(core::WholeText(-0.4), "0");
  EXPECT_EQ(core::PercentText(1, 7), "14%");
  EXPECT_EQ(core::PercentText(2, 7), "29%");
  EXPECT_EQ(core::PercentText(1, 200), "1%");
  EXPECT_EQ(core::PercentText(199, 200), "100%");
  EXPECT_EQ(core::PercentText(0, 3), "0%");
  EXPECT_EQ(core::PercentText(1, 0), "0%");
}

}  // namespace
