#include <algorithm>

#include "LumaroFixture.h"
#include "lumaro/CleanFilesLmro.h"
#include "lumaro/FirefoxProfile.h"

namespace test {
namespace {

using namespace m_CleanFiles;

TEST_F(LumaroTest, CacheEntriesOfCookiesStayByTheFourCases) {
  const std::string cookie = "Cookie:me@www.SHOP.example/";
  struct {
    const char* clearCookies;
    Strings keep;
    bool stays;
  } cases[] = {
      {"1", {}, false},
      {"1", {"C:\\x\\me@other[1].txt"}, false},
      {"1", {"C:\\x\\me@shop[1].txt"}, true},
      {"0", {}, true},
      {"0", {"C:\\x\\me@other[1].txt"}, false},
      {"0", {"C:\\x\\me@other[1].txt", "C:\\x\\me@shop[1].txt"}, true},
      // Lines that name no host protect nothing; one of an empty host protects all.
      {"1", {"me at shop[1].txt", "me@shop.txt", "[1]me@shop"}, false},
      {"1", {"me@[1].txt"}, true},
  };
  for (auto& one : cases) {
    computer.AddCacheEntry(cookie);
    computer.AddCacheEntry("http://www.shop.example/logo.png");
    computer.Remove(Install("Cookies.txt"));
    if (!one.keep.empty()) KeepCookies(one.keep);
    gRegistry->ClearCookiesLmro = one.clearCookies;
    gCleaningStatus->FilesDeleted = 0;
    CleanTemporaryInternetFilesLmro(form, remover);
    Strings left = computer.CacheKeys();
    EXPECT_EQ(left, one.stays ? Strings{cookie} : Strings{}) << one.clearCookies << one.keep.size();
    EXPECT_EQ(gCleaningStatus->FilesDeleted, one.stays ? 1 : 2);
    EXPECT_EQ(form.lblTemporaryInternetFilesScanComputerLumaro.Caption, "0");
    computer.Remove(Cache("entries.txt"));
  }
}

TEST_F(LumaroTest, StoppedCacheCleanerStillRemovesTheFoldersAndCountsTheWholeSize) {
  Exclude("keep");
  for (const char* key : {"http://a/", "http://b/", "http://c/"}) computer.AddCacheEntry(key);
  computer.WriteFile(Cache("Content.IE5\\AB12\\sub\\x.gif"), std::string(1000, 'x'));
  computer.WriteFile(Cache("Content.IE5\\Keeper\\x.gif"));
  computer.WriteFile(Cache("Content.IE5\\loose.gif"));
  computer.WriteFile("C:\\Mine\\letter.txt");
  computer.MakeLink(Cache("Content.IE5\\way out"), "C:\\Mine");
  desktop.onDoEvents = [](long count) {
    gFolders.Add("C:\\Mine");
    if (count == 2) gAppRunning->StopProcess = true;
  };
  CleanTemporaryInternetFilesLmro(form, remover);
  EXPECT_EQ(computer.CacheKeys().size(), 2u);
  EXPECT_EQ(gCleaningStatus->FilesDeleted, 1);
  EXPECT_GT(gCleaningStatus->SizeFreedUp, 1000);
  EXPECT_EQ(computer.List(Cache("Content.IE5")), (Strings{"Keeper", "loose.gif"}));
  EXPECT_TRUE(computer.Exists("C:\\Mine\\letter.txt"));
}

TEST_F(LumaroTest, HistoryLosesOnlyWhatItsIndexesHold) {
  computer.WriteFiles(
      {History("Index.Dat"), History("week\\old index.dat.bak"), History("deep\\index.dat\\visit.url")});
  CleanHistoryLmro(form, remover);
  EXPECT_EQ(computer.ReadFile(History("Index.Dat")), "");
  EXPECT_EQ(computer.ReadFile(History("week\\old index.dat.bak")), "");
  EXPECT_EQ(computer.ReadFile(History("deep\\index.dat\\visit.url")), "content");
  EXPECT_EQ(gCleaningStatus->FilesDeleted, 0);
}

TEST_F(LumaroTest, IndexDatFilesThatAreHeldWaitForTheBoot) {
  computer.WriteFiles({Cookies("index.dat"), History("index.dat"), Cache("index.dat")});
  gRegistry->ClearCookiesLmro = "1";
  gRegistry->ClearHistoryLmro = "1";
  form.lblUserInfoScanComputerLumaro.Caption = "Recycle Bin is cleared...";
  Hold held(computer.Native(Cookies("index.dat")));

  ClearIndexDatFiles(form, remover);
  EXPECT_EQ(computer.ReadFile(History("index.dat")), "");
  EXPECT_EQ(computer.ReadFile(Cookies("index.dat")), "content");
  EXPECT_EQ(computer.ReadFile(Cache("index.dat")), "content") << "its setting is off";
  EXPECT_EQ(IndexFiles(), Cookies("index.dat") + "\r\n");
  EXPECT_EQ(UserInfo(), "Locked files to be cleared on next Windows boot.");
  EXPECT_TRUE(form.lblRebootScanComputerLumaro.Visible);
  EXPECT_TRUE(form.imgUser[forms::RebootMark].Visible);
}

TEST(FirefoxFolderTest, CacheIsJudgedBehindTheProfileAlone) {
  using lumaro::FirefoxFolder, lumaro::JudgeFirefoxFolder;
  const std::string profiles = "C:\\Users\\Cachet\\AppData\\Roaming\\Mozilla\\Firefox\\Profiles\\";
  const std::pair<std::string, FirefoxFolder> folders[] = {
      {"ab.default", FirefoxFolder::OfProfile},
      {"Cache.default", FirefoxFolder::OfProfile},
      {"ab.default\\bookmarks", FirefoxFolder::OfProfile},
      {"ab.Default\\OfflineCACHE\\0", FirefoxFolder::Cache},
      {"ab.work\\Cache", FirefoxFolder::Other},
      {"ab.default\\Cache copy\\Mozilla\\Firefox\\Profiles\\cd.default", FirefoxFolder::OfProfile}};
  for (const auto& [folder, kind] : folders) EXPECT_EQ(JudgeFirefoxFolder(profiles + folder), kind) << folder;
  EXPECT_EQ(JudgeFirefoxFolder("C:\\ab.default\\Mozilla\\Firefox\\Profiles"), FirefoxFolder::Other);
}

TEST_F(LumaroTest, FirefoxLosesItsCachesCookiesAndHistory) {
  const std::string profiles = Roaming("Mozilla\\Firefox\\Profiles\\");
  for (const char* name :
       {"ab.default\\cookies.txt", "ab.default\\history.dat", "ab.default\\bookmarks.html",
        "ab.default\\Cache\\0\\data", "ab.default\\OfflineCache\\index", "ab.default\\old\\history.dat",
        "cd.default\\history.dat", "ef.work\\cookies.txt", "ef.work\\Cache\\data"})
    computer.WriteFile(profiles + name);
  computer.WriteFiles({"C:\\Mine\\cookies.txt", "C:\\Mine\\Cache\\data", "C:\\Mine\\history.dat"});
  for (const char* link : {"ab.default\\Cache link", "ab.default\\mine", "gh.default"})
    computer.MakeLink(profiles + link, "C:\\Mine");
  gAppRunning->StopProcess = true;  // isn't asked

  CleanFirefoxBrowserCacheLmro(form, remover);
  EXPECT_EQ(computer.List(profiles + "ab.default"), (Strings{"bookmarks.html", "mine", "old"}));
  EXPECT_TRUE(computer.Exists(profiles + "ab.default\\old\\history.dat")) << "no cookies lie beside it";
  EXPECT_TRUE(computer.Exists(profiles + "cd.default\\history.dat"));
  EXPECT_EQ(computer.List(profiles + "ef.work"), (Strings{"Cache", "cookies.txt"}));
  EXPECT_EQ(computer.List("C:\\Mine"), (Strings{"Cache", "cookies.txt", "history.dat"}));
  EXPECT_TRUE(computer.Exists("C:\\Mine\\Cache\\data"));
  EXPECT_TRUE(computer.IsLink(profiles + "gh.default"));
  EXPECT_EQ(gCleaningStatus->FilesDeleted, 0);

  computer.Remove(Roaming(""));
  CleanFirefoxBrowserCacheLmro(form, remover);
  EXPECT_TRUE(desktop.boxes.empty());
}

TEST_F(LumaroTest, EmptiedBinIsToldWhereNothingElseIs) {
  computer.WriteFile(Temp("a.tmp"));
  gRegistry->MoveFilesToRecyclebinLmro = "1";
  CleanTempFolderLmro(form, remover);
  EmptyRecycleBinLmro(form, remover);
  EXPECT_EQ(UserInfo(), "Recycle Bin is cleared...");
  EXPECT_EQ(gCleaningStatus->FilesDeleted, 1);
  form.lblUserInfoScanComputerLumaro.Caption = "Files are locked and can't be deleted.";
  EmptyRecycleBinLmro(form, remover);
  EXPECT_EQ(UserInfo(), "Files are locked and can't be deleted.");
}

}  // namespace
}  // namespace test
