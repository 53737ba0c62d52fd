#include "forms/frmPlugInMaker.h"

#include "forms/Page.h"

using namespace controls;

namespace {

void DesignList(ListView& list, std::vector<ListView::Column> columns, const char* icon, const char* empty,
                const char* name, Control& remove) {
  list.Columns = std::move(columns);
  list.SmallIcons = {icon};
  list.EmptyText = empty;
  list.AccessibleName = name;
  list.DeletePresses = &remove;
}

Layout Field(Control& control) {
  return Item(control).Expand();
}
Layout Tall(ListView& list) {
  return Item(list).Stretch().Min(0, 96);
}
Layout Narrow(Label& label) {
  return Item(label).Min(48);
}

}  // namespace

frmPlugInMaker::frmPlugInMaker() : Form("frmPlugInMaker") {
  Caption = "Plug-In Maker.";
  DefaultWidth = 640;
  DefaultHeight = 480;
  MinWidth = 520;
  MinHeight = 400;

  DesignButtons();
  SetLayout(
      Stack({WelcomePage(), FilesPage(), FoldersPage(), KeysPage(), ValuesPage(), FinishedPage()}).Stretch());
}

void frmPlugInMaker::DesignButtons() {
  for (int index : cmdNext.Indices()) {
    forms::Design(cmdNext[index], "Next", 'x');
    cmdNext[index].Picture = "ui-next";
    cmdNext[index].Primary = true;
    cmdNext[index].Default = true;
    forms::Design(cmdBack[index], "Back", 'B');
    cmdBack[index].Picture = "ui-back";
  }
}

Layout frmPlugInMaker::WelcomePage() {
  txtNamePlugIn.AccessibleName = "Plug-In Name";
  txtDescriptionPlugIn.AccessibleName = "Plug-In Description";
  cboCategoryPlugIn.AccessibleName = "Plug-In Category";
  cboCategoryPlugIn.Editable = true;
  forms::Link(lblDeletePlugInCategory, "Delete category", 'D');
  forms::Design(cmdClose, "Close", 'C', "Close Window");
  cmdClose.Cancel = true;
  return forms::Page(
      fraWelcome,
      {"Design a New Plug-In", forms::HeadLine("Give the new Plug-In a Name, Description and Category")},
      {Grid(2, {Text("Plug-In Name"), Field(txtNamePlugIn), Text("Plug-In Description"),
                Field(txtDescriptionPlugIn), Text("Plug-In Category"), Field(cboCategoryPlugIn), Space(0),
                lblDeletePlugInCategory})
           .Growing({1})
           .Expand(),
       Spring(), Text("At least one rule is required to save", LabelStyle::Quiet),
       Text("Click next to continue", LabelStyle::Quiet)},
      {cmdClose, Spring(), cmdNext[0]});
}

Layout frmPlugInMaker::FilesPage() {
  DesignList(lvwFiles, {{"File Rule", 120}, {"File Path", 320, true}}, "file", "No file rules yet",
             "File rules", lblRemoveFile);
  forms::Design(chkAllFilesInFolder, "All files in this folder", 'l');
  forms::Design(chkAllFilesInFolderSubFolders, "Include sub folders", 'I');
  chkAllFilesInFolderSubFolders.Enabled = false;
  forms::Link(lblAddNewFile, "Add new file(s)", 'A');
  forms::Link(lblRemoveFile, "Remove file", 'R');
  forms::Link(lblClearFileList, "Clear file list", 'C');
  return forms::Page(fraFiles,
                     {"Select Files To Delete",
                      forms::HeadLine("Files in this list will be removed when plug-in is executed")},
                     {Tall(lvwFiles), Row({chkAllFilesInFolder, chkAllFilesInFolderSubFolders}).Gap(24),
                      Row({lblAddNewFile, lblRemoveFile, lblClearFileList}).Gap(24)},
                     {Spring(), cmdBack[0], cmdNext[1]});
}

Layout frmPlugInMaker::FoldersPage() {
  DesignList(lvwFolders, {{"Folder Path", 440, true}}, "control-08-clear-folder", "No folder rules yet",
             "Folder rules", lblRemoveFolder);
  forms::Link(lblAddNewFolder, "Add new folder", 'A');
  forms::Link(lblRemoveFolder, "Remove folder", 'R');
  forms::Link(lblClearFolderList, "Clear folder list", 'C');
  return forms::Page(fraFolders,
                     {"Select Folders To Delete",
                      forms::HeadLine("Folders in this list will be removed when plug-in is executed")},
                     {Tall(lvwFolders), Row({lblAddNewFolder, lblRemoveFolder, lblClearFolderList}).Gap(24)},
                     {Spring(), cmdBack[1], cmdNext[2]});
}

Layout frmPlugInMaker::KeysPage() {
  DesignList(lvwRegistryKeys, {{"Registry Keys", 440, true}}, "control-10-tools", "No registry key rules yet",
             "Registry key rules", lblRemoveRegistryKey);
  cboRootKeys.AccessibleName = "Root key";
  txtSubKeyKeys.AccessibleName = "Sub key";
  txtSubKeyKeys.Hint = "Sub key";
  txtSubKeyKeys.EnterPresses = &lblAddNewKey;
  forms::Link(lblAddNewKey, "Add new key", 'A');
  forms::Link(lblRemoveRegistryKey, "Remove key", 'R');
  forms::Link(lblClearRegistryKeyList, "Clear key list", 'C');
  return forms::Page(
      fraRegistryKeys,
      {"Select Registry Keys To Delete",
       forms::HeadLine("Keys in this list will be removed when plug-in is executed")},
      {Row({Item(cboRootKeys).Min(200), forms::Wide(txtSubKeyKeys)}).Expand(), Tall(lvwRegistryKeys),
       Row({lblAddNewKey, lblRemoveRegistryKey, lblClearRegistryKeyList}).Gap(24)},
      {Spring(), cmdBack[2], cmdNext[3]});
}

Layout frmPlugInMaker::ValuesPage() {
  DesignList(lvwRegistryValues, {{"Value Rule", 120}, {"Registry Values", 320, true}}, "control-10-tools",
             "No registry value rules yet", "Registry value rules", lblRemoveRegistryValue);
  cboRootKeysValues.AccessibleName = "Root key";
  txtSubKeyValues.AccessibleName = "Sub key";
  txtSubKeyValues.Hint = "Sub key";
  txtSubKeyValues.EnterPresses = &lblAddNewRegistryValue;
  txtNameValue.AccessibleName = "Name Value";
  txtNameValue.EnterPresses = &lblAddNewRegistryValue;
  forms::Design(chkDeleteAllValues, "Delete all values under given subkey", 'D');
  forms::Link(lblAddNewRegistryValue, "Add new value", 'A');
  forms::Link(lblRemoveRegistryValue, "Remove value", 'R');
  forms::Link(lblClearRegistryValueList, "Clear value list", 'C');
  return forms::Page(
      fraRegistryValues,
      {"Select Registry Values To Delete",
       forms::HeadLine("Values in this list will be removed when plug-in is executed")},
      {Row({Item(cboRootKeysValues).Min(200), forms::Wide(txtSubKeyValues)}).Expand(),
       Row({Text("Name Value"), forms::Wide(txtNameValue), chkDeleteAllValues}).Expand(),
       Tall(lvwRegistryValues),
       Row({lblAddNewRegistryValue, lblRemoveRegistryValue, lblClearRegistryValueList}).Gap(24)},
      {Spring(), cmdBack[3], cmdNext[4]});
}

Layout frmPlugInMaker::FinishedPage() {
  forms::Design(lblNamePlugIn, "New Plug-In Name:");
  for (Label* label : {&lblFileRulesConfigured, &lblFolderRulesConfigured, &lblRegKeyRulesConfigured,
                       &lblRegistryValuesConfigured})
    forms::Value(*label);
  forms::Design(cmdSavePlugIn, "Save Plug-In", 'S');
  cmdSavePlugIn.Primary = true;
  cmdSavePlugIn.Default = true;
  return forms::Page(FraFinished,
                     {"Save The New Plug-In", forms::HeadLine("Save the settings for the new plug-in")},
                     {Item(lblNamePlugIn).Expand(),
                      Grid(2, {Text("File Rules Configured"), Narrow(lblFileRulesConfigured),            //
                               Text("Folder Rules Configured"), Narrow(lblFolderRulesConfigured),        //
                               Text("Registry Key Rules Configured"), Narrow(lblRegKeyRulesConfigured),  //
                               Text("Registry Value Rules Configured"), Narrow(lblRegistryValuesConfigured)}),
                      Spring()},
                     {Spring(), cmdBack[4], cmdSavePlugIn});
}
