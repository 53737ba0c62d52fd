// The session's objects and the texts that the whole program compares.
#include <gtest/gtest.h>

#include "core/Text.h"
#include "core/UserInformation.h"
#include "platform/RuntimeError.h"
#include "support/Session.h"

namespace {

TEST(AppRunningTest, TheTotalAddsUpAndReadsInWholeKilobytes) {
  c_AppRunning session;
  EXPECT_FALSE(session.AppIsLoaded || session.AppLoading || session.AppRunning || session.StopProcess ||
               session.NewSession);
  session.AddToTotalFileSize(100);
  session.AddToTotalFileSize(100);
  EXPECT_EQ(session.TotalFileSize(), 0);
  session.AddToTotalFileSize(312);
  EXPECT_EQ(session.TotalFileSize(), 0) << "half a kilobyte goes to the even number";
  session.AddToTotalFileSize(1);
  EXPECT_EQ(session.TotalFileSize(), 1);
  session.Zeroproperties();
  session.AddToTotalFileSize(1536);
  EXPECT_EQ(session.TotalFileSize(), 2);
  session.Zeroproperties();
  for (int i = 0; i < 3; ++i) session.AddToTotalFileSize(2147483647.0);
  EXPECT_EQ(session.TotalFileSize(), 6291456);
}

TEST(CountedListTest, TheUpperBoundIsTheCountWithAnEmptySlotThere) {
  platform::CountedList list;
  EXPECT_EQ(list.UpperBound(), 0);
  EXPECT_EQ(list[0], "");
  list.Add("C:\\a");
  list.AddIn(list.AddFolder("C:\\folder\\"), "name");
  EXPECT_EQ(list.UpperBound(), 2);
  EXPECT_EQ(list[1], "C:\\folder\\name");
  EXPECT_EQ(list[2], "");
  EXPECT_THROW(list[3], platform::RuntimeError);
  EXPECT_THROW(list[-1], platform::RuntimeError);
  platform::CountedList copy = list;
  copy.Append(list);
  EXPECT_EQ(copy.UpperBound(), 4);
  EXPECT_EQ(copy[3], "C:\\folder\\name");
  list.Reset();
  EXPECT_TRUE(list.Empty());
  EXPECT_EQ(list[0], "");
  EXPECT_EQ(copy[1], "C:\\folder\\name") << "a copy stands by itself";
  platform::CountedList moved = std::move(copy);
  EXPECT_EQ(moved.UpperBound(), 4);
}

TEST(CountedListTest, HoldsManyAndLongTexts) {
  platform::CountedList list;
  std::string longer(300000, 'x');
  for (int i = 0; i < 20000; ++i) list.Add("C:\\files\\" + std::to_string(i));
  list.Add(longer);
  list.Add("");
  EXPECT_EQ(list[19999], "C:\\files\\19999");
  EXPECT_EQ(list[20000], longer);
  EXPECT_EQ(list[20001], "");
  EXPECT_EQ(list.UpperBound(), 20002);
}

class TextTest : public ::testing::Test {
 protected:
  test::TestComputer computer{{.layout = false}};
};

TEST_F(TextTest, ContainsIgnoresCaseInEveryScript) {
  EXPECT_TRUE(core::Contains("C:\\WINDOWS\\Temp", "\\windows\\"));
  EXPECT_FALSE(core::Contains("C:\\Windows", "C:\\Windows\\"));
  EXPECT_TRUE(core::Contains("any", ""));
  EXPECT_FALSE(core::Contains("", ""));
  EXPECT_FALSE(core::Contains("", "x"));
  EXPECT_TRUE(core::Contains("ÜBERSICHT.TXT", "übersicht"));
  EXPECT_TRUE(core::Contains("Отчёт.lnk", "ОТЧЁТ"));
  EXPECT_TRUE(core::Contains("écho.LNK", "lnk"));
  EXPECT_TRUE(core::Contains("a\xff\xfe.TMP", "tmp")) << "a name that is no valid text";
  EXPECT_TRUE(core::Equals("Cache", "cACHE"));
  EXPECT_FALSE(core::Equals("cache", "caches"));
  EXPECT_TRUE(core::Equals("Ä", "ä"));
  EXPECT_FALSE(core::Equals("a", "ä"));
  core::Part part("TmP");
  EXPECT_TRUE(part.In("x.tmp2"));
  EXPECT_FALSE(part.In("x.tm"));
  EXPECT_FALSE(part.In(""));
}

TEST(LinesTest, AreJoinedByCrLfWithoutOneAtTheEnd) {
  EXPECT_EQ(core::Lines({}), "");
  EXPECT_EQ(core::Lines({"a", "", "b"}), "a\r\n\r\nb");
  EXPECT_EQ(core::Trim("  a b "), "a b");
  EXPECT_EQ(core::Trim("   "), "");
}

class UserInformationTest : public ::testing::Test {
 protected:
  std::string Flag(const char* key) { return computer.GetValue(core::keys::kUserInformation, key); }
  test::TestComputer computer;
  test::SessionObjects session;
};

TEST_F(UserInformationTest, ClosingTheBoxByAnyMeansStoresItsFlagUnderItsKey) {
  frmUserInformation& box = core::ShowUserInformation(core::kStartScheduleKey);
  EXPECT_TRUE(box.Visible);
  box.chkDoNotShowThisMessage.Value = 1;
  // The other use while it is open: the same box, its mark taken off.
  frmUserInformation& again = core::ShowUserInformation(core::kBrokenShortcutsKey);
  EXPECT_EQ(&again, &box);
  EXPECT_EQ(again.chkDoNotShowThisMessage.Value, 0);
  again.chkDoNotShowThisMessage.Value = 1;
  EXPECT_TRUE(core::CloseForm(again));
  EXPECT_EQ(Flag("Broken shortcuts Scan entire drive"), "1");
  EXPECT_EQ(Flag("Start Schedule"), "");
  EXPECT_TRUE(core::OpenForms().empty());

  // A key that is none of the two writes nothing, and case counts.
  core::ShowUserInformation("start schedule");
  core::CloseForm(*core::OpenForms().front());
  EXPECT_EQ(Flag("Start Schedule"), "");
}

}  // namespace
