// The page "User defined folders..." of the module Lumaro.
#pragma once

#include "forms/NavigationControls.h"

namespace forms {

struct UserDefinedFoldersLumaroPage {
  CONTROL(Frame, fraUserDefinedFoldersLumaro);

  CONTROL(ListView, lvwUserDefinedFoldersLumaro);
  // All ticked rows (0), the selected row (1).
  CONTROL_ARRAY(Label, lblTotalFilesUserDefinedFoldersLumaro, 0, 1);
  CONTROL_ARRAY(Label, lblTotalFoldersUserDefinedFoldersLumaro, 0, 1);
  CONTROL_ARRAY(Label, lblTotalSpaceUserDefinedFoldersLumaro, 0, 1);
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
