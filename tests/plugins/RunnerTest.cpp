// Carrying out plug-in files: what goes, what stays, what is counted, and how a bad file ends.
#include "plugins/PlugInFixture.h"
#include "plugins/PlugInRules.h"

using test::PlugInTest;
using test::Rules;
using test::TestComputer;

TEST_F(PlugInTest, CarriesOutEveryKindOfRule) {
  const test::Strings files = {"C:\\Windows\\oldview.ini",
                               "C:\\Old Viewer\\Thumbs\\a.tmp",
                               "C:\\Old Viewer\\Thumbs\\deeper\\b.tmp",
                               "C:\\Program Files\\Old Viewer\\Cache\\c.tmp",
                               "C:\\Program Files\\Old Viewer\\Cache\\deeper\\d.tmp",
                               "C:\\Windows\\Old Viewer\\Logs\\e.log"};
  computer.WriteFiles(files);
  computer.SetValue("Software\\Old Viewer\\Recent", "a", "1");
  computer.SetValue("Software\\Old Viewer\\Recent\\Deeper", "a", "1");
  computer.SetValue("Software\\Old Viewer", "LastFile", "x");
  computer.SetValue("Software\\Old Viewer", "Other", "x");
  computer.SetValue(platform::kLocalMachine, "Software\\Old Viewer\\Settings", "one", "1");
  computer.SetValue(platform::kLocalMachine, "Software\\Old Viewer\\Settings", "two", "2");

  Run({{"Single File|%WINDIR%\\oldview.ini", "Single File|C:\\not there.tmp",
        "All Files|C:\\Old Viewer\\Thumbs", "All Files/Sub|%ProgramFiles%\\Old Viewer\\Cache",
        "Every File|C:\\Old Viewer\\Thumbs\\deeper"},
       {"%SystemRoot%\\Old Viewer\\Logs"},
       {"HKEY_CURRENT_USER|Software\\Old Viewer\\Recent", "hkey_current_user|Software\\Old Viewer",
        "HKEY_NOWHERE|Software\\Old Viewer"},
       {"Single Value|HKEY_CURRENT_USER|Software\\Old Viewer|LastFile",
        "All Values|HKEY_LOCAL_MACHINE|Software\\Old Viewer\\Settings",
        "All Values|HKEY_NOWHERE|Software\\Old Viewer"}});

  EXPECT_EQ(computer.Left(files), test::Strings{"C:\\Old Viewer\\Thumbs\\deeper\\b.tmp"});
  EXPECT_TRUE(computer.Exists("C:\\Program Files\\Old Viewer\\Cache\\deeper"));
  EXPECT_FALSE(computer.Exists("C:\\Windows\\Old Viewer\\Logs"));
  EXPECT_TRUE(computer.Exists("C:\\Windows\\Old Viewer"));
  EXPECT_FALSE(computer.HasValue("Software\\Old Viewer\\Recent\\Deeper", "a"));
  EXPECT_FALSE(computer.HasValue("Software\\Old Viewer", "LastFile"));
  EXPECT_TRUE(computer.HasValue("Software\\Old Viewer", "Other"));
  EXPECT_EQ(computer.GetValue(platform::kLocalMachine, "Software\\Old Viewer\\Settings", "two"), "");
  EXPECT_TRUE(computer.Registry().KeyExists(platform::kLocalMachine, "Software\\Old Viewer\\Settings"));

  EXPECT_EQ(form.lblFilesDeletedPlugIn.Caption.Get() + form.lblFoldersDeletedPlugIn.Caption.Get() +
                form.lblKeysDeletedPlugIn.Caption.Get() + form.lblValuesDeletedPlugIn.Caption.Get(),
            "5113");
  EXPECT_EQ(form.lblUserInfoPlugIn.Caption, "All selected Plug-Ins was successfully executed");
  EXPECT_EQ(form.lblStatusPlugIns.Caption, "Select Plug-Ins to Execute...");
  EXPECT_EQ(form.lvwPlugInLists.CheckedCount(), 0);
  EXPECT_FALSE(gAppRunning->AppRunning);
  EXPECT_FALSE(form.prgProgressPlugIns.Visible);
  EXPECT_EQ(Reports(), 0);
  EXPECT_TRUE(computer.desktop.unexpected.empty());
}

TEST_F(PlugInTest, RefusesWhatNoRuleMayRemove) {
  const test::Strings files = {"C:\\Windows\\explorer.exe", "C:\\Users\\User\\Documents\\letter.txt",
                               "C:\\boot.ini", "C:\\Data\\kept.txt"};
  computer.WriteFiles(files);
  computer.MakeLink("C:\\Junction", "C:\\Data");
  computer.SetValue("Software\\Kept", "a", "1");

  Run({{"All Files|C:\\", "All Files/Sub|C:\\", "All Files/Sub|%windir%", "All Files|%windir%",
        "All Files/Sub|C:\\Users\\User", "All Files/Sub|Windows", "All Files/Sub|",
        "Single File|C:\\Junction\\kept.txt", "All Files/Sub|C:\\Junction",
        "Single File|C:\\Data\\..\\Data\\kept.txt"},
       {"C:\\", "%windir%", "%ProgramFiles%", "C:\\Users", "C:\\Users\\User", "C:\\WINDOWS\\", "Data",
        "C:\\Data\\.", TestComputer::InstallDirectory()},
       {"HKEY_CURRENT_USER|", "HKEY_CURRENT_USER|Software", "HKEY_CURRENT_USER|Software\\"},
       {"All Values|HKEY_CURRENT_USER|", "All Values|HKEY_CURRENT_USER|Software"}});

  EXPECT_EQ(computer.Left(files), files);
  EXPECT_TRUE(computer.Exists(PlugInPath("Viewers", "Old Viewer")));
  EXPECT_TRUE(computer.HasValue("Software\\Kept", "a"));
  EXPECT_EQ(Reports(), 0);
}

TEST_F(PlugInTest, ALinkInAFolderRuleGoesAsALink) {
  computer.WriteFile("C:\\Kept\\kept.txt");
  computer.WriteFile("C:\\Trash\\a.tmp");
  computer.MakeLink("C:\\Trash\\way out", "C:\\Kept");
  Run({{}, {"C:\\Trash"}, {}, {}});
  EXPECT_FALSE(computer.Exists("C:\\Trash"));
  EXPECT_TRUE(computer.Exists("C:\\Kept\\kept.txt"));
}

TEST_F(PlugInTest, SectionsEndAtAnEmptyLineAndMarksAppear) {
  computer.WriteFile("C:\\stays.tmp");
  // No rule at all, and nothing behind the last head: its mark stays hidden.
  std::string text = FileText("Viewers", "Old Viewer", {});
  RunText(text);
  EXPECT_EQ(Reports(), 0);
  EXPECT_TRUE(form.imgProcessPlugIns[0].Visible);
  EXPECT_TRUE(form.imgProcessPlugIns[2].Visible);
  EXPECT_FALSE(form.imgProcessPlugIns[3].Visible);

  // An empty line too many is taken for the last head, and ends the file in silence.
  std::string spread = FileText("Viewers", "Old Viewer",
                                {{}, {}, {}, {"Single Value|HKEY_CURRENT_USER|Software\\Old Viewer|kept"}});
  spread.insert(spread.rfind("[Registry Value"), "\r\n");
  computer.SetValue("Software\\Old Viewer", "kept", "1");
  RunText(spread);
  EXPECT_EQ(Reports(), 0);
  EXPECT_TRUE(computer.HasValue("Software\\Old Viewer", "kept"));
  EXPECT_FALSE(form.imgProcessPlugIns[3].Visible);

  // What stands behind an empty line of the last section isn't carried out.
  computer.SetValue("Software\\Old Viewer", "kept", "1");
  RunText(text + "\r\nSingle Value|HKEY_CURRENT_USER|Software\\Old Viewer|kept\r\n");
  EXPECT_TRUE(computer.HasValue("Software\\Old Viewer", "kept"));
  EXPECT_TRUE(form.imgProcessPlugIns[3].Visible);
}

TEST_F(PlugInTest, ABadFileEndsWithItsOwnReportAndTheRunGoesOn) {
  computer.WriteFiles({"C:\\first.tmp", "C:\\second.tmp"});
  computer.WriteFile(PlugInPath("Zeta", "Good"),
                     FileText("Zeta", "Good", {{"Single File|C:\\second.tmp"}, {}, {}, {}}));
  Run({{"Single File|C:\\first.tmp", "no separator"}, {}, {}, {}});
  EXPECT_TRUE(computer.Left({"C:\\first.tmp", "C:\\second.tmp"}).empty());
  EXPECT_EQ(computer.desktop.boxes.at(1),
            test::Report("m_PlugIns", "RunPlugInFile",
                         "Arguments: sPlugInCategory = Value Viewers\\\r\n"
                         "Arguments: sPlugInName = Value Old Viewer",
                         "Plug-In File not configured correctly\r\n"
                         "Look over the configuration of the Plug-In File and try again.",
                         5));
  EXPECT_EQ(form.lvwPlugInLists.CheckedCount(), 0);
  EXPECT_EQ(form.lblUserInfoPlugIn.Caption, "All selected Plug-Ins was successfully executed");

  // A file that ends inside a section, a row whose file has gone, a row that points out of the plug-ins'
  // folder.
  computer.desktop.Clear();
  RunText("[Plug-In Name]\r\nOld Viewer\r\n\r\n[d]\r\nd\r\n\r\n[c]\r\nViewers\r\n\r\n[File Rules]\r\n");
  EXPECT_EQ(computer.desktop.CountBoxes("Error number: 62"), 1);
  computer.WriteFile("C:\\Program Files\\Tidorra\\outside.plg", FileText("..", "outside", {}));
  computer.WriteFile(PlugInPath("Viewers", "Old Viewer"), FileText("..", "outside", {}));
  computer.desktop.Clear();
  RunText(FileText("..", "outside", {{"Single File|C:\\boot.ini"}, {}, {}, {}}));
  EXPECT_EQ(Reports(), 1);
}

TEST_F(PlugInTest, ACounterThatPassesItsRangeEndsTheFile) {
  Rules rules;
  rules.files.assign(32768, "Single File|C:\\none.tmp");
  rules.folders = {"C:\\Trash"};
  computer.WriteFile("C:\\Trash\\a.tmp");
  Run(rules);
  EXPECT_EQ(computer.desktop.CountBoxes("Error number: 6"), 1);
  EXPECT_EQ(form.lblFilesDeletedPlugIn.Caption, "32767");
  EXPECT_TRUE(computer.Exists("C:\\Trash\\a.tmp"));
}

TEST_F(PlugInTest, AsksFirstAndRemovesAPlugIn) {
  computer.WriteFile(PlugInPath("Viewers", "Old Viewer"), FileText("Viewers", "Old Viewer", {}));
  m_Registry::AssignPlugIns(form);
  ASSERT_EQ(form.lvwPlugInLists.Count(), 1);
  form.cmdSelectAllPlugIns.Click();
  form.cmdRunPlugIns.Click();  // answered No
  EXPECT_EQ(form.lvwPlugInLists.CheckedCount(), 1);
  EXPECT_EQ(computer.desktop.boxes.back(),
            "information?|Execute Plug-In Files|Confirm running selected Plug-Ins: ");
  form.cmdUnSelectAllPlugIns.Click();
  EXPECT_EQ(form.lvwPlugInLists.CheckedCount(), 0);

  form.lvwPlugInLists.Select(1);
  form.cmdRemovePlugIn.Click();
  EXPECT_TRUE(computer.Exists(PlugInPath("Viewers", "Old Viewer")));
  computer.desktop.AnswerAlways("Confirm remove selected Plug-In: Old Viewer", platform::BoxAnswer::Yes);
  form.cmdRemovePlugIn.Click();
  EXPECT_EQ(form.lvwPlugInLists.Count(), 0);
  EXPECT_FALSE(computer.Exists(PlugInPath("Viewers", "Old Viewer")));
  EXPECT_TRUE(computer.Exists("C:\\Program Files\\Tidorra\\PlugIns\\Viewers"));

  computer.desktop.Clear();
  form.cmdRemovePlugIn.Click();
  EXPECT_TRUE(computer.desktop.boxes.empty());
}

TEST_F(PlugInTest, EachRootHasItsName) {
  const char* names[] = {"CLASSES_ROOT",     "CURRENT_USER",   "LOCAL_MACHINE", "USERS",
                         "PERFORMANCE_DATA", "CURRENT_CONFIG", "DYN_DATA"};
  for (std::uint32_t root = 0x80000000; const char* name : names)
    EXPECT_EQ(plugins::RootKey(std::string("HKEY_") + name), root++) << name;
}

TEST_F(PlugInTest, TokensTakeWhatStandsBeforeThem) {
  plugins::TokenFolders folders{"S:\\", "W:\\", "P:\\"};
  EXPECT_EQ(plugins::ExpandTokens("%windir%\\oldview.ini", folders), "W:\\oldview.ini");
  EXPECT_EQ(plugins::ExpandTokens("C:\\lost\\%SYSTEMROOT%\\a", folders), "S:\\a");
  EXPECT_EQ(plugins::ExpandTokens("%windir%", folders), "W:\\");
  EXPECT_EQ(plugins::ExpandTokens("C:\\50% off\\a", folders), "C:\\50% off\\a");
  EXPECT_EQ(plugins::ExpandTokens("", folders), "");
}
