// Where the system empties its bin in one step there is nothing to stop.
#include "LumaroFixture.h"

namespace test {
namespace {

TEST_F(LumaroTest, StopIsLetInWhileTheBinIsEmptied) {
  gRegistry->EmptyRecycleBinLmro = gRegistry->ClearTempFolderLmro = gRegistry->MoveFilesToRecyclebinLmro =
      "1";
  for (char name = 'a'; name <= 'd'; ++name) computer.WriteFile(Temp(std::string(1, name)));
  form.cmdCleanUpScanComputerLumaro.Enabled = true;
  bool full = false;
  desktop.onBreathe = [&](long) {
    full = full || computer.InBin() == 4;
    if (full && computer.InBin() == 2) form.UserClick(form.cmdCleanUpScanComputerLumaro);
  };
  form.cmdCleanUpScanComputerLumaro.Click();
  EXPECT_TRUE(gAppRunning->StopProcess);
  EXPECT_EQ(computer.InBin(), 2);
}

}  // namespace
}  // namespace test
