#include "LumaroFixture.h"
#include "lumaro/CleanFilesLmro.h"
#include "lumaro/ManageCookies.h"

namespace test {
namespace {

using namespace m_CleanFiles;

TEST_F(LumaroTest, TempCleanerRemovesWhatNoExclusionClaims) {
  Exclude("KEEP");
  ExcludeFile("note");
  computer.WriteFile(Temp("gone.tmp"), "12345");
  computer.WriteFile(Temp("sub\\deep\\gone.tmp"), "123");
  computer.WriteFiles({Temp("Beekeeper\\a.tmp"), Temp("sub\\My Notes.txt")});
  computer.MakeFolder(Temp("keep empty"));

  CleanTempFolderLmro(form, remover);

  EXPECT_EQ(computer.List(Temp()), (Strings{"Beekeeper", "keep empty", "sub"}));
  EXPECT_EQ(computer.List(Temp("sub")), (Strings{"My Notes.txt"}));
  EXPECT_EQ(computer.List(Temp("Beekeeper")), (Strings{"a.tmp"}));
  EXPECT_EQ(Counted(), "2 8");
  EXPECT_EQ(desktop.captions["lblTempFolderScanComputerLumaro"], (Strings{"3", "2", "1", "0"}));
  EXPECT_EQ(desktop.doEvents, 4);
  EXPECT_EQ(UserInfo(), "");
  EXPECT_TRUE(desktop.boxes.empty());
}

TEST_F(LumaroTest, ReadOnlyFilesStayByTheirWholeAttributeWord) {
  struct {
    const char* name;
    std::uint32_t attributes;
    bool stays;
  } files[] = {{"r", 1, true},   {"rh", 3, true},  {"ra", 33, true},  {"rha", 35, true},  {"rsa", 37, false},
               {"rs", 5, false}, {"a", 32, false}, {"ha", 34, false}, {"rhsa", 39, false}};
  for (auto& file : files) {
    computer.WriteFile(Temp(file.name));
    computer.SetAttributes(Temp(file.name), file.attributes);
  }
  gRegistry->skipReadOnlyfilesLmro = "1";
  CleanTempFolderLmro(form, remover);
  for (auto& file : files) EXPECT_EQ(computer.Exists(Temp(file.name)), file.stays) << file.name;

  gRegistry->skipReadOnlyfilesLmro = "0";
  CleanTempFolderLmro(form, remover);
  EXPECT_TRUE(computer.List(Temp()).empty());
}

TEST_F(LumaroTest, MethodIsTheFirstThatIsOn) {
  // What has a second name is deleted and moved, but not erased; only the bin keeps what it was given.
  struct {
    const char *recycle, *erase;
    bool stays, binned;
  } cases[] = {{"0", "1", true, false}, {"0", "0", false, false}, {"1", "1", false, true}};
  gRegistry->DeleteFilesLmro = "1";
  for (auto& each : cases) {
    computer.WriteFile(Temp("file"), "text");
    computer.MakeSecondName(Temp("file"), "C:\\second");
    gRegistry->MoveFilesToRecyclebinLmro = each.recycle;
    gRegistry->EraseFilesLmro = each.erase;
    CleanTempFolderLmro(form, remover);
    EXPECT_EQ(computer.Exists(Temp("file")), each.stays);
    EXPECT_EQ(computer.InBin() > 0, each.binned);
    EXPECT_EQ(UserInfo(), each.stays ? "Files are locked and can't be deleted." : "");
    computer.Remove("C:\\second");
    form.lblUserInfoScanComputerLumaro.Caption = "";
    // With one name alone it is erased.
    if (each.stays) CleanTempFolderLmro(form, remover);
    EXPECT_FALSE(computer.Exists(Temp("file")));
  }
  EXPECT_EQ(gCleaningStatus->FilesDeleted, 3);
}

TEST_F(LumaroTest, LockedFilesAreToldOnceOrLeftToTheBootTimeCleaner) {
  computer.WriteFile(Temp("a.tmp"), "123");
  computer.WriteFile(Temp("b.tmp"), "123");
  Hold a(computer.Native(Temp("a.tmp"))), b(computer.Native(Temp("b.tmp")));

  CleanTempFolderLmro(form, remover);
  EXPECT_EQ(UserInfo(), "Files are locked and can't be deleted.");
  EXPECT_EQ(LockedFiles(), "");

  form.lblUserInfoScanComputerLumaro.Caption = "";
  gRegistry->DeleteOnWindowsStartupLmro = "1";
  for (const char* recycle : {"0", "1"}) {
    gRegistry->MoveFilesToRecyclebinLmro = recycle;
    CleanTempFolderLmro(form, remover);
  }
  Strings lines = LinesOf(LockedFiles());
  std::sort(lines.begin(), lines.end());
  EXPECT_EQ(lines, (Strings{Temp("a.tmp"), Temp("a.tmp"), Temp("b.tmp"), Temp("b.tmp")}));
  EXPECT_EQ(UserInfo(), "");
  EXPECT_EQ(Counted(), "0 0");
  EXPECT_EQ(form.lblTempFolderScanComputerLumaro.Caption, "0");
}

TEST_F(LumaroTest, FailedFileIsSilentInRecentAndCountedInAFolderOfTheUser) {
  computer.WriteFile(Recent("a.lnk"), "123");
  computer.WriteFile("C:\\Stuff\\b.txt", "1234");
  StoreFolder("C:\\Stuff", "True");
  Hold a(computer.Native(Recent("a.lnk"))), b(computer.Native("C:\\Stuff\\b.txt"));

  CleanRecentFolderLmro(form, remover);
  EXPECT_EQ(UserInfo(), "");
  EXPECT_EQ(gCleaningStatus->FilesDeleted, 0);

  CleanUserDefinedFoldersLmro(form, remover);
  EXPECT_EQ(UserInfo(), "");
  EXPECT_EQ(Counted(), "1 4");

  gRegistry->DeleteOnWindowsStartupLmro = "1";
  CleanUserDefinedFoldersLmro(form, remover);
  EXPECT_EQ(gCleaningStatus->FilesDeleted, 1);
  EXPECT_EQ(LockedFiles(), "C:\\Stuff\\b.txt\r\n");
}

TEST_F(LumaroTest, StopLeavesTheLoopBeforeTheNextFileButNotInRecent) {
  for (char name = 'a'; name <= 'e'; ++name) {
    computer.WriteFile(Temp(std::string(1, name)));
    computer.WriteFile(Recent(std::string(1, name)));
  }
  computer.MakeFolder(Temp("empty"));
  desktop.onDoEvents = [](long count) {
    if (count == 3) gAppRunning->StopProcess = true;
  };
  CleanTempFolderLmro(form, remover);
  EXPECT_EQ(computer.List(Temp()).size(), 3u);
  EXPECT_FALSE(computer.Exists(Temp("empty")));
  EXPECT_EQ(form.lblTempFolderScanComputerLumaro.Caption, "3");

  CleanRecentFolderLmro(form, remover);
  EXPECT_TRUE(computer.List(Recent()).empty());
  EXPECT_EQ(desktop.doEvents, 3 + 5);
}

TEST_F(LumaroTest, ListsPulledAwayInTheYieldDoNotReachTheCleaner) {
  computer.WriteFiles({Temp("sub\\a.tmp"), Temp("sub\\b.tmp"), "C:\\Mine\\letter.txt"});
  computer.MakeFolder("C:\\Mine\\empty");
  desktop.onDoEvents = [](long) {
    gFiles.Reset();
    gFolders.Reset();
    gFiles.Add("C:\\Mine\\letter.txt");
    gFolders.Add("C:\\Mine\\empty");
  };
  CleanTempFolderLmro(form, remover);
  EXPECT_TRUE(computer.List(Temp()).empty());
  EXPECT_EQ(computer.List("C:\\Mine"), (Strings{"empty", "letter.txt"}));
  EXPECT_EQ(gFiles.UpperBound(), 2);
}

TEST_F(LumaroTest, LinksGoAsLinksAndNothingBehindThemIsTouched) {
  computer.WriteFile("C:\\Mine\\deep\\letter.txt", "dear");
  computer.MakeFolder("C:\\Stuff");
  StoreFolder("C:\\Stuff", "True");
  StoreFolder("C:\\Way in", "True");
  computer.MakeLink("C:\\Way in", "C:\\Mine");
  for (const std::string& folder : {Temp(), std::string("C:\\Stuff")}) {
    computer.MakeLink(folder + "\\folder link", "C:\\Mine");
    computer.MakeLink(folder + "\\sub\\file link", "C:\\Mine\\deep\\letter.txt");
    computer.MakeLink(folder + "\\dead link", "C:\\Nowhere");
  }
  CleanTempFolderLmro(form, remover);
  CleanUserDefinedFoldersLmro(form, remover);
  EXPECT_TRUE(computer.List(Temp()).empty());
  EXPECT_TRUE(computer.List("C:\\Stuff").empty());
  EXPECT_TRUE(computer.IsLink("C:\\Way in"));
  EXPECT_EQ(computer.ReadFile("C:\\Mine\\deep\\letter.txt"), "dear");
  // A link to a folder is a folder and isn't counted; no link has a size.
  EXPECT_EQ(Counted(), "4 0");
}

TEST_F(LumaroTest, UserDefinedFoldersComeFromTheStoreInOnePass) {
  computer.WriteFiles({"C:\\One\\sub\\a.txt", "C:\\Two\\b.txt", "C:\\Three\\c.txt"});
  StoreFolder("C:\\Three", "False");
  // What only the screen holds isn't cleared.
  ShowFolder("C:\\Three", true);
  for (const char* ticked : {"C:\\One", "C:\\Two", "C:\\", "C:\\Windows", "relative"})
    StoreFolder(ticked, "True");

  CleanUserDefinedFoldersLmro(form, remover);
  EXPECT_EQ(desktop.captions["lblUserDefinedFoldersScanComputerLumaro"], (Strings{"1", "0"}));
  const Strings kept = {"C:\\One", "C:\\Three\\c.txt", "C:\\Windows\\System32"};
  EXPECT_EQ(computer.Left(kept), kept);
  EXPECT_TRUE(computer.List("C:\\One").empty() && computer.List("C:\\Two").empty());
}

TEST_F(LumaroTest, FolderWithoutItsTickInTheStoreEndsTheCleanerUntouched) {
  computer.WriteFile("C:\\One\\a.txt");
  StoreFolder("C:\\One", "True");
  StoreFolder("C:\\Two", "");
  CleanUserDefinedFoldersLmro(form, remover);
  EXPECT_TRUE(computer.Exists("C:\\One\\a.txt"));
  EXPECT_EQ(desktop.boxes, (Strings{Report("m_CleanFiles", "CleanUserDefinedFoldersLmro",
                                           "Arguments: frmMain ", "Type mismatch", 13)}));
}

TEST_F(LumaroTest, PrefetchCleanerTakesOnlySmallPf) {
  Exclude("\\BOOT");
  const std::string prefetch = "C:\\Windows\\Prefetch\\";
  for (const char* name : {"A.EXE-1.pf", "X.PF", "boot.pf", "layout.ini", "empty.pf\\x.txt"})
    computer.WriteFile(prefetch + name);
  CleanXPPrefetchFolderLmro(form, remover);
  EXPECT_EQ(computer.List(prefetch), (Strings{"X.PF", "boot.pf", "empty.pf", "layout.ini"}));
  EXPECT_TRUE(computer.List(prefetch + "empty.pf").empty());
  EXPECT_EQ(gCleaningStatus->FilesDeleted, 2);
}

TEST_F(LumaroTest, CookieCleanerKeepsTheListedOnesAndDataFiles) {
  Exclude("INetCookies");
  gRegistry->skipReadOnlyfilesLmro = "1";
  for (const char* name : {"me@a[1].txt", "me@b[1].txt", "me@c[1].txt", "INDEX.DAT", "x.Data"})
    computer.WriteFile(Cookies(name));
  computer.SetAttributes(Cookies("me@c[1].txt"), 33);
  std::string otherCase = Cookies("me@b[1].txt");
  otherCase[otherCase.size() - 1] = 'T';
  KeepCookies({Cookies("me@a[1].txt"), otherCase});

  CleanCookieFilesLmro(form, remover);
  EXPECT_EQ(computer.List(Cookies()), (Strings{"INDEX.DAT", "me@a[1].txt", "x.Data"}));
  EXPECT_EQ(form.lblCookiesScanComputerLumaro.Caption, "0");
  EXPECT_EQ(gCleaningStatus->FilesDeleted, 2);
}

TEST_F(LumaroTest, CookiesStayWhereTheListOfThoseToKeepCannotBeRead) {
  computer.WriteFile(Cookies("me@a[1].txt"));
  computer.MakeLink(Install("Cookies.txt"), Install("Nowhere.txt"));
  CleanCookieFilesLmro(form, remover);
  EXPECT_TRUE(computer.Exists(Cookies("me@a[1].txt")));
  EXPECT_EQ(desktop.CountBoxes("Procedure: LoadExcludedCookies "), 1);
}

TEST_F(LumaroTest, CookiesStayWhereTheListOfThoseToKeepBreaksOffMidway) {
  const std::string kept = "Cookie:me@kept/", far = "Cookie:me@far/";
  for (const char* host : {"kept", "far"}) computer.WriteFile(Cookies(std::string("me@") + host + "[1].txt"));
  Strings lines = {Cookies("me@kept[1].txt")};
  lines.resize(4000, Cookies("me@gone[1].txt"));
  lines.push_back(Cookies("me@far[1].txt"));
  KeepCookies(lines);
  std::string before = computer.ReadFile(Install("Cookies.txt"));
  for (const std::string& entry : {kept, far}) computer.AddCacheEntry(entry);
  gRegistry->ClearCookiesLmro = "1";
  {
    WatchedFiles broken(computer.Machine());
    broken.onRead = BreaksFrom(Install("Cookies.txt"), 64 * 1024);
    CleanCookieFilesLmro(form, remover);
    CleanTemporaryInternetFilesLmro(form, remover);
    EXPECT_EQ(gExcludedCookies.UpperBound(), 0);
    // The manager takes none of them for one to be deleted, as its closing writes the list anew.
    lumaro::CookieManager& window = lumaro::ManageCookies().Get();
    EXPECT_EQ(window.lvwCookies.Count(), 2);
    EXPECT_EQ(window.lvwCookies.CheckedCount(), 0);
    core::CloseForm(window);
  }
  EXPECT_EQ(desktop.CountBoxes("Procedure: LoadExcludedCookies "), 3);
  EXPECT_EQ(computer.List(Cookies()), (Strings{"me@far[1].txt", "me@kept[1].txt"}));
  EXPECT_EQ(computer.CacheKeys(), (Strings{kept, far}));
  EXPECT_NE(computer.ReadFile(Install("Cookies.txt")), before);

  CleanCookieFilesLmro(form, remover);
  CleanTemporaryInternetFilesLmro(form, remover);
  EXPECT_EQ(computer.List(Cookies()), (Strings{"me@far[1].txt", "me@kept[1].txt"}));
  EXPECT_EQ(computer.CacheKeys(), (Strings{kept, far}));
}

TEST_F(LumaroTest, EachCleanerTellsThatItsPlaceIsNotThere) {
  for (const std::string& folder :
       {Cache(), Cookies(), History(), Recent(), Temp(), std::string("C:\\Windows")})
    computer.Remove(folder);
  struct {
    void (*clean)(frmMain&, removal::Remover&);
    const char* lines;
  } cleaners[] = {
      {CleanTemporaryInternetFilesLmro,
       "Retrieving path to Internet cache returned with error\r\nInternet cache will not be deleted"},
      {CleanCookieFilesLmro, "Retrieving path to cookies returned with error\r\nCookies will not be deleted"},
      {CleanDownloadedProgramFilesLmro,
       "Retrieving path to downloaded program files returned with error\r\n"
       "Downloaded program files will not be deleted"},
      {CleanOfflineFilesLmro,
       "Retrieving path to offline web pages returned with error\r\nOffline files will not be deleted"},
      {CleanRecentFolderLmro,
       "Retrieving path to recent directory returned with error\r\nFiles in recent directory will not be "
       "deleted"},
      {CleanTempFolderLmro,
       "Retrieving path to Temp directory returned with error\r\nFiles in temp directory will not be "
       "deleted"},
      {CleanXPPrefetchFolderLmro,
       "Retrieving path to Prefetch directory returned with error\r\nFiles in Prefetch will not be deleted"},
      {CleanHistoryLmro,
       "Retrieving path to history returned with error\r\nClearing history will not be performed"},
      {ClearIndexDatFiles,
       "Retrieving path to index dat files returned with error\r\nClearing index dat files will not be "
       "performed"},
  };
  for (auto& cleaner : cleaners) {
    desktop.boxes.clear();
    cleaner.clean(form, remover);
    EXPECT_EQ(desktop.boxes, (Strings{std::string("critical|Path error...|") + cleaner.lines}));
  }
  for (int row : form.lblDirLumaro.Indices()) EXPECT_EQ(form.lblDirLumaro[row].ForeColor, 0u);
  EXPECT_EQ(gCleaningStatus->FilesDeleted, 0);
}

}  // namespace
}  // namespace test
