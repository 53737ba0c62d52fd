// The statistics: the panel, the folding of a session, the reset.
#include "SettingsFixture.h"

namespace {

using namespace core::keys;

class CleaningStatusTest : public SettingsFixture {
 protected:
  std::string Statistic(const char* name) { return computer.GetValue(kCleaningStatus, name); }
  // Uses; files and size of the last period and in total.
  std::string Counted() {
    std::string all = Statistic("Total times used");
    for (const char* name : {"Files deleted", "Size freed up", "Total files deleted", "Total size freed up"})
      all += " " + Statistic(name);
    return all;
  }
};

TEST_F(CleaningStatusTest, ASessionIsFoldedIntoTheTotalsAndStartsAnew) {
  computer.SetValue(kCleaningStatus, "Total times used", "41");
  computer.SetValue(kCleaningStatus, "Total files deleted", "1000");
  computer.SetValue(kCleaningStatus, "Total size freed up", "10.25");
  gCleaningStatus->FilesDeleted = 3;
  gCleaningStatus->SizeFreedUp = 10486272;
  gCleaningStatus->PlugInFileCount = 7;
  m_Registry::SaveCleaningStatus();
  EXPECT_EQ(Statistic("Date used") + Statistic("Time used"), "03/31/202614:05:32");
  EXPECT_EQ(Counted(), "42 3 10240.5 1003 10250.75");

  // A second close without a clean in between counts one more use and empties the last period.
  m_Registry::SaveCleaningStatus();
  EXPECT_EQ(Counted(), "43 0 0 1003 10250.75");
  EXPECT_EQ(gCleaningStatus->PlugInFileCount, 7);

  m_Registry::AssignCleaningStatus(form);
  EXPECT_EQ(form.lblTotalTimesUsedCleaningStatus.Caption.Get(), "43");
  EXPECT_EQ(form.lblFilesDeletedCleaningStatus.Caption.Get(), "0");
  EXPECT_EQ(form.lblTotalFilesDeletedCleaningStatus.Caption.Get(), "1003");
  EXPECT_EQ(form.lblTotalSizeFreedUpCleaningStatus.Caption.Get(), "10250.75 KB");
}

TEST_F(CleaningStatusTest, AMissingStatisticWritesNothingAndKeepsTheCounters) {
  for (const char* missing : {"Total times used", "Total files deleted", "Total size freed up"}) {
    computer.desktop.Clear();
    std::string kept = Statistic(missing);
    computer.RemoveValue(kCleaningStatus, missing);
    gCleaningStatus->FilesDeleted = 2;
    gCleaningStatus->SizeFreedUp = 4096;
    test::FaultyMachine watched(computer.Machine());
    m_Registry::SaveCleaningStatus();
    EXPECT_EQ(computer.desktop.boxes, std::vector{test::Report("m_Registry", "SaveCleaningStatus",
                                                               "Arguments: None ", "Type mismatch", 13)})
        << missing;
    EXPECT_TRUE(watched.registry.writes.empty()) << missing;
    EXPECT_EQ(gCleaningStatus->FilesDeleted, 2);
    EXPECT_EQ(gCleaningStatus->SizeFreedUp, 4096) << missing;
    computer.SetValue(kCleaningStatus, missing, kept);
  }
  m_Registry::AssignCleaningStatus(form);
  EXPECT_EQ(form.lblDateUsedCleaningStatus.Caption.Get(), "");
}

TEST_F(CleaningStatusTest, TheResetAsksAndDropsTheSessionToo) {
  computer.SetValue(kCleaningStatus, "Total times used", "41");
  computer.SetValue(kCleaningStatus, "Size freed up", "5");
  computer.SetValue(kCleaningStatus, "Date used", "01/01/2026");
  gCleaningStatus->FilesDeleted = 2;
  gCleaningStatus->SizeFreedUp = 4096;
  computer.desktop.Answer(platform::BoxAnswer::No);
  form.lblResetCleaningStatus.Click();
  EXPECT_EQ(computer.desktop.boxes, test::Strings{"information?|Reset|Confirm Reset Cleaning Status"});
  EXPECT_EQ(Statistic("Total times used"), "41");
  EXPECT_EQ(gCleaningStatus->FilesDeleted, 2);

  computer.desktop.Answer(platform::BoxAnswer::Yes);
  form.lblResetCleaningStatus.Click();
  EXPECT_EQ(Counted(), "0 0 0 0 0");
  EXPECT_EQ(Statistic("Date used"), "01/01/2026");
  EXPECT_EQ(form.lblTotalSizeFreedUpCleaningStatus.Caption.Get(), "0 KB");
  m_Registry::SaveCleaningStatus();
  EXPECT_EQ(Counted(), "1 0 0 0 0") << "the session's own is dropped too";
}

}  // namespace
