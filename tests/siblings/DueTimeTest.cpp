// The reckoning of dates.
#include <gtest/gtest.h>

#include "schedule/TimeOfDay.h"
#include "siblings/chronel/DueTime.h"
#include "support/TestComputer.h"

namespace {

using chronel::NextDue;
using platform::DateTime;

TEST(DueTimeTest, ReadsTimesAsPeopleWriteThem) {
  auto seconds = [](const char* text) {
    auto time = schedule::ParseTime(text);
    return time ? time->hour * 3600 + time->minute * 60 + time->second : -1;
  };
  for (auto [text, time] : {std::pair{"14:05:32", 50732},
                            {" 9:05 ", 32700},
                            {"09.05.01", 32701},
                            {"12:00:00 AM", 0},
                            {"12:30 pm", 45000},
                            {"1:00PM", 46800},
                            {"23:59:59", 86399}})
    EXPECT_EQ(seconds(text), time) << text;
  for (const char* none : {"", "noon", "14", "14:", ":30", "24:00:00", "12:60", "12:00:60", "12:00:",
                           "13:00 PM", "0:10 AM", "-1:00", "1:-1", "123:00", "12:00:00:00", "12:00 XM"})
    EXPECT_EQ(seconds(none), -1) << none;
}

TEST(DueTimeTest, ADateWithoutATimeIsDueFromMidnightAndNoDateNever) {
  test::TestComputer computer{{.layout = false}};
  EXPECT_EQ(chronel::DueAt("11/18/2026", "14:05:32"), (DateTime{2026, 11, 18, 14, 5, 32}));
  EXPECT_EQ(chronel::DueAt("11/18/2026", "soon"), (DateTime{2026, 11, 18, 0, 0, 0}));
  EXPECT_FALSE(chronel::DueAt("", "14:05:32"));
  EXPECT_FALSE(chronel::DueAt("Wednesday", "14:05:32"));
}

TEST(DueTimeTest, MovesOnByWholeStepsUntilItLiesAhead) {
  const DateTime due{2026, 12, 30, 9, 0, 0};
  EXPECT_EQ(NextDue(due, 1, due), (DateTime{2027, 1, 6, 9, 0, 0})) << "the same second has been run";
  EXPECT_EQ(NextDue(due, 4, due), (DateTime{2027, 1, 27, 9, 0, 0}));
  EXPECT_EQ(NextDue(due, 2, {2026, 12, 30, 9, 0, 30}), (DateTime{2027, 1, 13, 9, 0, 0}));
  EXPECT_EQ(NextDue(due, 1, {2027, 1, 6, 8, 59, 59}), (DateTime{2027, 1, 6, 9, 0, 0}));
  EXPECT_EQ(NextDue(due, 1, {2027, 1, 6, 9, 0, 0}), (DateTime{2027, 1, 13, 9, 0, 0}));
  EXPECT_EQ(NextDue(due, 3, {2027, 1, 21, 0, 0, 0}), (DateTime{2027, 2, 10, 9, 0, 0}));
  EXPECT_EQ(NextDue(due, 1, {2026, 12, 1, 0, 0, 0}), (DateTime{2027, 1, 6, 9, 0, 0})) << "a clock set back";
  EXPECT_EQ(chronel::SecondsBetween({2026, 12, 31, 23, 59, 58}, {2027, 1, 1, 0, 0, 3}), 5);
}

}  // namespace
