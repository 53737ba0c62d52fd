// The results page: loading, choosing a category, ticking, narrowing.

#include "scan/ScanFixture.h"
#include "scan/ScanningResultsBrasmirPage.h"
#include "scan/m_Results.h"

namespace test {
namespace {

class ResultsTest : public ScanTest {
 protected:
  ResultsTest() {
    form.ScanHasRun = true;
    form.cmdViewResultsScanComputerBrasmir.Enabled = true;
    File(gGarbageFiles, "C:\\Data\\a.tmp", 5);
    File(gGarbageFiles, "C:\\Data\\Logs\\b.LOG", 70);
    File(gGarbageFiles, "C:\\top", 3);
    File(gZeroByteFiles, "C:\\Data\\empty.txt", 0);
    File(gInvalidShortcuts, "C:\\Data\\x.lnk", 9);
  }
  void File(platform::CountedList& list, const std::string& path, std::size_t size) {
    computer.WriteFile(path, std::string(size, 'x'));
    std::size_t name = path.rfind('\\') + 1;
    if (list.UpperBound() % 2)
      list.AddIn(std::string_view(path).substr(0, name), std::string_view(path).substr(name));
    else
      list.Add(path);
  }
  std::string Info() const { return form.lblUserInfoResultsBrasmir[0].Caption; }
  Strings Items() const { return form.cboSelectResultsBrasmir.Items(); }

  const Strings kGarbage = {"C:\\Data\\a.tmp|5", "C:\\Data\\Logs\\b.LOG|70", "C:\\top|3"};
};

TEST_F(ResultsTest, OpensOnTheGarbageFilesWithSizesAsOfNow) {
  computer.WriteFile("C:\\Data\\a.tmp", "grown meanwhile");
  computer.Remove("C:\\top");
  Strings progress;
  computer.desktop.onBreathe = [&](long) {
    progress.push_back(Info());
    EXPECT_EQ(computer.desktop.pointer, platform::Pointer::Hourglass);
  };
  ASSERT_TRUE(form.UserClick(form.cmdViewResultsScanComputerBrasmir));
  EXPECT_EQ(form.CurrentPage(), &form.fraScanningResultsBrasmir);
  EXPECT_EQ(Rows(form.lvwFilesResultsBrasmir),
            Strings({"C:\\Data\\a.tmp|15", "C:\\Data\\Logs\\b.LOG|70", "C:\\top|0"}));
  EXPECT_EQ(form.lvwFilesResultsBrasmir.Text(2), "b.LOG");
  EXPECT_EQ(form.lvwFilesResultsBrasmir.SubItem(2, 1), "C:\\Data\\Logs\\");
  EXPECT_EQ(form.lvwFilesResultsBrasmir.SmallIcon(2), 2);
  EXPECT_EQ(progress, Strings({"Loading...0/2", "Loading...1/2", "Loading...2/2"}));
  EXPECT_EQ(Info(), "3 Garbage files");
  EXPECT_EQ(Items(), Strings({"Garbage files"}));
  EXPECT_EQ(computer.desktop.doEvents, 0);  // nothing but the stop control is let in

  // Opening it again loads the list again, without ticks.
  form.lvwFilesResultsBrasmir.CheckAll(true);
  form.cmdViewResultsScanComputerBrasmir.Click();
  EXPECT_FALSE(m_Results::IsSelectedFiles(form));
  EXPECT_EQ(form.lvwFilesResultsBrasmir.Count(), 3);
}

TEST_F(ResultsTest, TheComboBoxOffersWhatIsSwitchedOnAndLoadsIt) {
  gRegistry->IncludeZeroByteFilesBrsm = gRegistry->IncludeInvalidShortcutsBrsm = "1";
  form.cmdViewResultsScanComputerBrasmir.Click();
  EXPECT_EQ(Items(), Strings({"Garbage files", "Zero byte files", "Invalid shortcuts"}));
  form.UserPick(form.cboSelectResultsBrasmir, 1);
  EXPECT_EQ(Rows(form.lvwFilesResultsBrasmir), Strings({"C:\\Data\\empty.txt|0"}));
  EXPECT_EQ(Info(), "1 Zero byte files");
  form.UserPick(form.cboSelectResultsBrasmir, 2);
  EXPECT_EQ(Rows(form.lvwFilesResultsBrasmir), Strings({"C:\\Data\\x.lnk|9"}));
  EXPECT_EQ(Info(), "1 Invalid shortcuts");
  gInvalidShortcuts.Reset();
  form.UserPick(form.cboSelectResultsBrasmir, 2);
  EXPECT_EQ(Info(), "0 Invalid shortcuts");
  EXPECT_EQ(form.lvwFilesResultsBrasmir.Count(), 0);
}

TEST_F(ResultsTest, TheLabelsOfTheScanPageLeadToTheirCategory) {
  auto& page = form.fraScanningResultsBrasmir;
  form.ScanHasRun = false;
  for (int index : {4, 6, 7}) form.UserClick(form.lblViewResultsScanComputer[index]);
  EXPECT_EQ(Items(), Strings());
  EXPECT_NE(form.CurrentPage(), &page);

  form.ScanHasRun = true;
  form.UserClick(form.lblViewResultsScanComputer[4]);  // not switched on: refilled, but no page
  form.UserClick(form.lblViewResultsScanComputer[6]);
  EXPECT_EQ(Items(), Strings({"Garbage files"}));
  EXPECT_NE(form.CurrentPage(), &page);

  gRegistry->IncludeInvalidShortcutsBrsm = "1";
  form.UserClick(form.lblViewResultsScanComputer[6]);
  EXPECT_EQ(form.CurrentPage(), &page);
  EXPECT_EQ(form.cboSelectResultsBrasmir.ListIndex(), 1);
  EXPECT_EQ(Info(), "1 Invalid shortcuts");

  gRegistry->IncludeZeroByteFilesBrsm = "1";
  form.ShowPage(form.fraScanComputerBrasmir);
  form.UserClick(form.lblViewResultsScanComputer[4]);
  EXPECT_EQ(Info(), "1 Zero byte files");
  form.ShowPage(form.fraScanComputerBrasmir);
  form.UserClick(form.lblViewResultsScanComputer[7]);
  EXPECT_EQ(Info(), "3 Garbage files");
}

TEST_F(ResultsTest, TickingAndTheContextMenu) {
  form.ShowPage(form.fraScanningResultsBrasmir);
  form.UserMouseDown(form.lvwFilesResultsBrasmir, 0, controls::MouseButton::Right);
  EXPECT_EQ(computer.desktop.popups, Strings());  // nothing opens on an empty list
  form.cmdViewResultsScanComputerBrasmir.Click();
  form.UserClick(form.cmdSelectAllResultsBrasmir);
  EXPECT_EQ(form.lvwFilesResultsBrasmir.CheckedCount(), 3);
  EXPECT_TRUE(m_Results::IsSelectedFiles(form));
  form.UserClick(form.cmdUnselectAllResultsBrasmir);
  EXPECT_FALSE(m_Results::IsSelectedFiles(form));
  form.UserMouseDown(form.lvwFilesResultsBrasmir, 1, controls::MouseButton::Left);
  EXPECT_EQ(computer.desktop.popups, Strings());
  form.UserMouseDown(form.lvwFilesResultsBrasmir, 1, controls::MouseButton::Right);
  EXPECT_EQ(computer.desktop.popups, Strings({"frmMain.FileMenu"}));
}

TEST_F(ResultsTest, NarrowingKeepsFoldersThatHoldTheTextAndExtensionsThatStandInIt) {
  form.cmdViewResultsScanComputerBrasmir.Click();
  form.lvwFilesResultsBrasmir.CheckAll(true);
  computer.WriteFile("C:\\Data\\Logs\\b.LOG", "shorter");
  auto narrow = [&](const std::string& text) {
    form.txtSortResultsBrasmir.Text = text;
    form.UserClick(form.lblSortListResultsBrasmir);
    return Rows(form.lvwFilesResultsBrasmir);
  };
  // An extension that stands in the typed text; a file without one always stays.
  EXPECT_EQ(narrow("*.LOG;*.txt"), Strings({"C:\\Data\\Logs\\b.LOG|7", "C:\\top|3"}));
  EXPECT_EQ(Info(), "2 Files");
  // From what is left: the folder "C:\Data" of the first file has gone with it.
  EXPECT_EQ(narrow("data"), Strings({"C:\\Data\\Logs\\b.LOG|7", "C:\\top|3"}));
  EXPECT_EQ(narrow(""), Strings({"C:\\Data\\a.tmp|5", "C:\\Data\\Logs\\b.LOG|7", "C:\\top|3"}));
  EXPECT_EQ(Info(), "3 Garbage files");
  // The other way round it doesn't hold: "lo" stands in "LOG" and in the folder's name.
  Strings progress;
  computer.desktop.onBreathe = [&](long) { progress.push_back(Info()); };
  EXPECT_EQ(narrow("lo"), Strings({"C:\\Data\\Logs\\b.LOG|7", "C:\\top|3"}));
  EXPECT_EQ(progress, Strings({"1... Loaded", "2... Loaded", "3... Loaded"}));
  EXPECT_EQ(narrow("og"), Strings({"C:\\Data\\Logs\\b.LOG|7", "C:\\top|3"}));
  EXPECT_EQ(narrow("\\tmp"), Strings({"C:\\top|3"}));
  form.lvwFilesResultsBrasmir.Clear();
  EXPECT_EQ(narrow("x"), Strings());
  EXPECT_EQ(Info(), "0 Files");
  EXPECT_EQ(gGarbageFiles.UpperBound(), 3);  // the list itself is left alone
}

}  // namespace
}  // namespace test
