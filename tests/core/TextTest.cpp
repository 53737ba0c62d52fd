// Texts that others have made, shown as one line.
#include <gtest/gtest.h>

#include "core/Boxes.h"
#include "core/Text.h"
#include "support/TestComputer.h"

TEST(OneLineTest, OneLineShowsAllThatIsInAText) {
  const std::pair<std::string, std::string> cases[] = {
      {"C:\\Data\\caf\u00E9 \u0436 \U0001F600.txt", "C:\\Data\\caf\u00E9 \u0436 \U0001F600.txt"},
      {"x.tmp\r\nFinished: all good", "x.tmp\uFFFD\uFFFDFinished: all good"},
      {std::string("\0\t\x1B\x7F", 4), "\uFFFD\uFFFD\uFFFD\uFFFD"},
      {"\u0085\u009B\u2028\u2029", "\uFFFD\uFFFD\uFFFD\uFFFD"},
      {"txt\u202Eexe.\u2066\u200F", "txt\uFFFDexe.\uFFFD\uFFFD"},
      {"\xFF|\xC0\xAF|\xED\xA0\x80|\xE2\x82|\xF4\x90\x80\x80",
       "\uFFFD|\uFFFD\uFFFD|\uFFFD\uFFFD\uFFFD|\uFFFD\uFFFD|"
       "\uFFFD\uFFFD\uFFFD\uFFFD"},
      {"", ""}};
  for (const auto& [text, shown] : cases) EXPECT_EQ(core::OneLine(text), shown);
}

TEST(OneLineTest, ANameCannotWriteALineOfABox) {
  test::TestComputer computer({.layout = false});
  core::Tell(core::BoxIcon::Information, "Title\nmore", {"first", "a\r\nsecond"});
  EXPECT_EQ(computer.desktop.boxes,
            test::Strings{"information|Title\uFFFDmore|first\r\na\uFFFD\uFFFDsecond"});
}
