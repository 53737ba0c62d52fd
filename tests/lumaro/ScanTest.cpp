#include <cmath>

#include "LumaroFixture.h"
#include "lumaro/ScanComputerLmro.h"

namespace test {
namespace {

using Strings = std::vector<std::string>;

TEST_F(LumaroTest, ScanWithEverythingOffWalksAllStepsAndShowsNothing) {
  form.lblUserDefinedFoldersScanComputerLumaro.Caption = "9";
  form.UserClick(form.cmdScanComputerLumaro);

  EXPECT_EQ(Percents(), (Strings{"14%", "29%", "43%", "57%", "71%", "86%", "100%", "0%"}));
  EXPECT_EQ(form.prgScanComputerProgressLumaro.Max, 7.0);
  EXPECT_EQ(form.prgScanComputerProgressLumaro.Value, 0.0);
  for (int row : form.ImgProcessLumaro.Indices()) EXPECT_FALSE(form.ImgProcessLumaro[row].Visible);
  EXPECT_EQ(form.lblTempFolderScanComputerLumaro.Caption, "0");
  EXPECT_EQ(form.lblUserDefinedFoldersScanComputerLumaro.Caption, "0");
  EXPECT_EQ(form.lblTotalSizeScanComputerLumaro.Caption, "0 KB");
  EXPECT_TRUE(form.cmdCleanUpScanComputerLumaro.Enabled);
  EXPECT_TRUE(form.pictMainMenu.Enabled);
  EXPECT_FALSE(gAppRunning->AppRunning);
  EXPECT_EQ(desktop.pointers, (std::vector{platform::Pointer::Hourglass, platform::Pointer::Default}));
  EXPECT_EQ(desktop.doEvents, 0);
  EXPECT_TRUE(desktop.boxes.empty());
}

TEST_F(LumaroTest, ScanCountsEachPlaceAndAddsUpTheirSizes) {
  for (auto setting : {&c_Registry::ClearTemporaryInternetFilesLmro, &c_Registry::ClearCookiesLmro,
                       &c_Registry::ClearDownloadedProgramFilesLmro, &c_Registry::ClearOfflineFilesLmro,
                       &c_Registry::ClearRecentFolderLmro, &c_Registry::ClearTempFolderLmro})
    (*gRegistry).*setting = "1";
  const std::string kilobyte(1024, 'x');
  for (const char* key : {"http://a/", "http://b/", "http://c/"}) computer.AddCacheEntry(key);
  computer.WriteFile(Cache("Content.IE5\\AB\\x.gif"), kilobyte);
  computer.WriteFile(Cookies("index.dat"), kilobyte);
  computer.WriteFile(Cookies("me@shop[1].txt"), kilobyte);
  computer.WriteFile("C:\\Windows\\Downloaded Program Files\\a.ocx", kilobyte);
  computer.WriteFile("C:\\Windows\\Offline Web Pages\\deep\\down\\a.htm", kilobyte);
  computer.WriteFile(Recent("a.lnk"), kilobyte);
  computer.WriteFile(Temp("sub\\a.tmp"), kilobyte);
  computer.WriteFile(Temp("b.tmp"), std::string(512, 'x'));
  computer.WriteFile("C:\\Stuff\\one.txt", kilobyte);
  computer.WriteFile("C:\\Other\\two.txt", kilobyte);
  ShowFolder(Temp("sub"), true);
  ShowFolder("C:\\Stuff", true);
  ShowFolder("C:\\Other", false);
  double index = static_cast<double>(computer.ReadFile(Cache("entries.txt")).size());

  m_ScanComputer::ScanComputerLmro(form);

  EXPECT_EQ(form.lblTemporaryInternetFilesScanComputerLumaro.Caption, "3");
  EXPECT_EQ(form.lblCookiesScanComputerLumaro.Caption, "1");
  EXPECT_EQ(form.lblDownloadedProgramFilesScanComputerLumaro.Caption, "1");
  EXPECT_EQ(form.lblOfflineFilesScanComputerLumaro.Caption, "1");
  EXPECT_EQ(form.lblRecentFolderScanComputerLumaro.Caption, "1");
  EXPECT_EQ(form.lblTempFolderScanComputerLumaro.Caption, "2");
  EXPECT_EQ(form.lblUserDefinedFoldersScanComputerLumaro.Caption, "2");
  // Nine and a half, and the cache's own index. The folder inside Temp counts twice.
  double kilobytes = std::round((9.5 * 1024 + index) / 1024 * 100) / 100;
  EXPECT_EQ(std::stod(form.lblTotalSizeScanComputerLumaro.Caption.Get()), kilobytes);
  for (int row : form.ImgProcessLumaro.Indices()) {
    EXPECT_TRUE(form.ImgProcessLumaro[row].Visible);
    EXPECT_EQ(form.lblDirLumaro[row].ForeColor, 0u);
  }
  EXPECT_TRUE(computer.Exists(Temp("b.tmp")));
}

TEST_F(LumaroTest, ScanOfAnEmptyCookiesFolderShowsMinusOne) {
  gRegistry->ClearCookiesLmro = "1";
  m_ScanComputer::ScanComputerLmro(form);
  EXPECT_EQ(form.lblCookiesScanComputerLumaro.Caption, "-1");
}

TEST_F(LumaroTest, ScanTellsOfEachPlaceThatIsNotThereAndGoesOn) {
  for (auto setting : {&c_Registry::ClearTemporaryInternetFilesLmro, &c_Registry::ClearCookiesLmro,
                       &c_Registry::ClearDownloadedProgramFilesLmro, &c_Registry::ClearOfflineFilesLmro,
                       &c_Registry::ClearRecentFolderLmro, &c_Registry::ClearTempFolderLmro})
    (*gRegistry).*setting = "1";
  for (const std::string& folder : {Cache(), Cookies(), Recent(), Temp(), std::string("C:\\Windows")})
    computer.Remove(folder);
  form.cmdScanComputerLumaro.Click();
  auto box = [](const std::string& what) {
    return "critical|Path error...|Retrieving path to " + what +
           " returned with error\r\nThis path will not be scanned";
  };
  EXPECT_EQ(desktop.boxes, (Strings{box("Internet cache"), box("cookies"), box("downloaded program files"),
                                    box("offline web pages"), box("recent folder"), box("temp folder")}));
  EXPECT_EQ(form.lblTempFolderScanComputerLumaro.Caption, "0");
  EXPECT_EQ(form.lblDirLumaro[5].ForeColor, 0u);
  EXPECT_EQ(form.lblTotalSizeScanComputerLumaro.Caption, "0 KB");
}

TEST_F(LumaroTest, RowsOpenTheirPlaces) {
  for (int row = 0; row < 6; ++row) form.lblDirLumaro[row].Click();
  EXPECT_EQ(
      desktop.opened,
      (Strings{"folder " + Cache(), "folder " + Cookies(), "folder C:\\Windows\\Downloaded Program Files",
               "folder C:\\Windows\\Offline Web Pages", "folder " + Recent(), "folder " + Temp()}));
  desktop.openFolderResult = 1;
  form.lblDirLumaro[3].Click();
  EXPECT_EQ(desktop.boxes,
            (Strings{"critical|Open directory...|Open the directory C:\\Windows\\Offline Web Pages failed"}));
  form.lblDirLumaro[6].Click();
  EXPECT_EQ(form.CurrentPage(), &form.fraUserDefinedFoldersLumaro);
}

TEST_F(LumaroTest, SettingsInForceAreShown) {
  gRegistry->ClearCookiesLmro = "1";
  gRegistry->MoveFilesToRecyclebinLmro = "1";
  form.lblViewSettingsScanComputerLumaro.Click();
  std::string text =
      "information|Selected settings...|Selected settings: \r\nClear Temporary Internet Files: False\r\n"
      "Clear History: False\r\nClear Cookies: True\r\nClear Downloaded Program Files: False\r\n"
      "Clear Offline Files: False\r\nClear Index Dat Files: False\r\nClear Temp Folder: False\r\n"
      "Clear Recent Folder: False\r\nEmpty Recycle Bin: False\r\n\r\nCleaning method: ";
  EXPECT_EQ(desktop.boxes.back(), text + "Move files to recycle bin\r\nUse backup: False");
  gRegistry->DeleteFilesLmro = "1";
  form.lblViewSettingsScanComputerLumaro.Click();
  EXPECT_EQ(desktop.boxes.back(), text + "Delete files\r\nUse backup: False");
  gRegistry->DeleteFilesLmro = gRegistry->MoveFilesToRecyclebinLmro = "0";
  gRegistry->ErasePassesLmro = "7";
  gRegistry->UseBackupLmro = "1";
  form.lblViewSettingsScanComputerLumaro.Click();
  EXPECT_EQ(desktop.boxes.back(), text + "Erase files 7 times\r\nUse backup: True");
}

}  // namespace
}  // namespace test
