// Numbers from text and text from numbers.
#include <gtest/gtest.h>

#include "core/Numbers.h"
#include "support/Raised.h"

namespace {

using test::Raised;

TEST(NumbersTest, TextThatIsNoNumberRaises) {
  for (const char* text :
       {"", " ", "x", "1x", "0x10", "1,5", "--1", "+-1", "1 2", "nan", "inf", "infinity", ".", "1e", "True"})
    EXPECT_EQ(Raised([&] { core::ToNumber(text); }), 13) << text;
  EXPECT_EQ(Raised([] { core::ToNumber("1e999"); }), 6);
  for (auto [text, number] : {std::pair{"1.0", 1.0}, {"  -2.5 ", -2.5}, {"+3", 3.0}, {"1e3", 1000.0}})
    EXPECT_EQ(core::ToNumber(text), number) << text;
  EXPECT_TRUE(core::IsOne(" 1.00") && !core::IsOne("0"));
  EXPECT_EQ(Raised([] { core::IsOne(""); }), 13);
}

TEST(NumbersTest, WholeNumbersRoundAHalfToTheEvenOneAndKeepTheirBounds) {
  for (auto [text, number] :
       {std::pair{"0.5", 0}, {"1.5", 2}, {"2.5", 2}, {"-0.5", 0}, {"-1.5", -2}, {"32767.4", 32767}})
    EXPECT_EQ(core::ToInteger(text), number) << text;
  EXPECT_EQ(Raised([] { core::ToInteger("32767.5"); }), 6);
  EXPECT_EQ(Raised([] { core::ToInteger("-32769"); }), 6);
}

TEST(NumbersTest, BooleansAreWordsOrNumbers) {
  for (const char* text : {"True", "TRUE", "true", "1", "-1", "0.1"})
    EXPECT_TRUE(core::ToBoolean(text)) << text;
  for (const char* text : {"False", "fALSE", "0", "0.0"}) EXPECT_FALSE(core::ToBoolean(text)) << text;
  for (const char* text : {"", "yes", "Truely", "T"})
    EXPECT_EQ(Raised([&] { core::ToBoolean(text); }), 13) << text;
}

TEST(NumbersTest, NumbersHaveTheirShortestText) {
  for (auto [number, text] : {std::pair{3.0, "3"},
                              {-0.0, "0"},
                              {0.1 + 0.2, "0.3"},
                              {1536.25, "1536.25"},
                              {123456789012345.0, "123456789012345"},
                              {-2147483648.0, "-2147483648"},
                              {1000000.0, "1000000"}})
    EXPECT_EQ(core::NumberText(number), text);
}

TEST(NumbersTest, PercentagesRoundAHalfAwayFromZero) {
  EXPECT_EQ(core::WholeText(0.5), "1");
  EXPECT_EQ(core::WholeText(2.5), "3");
  EXPECT_EQ(core::WholeText(-0.4), "0");
  for (auto [part, whole, text] : {std::tuple{1, 7, "14%"},
                                   {2, 7, "29%"},
                                   {1, 200, "1%"},
                                   {199, 200, "100%"},
                                   {0, 3, "0%"},
                                   {1, 0, "0%"}})
    EXPECT_EQ(core::PercentText(part, whole), text);
}

}  // namespace
