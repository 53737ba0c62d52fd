#include "PlatformTest.h"
#include "platform/LibFile.h"
#include "platform/TextFile.h"
#include "support/Raised.h"

using namespace platform;

namespace test {

class TextFileTest : public PlatformTest {
 protected:
  Strings Lines(const std::string& path) {
    Strings lines;
    TextReader reader(path);
    while (!reader.AtEnd()) lines.push_back(reader.ReadLine());
    EXPECT_EQ(Raised([&] { reader.ReadLine(); }), 62);
    return lines;
  }
};

TEST_F(TextFileTest, ReadsEveryKindOfLineEnd) {
  computer.WriteFile("C:\\T\\a.txt", "one\r\ntwo\nthree\rfour\r\n\r\n\x80 last");
  EXPECT_EQ(Lines("C:\\T\\a.txt"), (Strings{"one", "two", "three", "four", "", "\u20AC last"}));
  computer.WriteFile("C:\\T\\empty.txt", "");
  EXPECT_TRUE(Lines("C:\\T\\empty.txt").empty());
  computer.WriteFile("C:\\T\\blank.txt", "\r\n");
  EXPECT_EQ(Lines("C:\\T\\blank.txt"), Strings{""});
  // Line ends at and around the pieces that the file is read in.
  for (std::size_t length : {65534u, 65535u, 65536u, 200000u}) {
    computer.WriteFile("C:\\T\\long.txt", std::string(length, 'x') + "\r\nnext\r\n");
    EXPECT_EQ(Lines("C:\\T\\long.txt"), (Strings{std::string(length, 'x'), "next"}));
  }
}

TEST_F(TextFileTest, WritesAndAppendsInTheCodePage) {
  WriteTextFile("C:\\T.txt", {"ä", "", "C:\\x"});
  EXPECT_EQ(computer.ReadFile("C:\\T.txt"), "\xE4\r\n\r\nC:\\x\r\n");
  AppendTextLine("c:\\t.TXT", "\u20AC");
  AppendTextLine("C:\\new.txt", "first");
  EXPECT_EQ(computer.ReadFile("C:\\T.txt"), "\xE4\r\n\r\nC:\\x\r\n\x80\r\n");
  EXPECT_EQ(computer.ReadFile("C:\\new.txt"), "first\r\n");
  WriteTextFile("C:\\T.txt", {});
  EXPECT_EQ(computer.ReadFile("C:\\T.txt"), "");
  // Whatever was left unfinished keeps a line to itself.
  computer.WriteFile("C:\\T.txt", "C:\\half");
  AppendTextLine("C:\\T.txt", "C:\\whole");
  EXPECT_EQ(computer.ReadFile("C:\\T.txt"), "C:\\half\r\nC:\\whole\r\n");
}

TEST_F(TextFileTest, WhatTheCodePageCannotHoldTouchesNothing) {
  computer.WriteFile("C:\\T.txt", "old");
  EXPECT_EQ(Raised([] { WriteTextFile("C:\\T.txt", {"good", "\u65E5"}); }), 5);
  EXPECT_EQ(Raised([] { AppendTextLine("C:\\T.txt", "caf\xE9"); }), 5);
  EXPECT_EQ(Raised([] { AppendTextLine("C:\\none.txt", "\u65E5"); }), 5);
  EXPECT_EQ(Raised([] { AppendTextLine("C:\\none.txt", "C:\\half\nother"); }), 5);
  EXPECT_EQ(computer.ReadFile("C:\\T.txt"), "old");
  EXPECT_FALSE(computer.Exists("C:\\none.txt"));
}

TEST_F(TextFileTest, FailuresRaiseTheirErrors) {
  computer.WriteFile("C:\\T\\a.txt", "old");
  EXPECT_EQ(Raised([] { TextReader("C:\\T\\none.txt"); }), 53);
  EXPECT_EQ(Raised([] { TextReader("C:\\none\\a.txt"); }), 76);
  EXPECT_EQ(Raised([] { TextReader("C:\\T\\a.txt\\x"); }), 76);
  EXPECT_EQ(Raised([] { TextReader("C:\\T"); }), 75);
  EXPECT_EQ(Raised([] { WriteTextFile("C:\\none\\a.txt", {}); }), 76);
  EXPECT_EQ(Raised([] { AppendTextLine("C:\\none\\a.txt", ""); }), 76);
  EXPECT_EQ(Raised([] { WriteTextFile("C:\\T", {}); }), 75);
  EXPECT_EQ(Raised([] { WriteTextFile("relative.txt", {}); }), 75);
  {
    LockHolder holder(computer.Native("C:\\T\\a.txt"), LockKind::Flock);
    EXPECT_EQ(Raised([] { WriteTextFile("C:\\T\\a.txt", {"new"}); }), 70);
    EXPECT_EQ(Raised([] { AppendTextLine("C:\\T\\a.txt", "new"); }), 70);
  }
  computer.SetAttributes("C:\\T\\a.txt", 33);
  EXPECT_EQ(Raised([] { WriteTextFile("C:\\T\\a.txt", {"new"}); }), 70);
  EXPECT_EQ(Raised([] { AppendTextLine("C:\\T\\a.txt", "new"); }), 70);
  EXPECT_EQ(computer.ReadFile("C:\\T\\a.txt"), "old");
  EXPECT_EQ(computer.List("C:\\T"), Strings{"a.txt"});
}

}  // namespace test
