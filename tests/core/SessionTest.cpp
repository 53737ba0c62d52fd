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

class TextTest : public ::testing::Test {
 protected:
  test::TestComputer computer{{.layout = false}};
};

TEST_F(TextTest, ContainsIgnoresCaseInEveryScript) {
  for (auto [text, part, holds] : {std::tuple{"C:\\WINDOWS\\Temp", "\\windows\\", true},
                                   {"C:\\Windows", "C:\\Windows\\", false},
                                   {"any", "", true},
                                   {"", "", false},
                                   {"", "x", false},
                                   {"ÜBERSICHT.TXT", "übersicht", true},
                                   {"Отчёт.lnk", "ОТЧЁТ", true},
                                   {"a\xff\xfe.TMP", "tmp", true}}) {
    EXPECT_EQ(core::Contains(text, part), holds) << text << " " << part;
    EXPECT_EQ(core::Part(part).In(text), holds) << text << " " << part;
  }
  EXPECT_TRUE(core::Equals("Cache", "cACHE") && core::Equals("Ä", "ä"));
  EXPECT_FALSE(core::Equals("cache", "caches") || core::Equals("a", "ä"));
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
