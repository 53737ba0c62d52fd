// The wizard: its checks, its rules, and the file that comes out of it.
#include "plugins/PlugInFixture.h"

using platform::BoxAnswer;
using test::TestComputer;

class MakerTest : public test::PlugInTest {
 protected:
  MakerTest() {
    form.lblOpenPlugInMaker.Click();
    maker = LoadedPlugInMaker();
  }
  void Describe(const std::string& name, const std::string& category) {
    maker->txtNamePlugIn.Text = name;
    maker->txtDescriptionPlugIn.Text = "Removes what the old viewer leaves behind";
    maker->cboCategoryPlugIn.SetText(category);
  }
  void AddValue(const std::string& root, const std::string& subKey, const std::string& name) {
    maker->cboRootKeysValues.SetText(root);
    maker->txtSubKeyValues.Text = subKey;
    maker->txtNameValue.Text = name;
    maker->lblAddNewRegistryValue.Click();
  }
  frmPlugInMaker* maker;
};

TEST_F(MakerTest, WritesTheFileLineByLineAndStartsAgain) {
  Describe("Old Viewer", "Viewers");
  computer.desktop.PickFile("C:\\Windows\\oldview.ini");
  computer.desktop.PickFolder("C:\\Old Viewer\\Thumbs");
  computer.desktop.PickFolder("C:\\Program Files\\Old Viewer\\Cache");
  computer.desktop.PickFolder("C:\\Windows\\Old Viewer\\Logs");
  maker->lblAddNewFile.Click();
  maker->chkAllFilesInFolder.Value = 1;
  EXPECT_TRUE(maker->chkAllFilesInFolderSubFolders.Enabled);
  maker->lblAddNewFile.Click();
  maker->chkAllFilesInFolderSubFolders.Value = 1;
  maker->lblAddNewFile.Click();
  maker->lblAddNewFolder.Click();
  maker->lblAddNewFolder.Click();  // cancelled
  maker->cboRootKeys.SetText("HKEY_CURRENT_USER");
  maker->lblAddNewKey.Click();  // no sub-key yet
  maker->txtSubKeyKeys.Text = "Software\\Old Viewer\\Recent";
  maker->lblAddNewKey.Click();
  AddValue("HKEY_CURRENT_USER", "Software\\Old Viewer", "LastFile");
  maker->chkDeleteAllValues.Value = 1;
  EXPECT_FALSE(maker->txtNameValue.Enabled);
  AddValue("HKEY_LOCAL_MACHINE", "Software\\Old Viewer\\Settings", "");

  for (int page = 0; page < 5; ++page) maker->cmdNext[page].Click();
  EXPECT_EQ(maker->CurrentPage(), &maker->FraFinished);
  EXPECT_EQ(maker->lblNamePlugIn.Caption, "New Plug-In Name: Old Viewer");
  EXPECT_EQ(maker->lblFileRulesConfigured.Caption.Get() + maker->lblFolderRulesConfigured.Caption.Get() +
                maker->lblRegKeyRulesConfigured.Caption.Get() +
                maker->lblRegistryValuesConfigured.Caption.Get(),
            "3112");
  maker->cmdSavePlugIn.Click();

  EXPECT_EQ(
      computer.ReadFile(PlugInPath("Viewers", "Old Viewer")),
      "[Plug-In Name]\r\nOld Viewer\r\n\r\n[Plug-In Description]\r\n"
      "Removes what the old viewer leaves behind\r\n\r\n[Plug-In Category]\r\nViewers\r\n\r\n[File Rules]\r\n"
      "Single File|C:\\Windows\\oldview.ini\r\nAll Files|C:\\Old Viewer\\Thumbs\r\n"
      "All Files/Sub|C:\\Program Files\\Old Viewer\\Cache\r\n\r\n[Folder Rules]\r\n"
      "C:\\Windows\\Old Viewer\\Logs\r\n\r\n[Registry Key Rules]\r\n"
      "HKEY_CURRENT_USER|Software\\Old Viewer\\Recent\r\n\r\n[Registry Value Rules]\r\n"
      "Single Value|HKEY_CURRENT_USER|Software\\Old Viewer|LastFile\r\n"
      "All Values|HKEY_LOCAL_MACHINE|Software\\Old Viewer\\Settings\r\n");
  EXPECT_EQ(computer.desktop.boxes.back(),
            "information|Plug-In|Plug-In successfully saved\r\nPlug-In list will now reload");
  EXPECT_EQ(form.lvwPlugInLists.Count(), 1);
  EXPECT_EQ(form.lvwPlugInLists.SubItem(1, 2), "Viewers");
  EXPECT_EQ(maker->CurrentPage(), &maker->fraWelcome);
  EXPECT_EQ(maker->lvwFiles.Count() + maker->lvwFolders.Count() + maker->lvwRegistryKeys.Count() +
                maker->lvwRegistryValues.Count(),
            0);
  EXPECT_EQ(maker->cboCategoryPlugIn.Text(), "Viewers");
  EXPECT_EQ(maker->txtNamePlugIn.Text, "");

  // The same name again is refused on the first page, in another category it isn't.
  Describe("old viewer", "VIEWERS");
  maker->cmdNext[0].Click();
  EXPECT_EQ(computer.desktop.boxes.back(), "exclamation|Name Exist|Name Exist On Plug-In");
  EXPECT_EQ(maker->CurrentPage(), &maker->fraWelcome);
  Describe("Old Viewer", "Others");
  maker->cmdNext[0].Click();
  EXPECT_EQ(maker->CurrentPage(), &maker->fraFiles);
  maker->cmdBack[0].Click();
  maker->txtDescriptionPlugIn.Text = "";
  maker->cmdNext[0].Click();
  EXPECT_EQ(computer.desktop.boxes.back(),
            "exclamation|Plug-In Name|Name, Description and Category Required On Plug-In");
}

TEST_F(MakerTest, NamesThatAreNoNamesAreNotSaved) {
  for (const char* name : {"a\\b", "a/b", "..", "con: x", "a*", "bad.", "bad ", "Aux", "nul", "Com1"}) {
    Describe(name, "Viewers");
    maker->cmdSavePlugIn.Click();
    EXPECT_EQ(
        computer.desktop.boxes.back(),
        "information|Plug-In|Error saving Plug-In\r\nLook over the settings (Change Name) and try again")
        << name;
  }
  for (const char* category : {"..", "Viewers\\Deep", "Con"}) {
    Describe("x", category);
    maker->cmdSavePlugIn.Click();
  }
  Describe("x", "Viewers");
  maker->txtDescriptionPlugIn.Text = "a rule\r\nof its own";
  maker->cmdSavePlugIn.Click();
  Describe("x", "Viewers");
  // What would then be removed is the key with all below it.
  AddValue("HKEY_CURRENT_USER", "Software\\Old Viewer\r\nX", "LastFile");
  maker->cmdSavePlugIn.Click();
  Describe("日本", "Viewers");  // has no place in the code page
  maker->cmdSavePlugIn.Click();
  EXPECT_EQ(computer.desktop.CountBoxes("Error saving Plug-In"), 16);
  EXPECT_EQ(computer.List("C:\\Program Files\\Tidorra"),
            (test::Strings{"Animations", "Backup", "Help", "PlugIns", "Reports", "Skin", "Temp"}));
  EXPECT_EQ(computer.List("C:\\Program Files\\Tidorra\\PlugIns\\Viewers"), test::Strings{});
}

TEST_F(MakerTest, DeletingACategoryStaysInsideThePlugInsFolder) {
  computer.WriteFile(PlugInPath("Viewers", "Old Viewer"), FileText("Viewers", "Old Viewer", {}));
  computer.WriteFile("C:\\Program Files\\Tidorra\\Backup\\kept.zip");
  computer.desktop.AnswerAlways("Delete Category", BoxAnswer::Yes);
  for (const char* category : {"..", "..\\..", "..\\Backup", ".", "C:\\Windows", "Viewers\\..", "/"}) {
    maker->cboCategoryPlugIn.SetText(category);
    maker->lblDeletePlugInCategory.Click();
  }
  EXPECT_TRUE(computer.Exists(PlugInPath("Viewers", "Old Viewer")));
  EXPECT_TRUE(computer.Exists("C:\\Program Files\\Tidorra\\Backup\\kept.zip"));
  maker->cboCategoryPlugIn.SetText("Viewers");
  maker->lblDeletePlugInCategory.Click();
  EXPECT_FALSE(computer.Exists("C:\\Program Files\\Tidorra\\PlugIns\\Viewers"));
  EXPECT_EQ(form.lvwPlugInLists.Count(), 0);
  EXPECT_EQ(computer.desktop.boxes.back(),
            "critical?|Delete Category|Confirm delete the category: Viewers\r\n"
            "All configured Plug-Ins under this category will be removed");
}

TEST_F(MakerTest, RemovingAndClearingRulesAsk) {
  const struct {
    controls::ListView& list;
    controls::Label &remove, &clear;
    int shown;
    const char *removeTitle, *clearBox;
  } pages[] = {
      {maker->lvwFiles, maker->lblRemoveFile, maker->lblClearFileList, 1, "Remove File Rule",
       "Clear File List|Confirm clear file list: "},
      {maker->lvwFolders, maker->lblRemoveFolder, maker->lblClearFolderList, 0, "Remove Folder Rule",
       "Clear Folder List|Confirm clear folder list: "},
      {maker->lvwRegistryKeys, maker->lblRemoveRegistryKey, maker->lblClearRegistryKeyList, 0,
       "Remove Key Rule", "Clear Key List|Confirm clear registry key list: "},
      {maker->lvwRegistryValues, maker->lblRemoveRegistryValue, maker->lblClearRegistryValueList, 1,
       "Remove Value Rule", "Clear Value List|Confirm clear registry value list: "},
  };
  for (const auto& page : pages) {
    page.clear.Click();  // empty
    for (const char* rule : {"kept", "gone"}) page.list.SetSubItem(page.list.AddRow(rule, 1), 1, "what");
    page.remove.Click();  // nothing selected
    EXPECT_TRUE(computer.desktop.boxes.empty());
    page.list.Select(2);
    page.remove.Click();  // answered No
    EXPECT_EQ(page.list.Count(), 2);
    computer.desktop.Answer(BoxAnswer::Yes);
    page.remove.Click();
    EXPECT_EQ(computer.desktop.boxes.back(), std::string("information?|") + page.removeTitle +
                                                 "|Confirm remove: " + (page.shown == 1 ? "what" : "gone"));
    EXPECT_EQ(page.list.Count(), 1);
    EXPECT_EQ(page.list.Text(1), "kept");
    page.clear.Click();  // answered No
    EXPECT_EQ(page.list.Count(), 1);
    computer.desktop.Answer(BoxAnswer::Yes);
    page.clear.Click();
    EXPECT_EQ(computer.desktop.boxes.back(), std::string("exclamation?|") + page.clearBox);
    EXPECT_EQ(page.list.Count(), 0);
    computer.desktop.Clear();
  }
}
