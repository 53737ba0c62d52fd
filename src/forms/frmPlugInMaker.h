// The wizard that builds a plug-in file: six pages.
#pragma once

#include "controls/Form.h"

struct frmPlugInMaker : controls::Form {
  CONTROL(Frame, fraWelcome);
  CONTROL(TextBox, txtNamePlugIn);
  CONTROL(TextBox, txtDescriptionPlugIn);
  CONTROL(ComboBox, cboCategoryPlugIn);
  CONTROL(Label, lblDeletePlugInCategory);
  CONTROL(Button, cmdClose);

  CONTROL(Frame, fraFiles);
  CONTROL(ListView, lvwFiles);
  CONTROL(CheckBox, chkAllFilesInFolder);
  // Enabled only while the check box above is ticked.
  CONTROL(CheckBox, chkAllFilesInFolderSubFolders);
  CONTROL(Label, lblAddNewFile);
  CONTROL(Label, lblRemoveFile);
  CONTROL(Label, lblClearFileList);

  CONTROL(Frame, fraFolders);
  CONTROL(ListView, lvwFolders);
  CONTROL(Label, lblAddNewFolder);
  CONTROL(Label, lblRemoveFolder);
  CONTROL(Label, lblClearFolderList);

  CONTROL(Frame, fraRegistryKeys);
  CONTROL(ComboBox, cboRootKeys);
  CONTROL(TextBox, txtSubKeyKeys);
  CONTROL(ListView, lvwRegistryKeys);
  CONTROL(Label, lblAddNewKey);
  CONTROL(Label, lblRemoveRegistryKey);
  CONTROL(Label, lblClearRegistryKeyList);

  CONTROL(Frame, fraRegistryValues);
  CONTROL(ComboBox, cboRootKeysValues);
  CONTROL(TextBox, txtSubKeyValues);
  CONTROL(TextBox, txtNameValue);
  CONTROL(CheckBox, chkDeleteAllValues);
  CONTROL(ListView, lvwRegistryValues);
  CONTROL(Label, lblAddNewRegistryValue);
  CONTROL(Label, lblRemoveRegistryValue);
  CONTROL(Label, lblClearRegistryValueList);

  CONTROL(Frame, FraFinished);
  CONTROL(Label, lblNamePlugIn);
  CONTROL(Label, lblFileRulesConfigured);
  CONTROL(Label, lblFolderRulesConfigured);
  CONTROL(Label, lblRegKeyRulesConfigured);
  CONTROL(Label, lblRegistryValuesConfigured);
  CONTROL(Button, cmdSavePlugIn);

  // Next lies on the pages from the first (0) to the last but one (4), Back on those from the second (0) to
  // the last (4).
  CONTROL_ARRAY(Button, cmdNext, 0, 1, 2, 3, 4);
  CONTROL_ARRAY(Button, cmdBack, 0, 1, 2, 3, 4);

  // The row pictures of the four lists are: a file (1), a folder (1), tools (1), tools (1).
  frmPlugInMaker();

 private:
  void DesignButtons();
  // Each designs the controls of its page and lays them out.
  controls::Layout WelcomePage();
  controls::Layout FilesPage();
  controls::Layout FoldersPage();
  controls::Layout KeysPage();
  controls::Layout ValuesPage();
  controls::Layout FinishedPage();
};
