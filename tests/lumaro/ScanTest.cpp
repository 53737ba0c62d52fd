#include <cmath>

#include "LumaroFixture.h"
#include "lumaro/ScanComputerLmro.h"

namespace test {
namespace {

TEST_F(LumaroTest, ScanCountsEachPlaceAndAddsUpTheirSizes) {
  TurnPlacesOn();
  const std::string kilobyte(1024, 'x');
  for (const char* key : {"http://a/", "http://b/", "http://c/"}) computer.AddCacheEntry(key);
  const Strings windows = {"C:\\Windows\\Downloaded Program Files\\a.ocx",
                           "C:\\Windows\\Offline Web Pages\\deep\\down\\a.htm"};
  for (const Strings& files :
       {windows, Strings{Cache("Content.IE5\\AB\\x.gif"), Cookies("index.dat"), Cookies("me@shop[1].txt"),
                         Recent("a.lnk"), Temp("sub\\a.tmp"), "C:\\Stuff\\one.txt", "C:\\Other\\two.txt"}})
    for (const std::string& file : files) computer.WriteFile(file, kilobyte);
  computer.WriteFile(Temp("b.tmp"), std::string(512, 'x'));
  ShowFolder(Temp("sub"), true);
  ShowFolder("C:\\Stuff", true);
  ShowFolder("C:\\Other", false);
  double index = static_cast<double>(computer.ReadFile(Cache("entries.txt")).size());

  m_ScanComputer::ScanComputerLmro(form);

  std::string counts;
  for (const controls::Label* label :
       {&form.lblTemporaryInternetFilesScanComputerLumaro, &form.lblCookiesScanComputerLumaro,
        &form.lblDownloadedProgramFilesScanComputerLumaro, &form.lblOfflineFilesScanComputerLumaro,
        &form.lblRecentFolderScanComputerLumaro, &form.lblTempFolderScanComputerLumaro,
        &form.lblUserDefinedFoldersScanComputerLumaro})
    counts += label->Caption.Get();
  EXPECT_EQ(counts, "3111122");
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
  TurnPlacesOn();
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
  const std::string text =
      "information|Selected settings...|Selected settings: \r\nClear Temporary Internet Files: False\r\n"
      "Clear History: False\r\nClear Cookies: True\r\nClear Downloaded Program Files: False\r\n"
      "Clear Offline Files: False\r\nClear Index Dat Files: False\r\nClear Temp Folder: False\r\n"
      "Clear Recent Folder: False\r\nEmpty Recycle Bin: False\r\n\r\nCleaning method: ";
  gRegistry->ErasePassesLmro = "7";
  for (auto [recycle, remove, backup, shown] :
       {std::tuple{"1", "0", "0", "Move files to recycle bin\r\nUse backup: False"},
        {"1", "1", "0", "Delete files\r\nUse backup: False"},
        {"0", "0", "1", "Erase files 7 times\r\nUse backup: True"}}) {
    gRegistry->MoveFilesToRecyclebinLmro = recycle;
    gRegistry->DeleteFilesLmro = remove;
    gRegistry->UseBackupLmro = backup;
    form.lblViewSettingsScanComputerLumaro.Click();
    EXPECT_EQ(desktop.boxes.back(), text + shown);
  }
}

}  // namespace
}  // namespace test
