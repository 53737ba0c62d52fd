// The page "User defined folders..." of the module Lumaro.
#pragma once

#include "forms/NavigationControls.h"

namespace forms {

// Whose figures a summary label shows, by its index.
enum FolderSummary { AllTickedFolders, SelectedFolder };

// Its handlers: lumaro/UserDefinedFoldersLumaroPage.h.
struct UserDefinedFoldersLumaroPage {
  CONTROL(Frame, fraUserDefinedFoldersLumaro);

  CONTROL(ListView, lvwUserDefinedFoldersLumaro);
  CONTROL_ARRAY(Label, lblTotalFilesUserDefinedFoldersLumaro, AllTickedFolders, SelectedFolder);
  CONTROL_ARRAY(Label, lblTotalFoldersUserDefinedFoldersLumaro, AllTickedFolders, SelectedFolder);
  CONTROL_ARRAY(Label, lblTotalSpaceUserDefinedFoldersLumaro, AllTickedFolders, SelectedFolder);
  CONTROL(Button, cmdAddUserDefinedFoldersLumaro);
  CONTROL(Button, cmdRemoveUserDefinedFoldersLumaro);
  CONTROL(Button, cmdModifyUserDefinedFoldersLumaro);
  CONTROL(Button, cmdSelectAllUserDefinedFoldersLumaro);
  CONTROL(Button, cmdUnselectAllUserDefinedFoldersLumaro);
  CONTROL(Button, cmdListFoldersUserDefinedFoldersLumaro);
  CONTROL(TextBox, txtListFoldersUserDefinedFoldersLumaro);
  CONTROL(CheckBox, chkStartListInFolderUserDefinedFoldersLumaro);

  UserDefinedFoldersLumaroPage();
  controls::Layout UserDefinedFoldersLumaroLayout(NavigationControls& shared);
};

}  // namespace forms
