// The page "Plug-Ins (Your own disk cleaning rules)".
#pragma once

#include "forms/NavigationControls.h"

namespace forms {

struct PlugInsPage {
  CONTROL(Frame, fraPlugIns);

  CONTROL(ListView, lvwPlugInLists);
  CONTROL(Button, cmdRunPlugIns);
  CONTROL(Button, cmdRemovePlugIn);
  CONTROL(Button, cmdSelectAllPlugIns);
  CONTROL(Button, cmdUnSelectAllPlugIns);
  CONTROL(Label, lblOpenPlugInMaker);
  CONTROL(Label, lblFilesDeletedPlugIn);
  CONTROL(Label, lblFoldersDeletedPlugIn);
  CONTROL(Label, lblKeysDeletedPlugIn);
  CONTROL(Label, lblValuesDeletedPlugIn);
  // File, folder, key and value rules.
  CONTROL_ARRAY(Picture, imgProcessPlugIns, 0, 1, 2, 3);
  CONTROL(ProgressBar, prgProgressPlugIns);
  CONTROL(Label, lblStatusPlugIns);
  CONTROL(Label, lblUserInfoPlugIn);

  PlugInsPage();
  controls::Layout PlugInsLayout();
};

}  // namespace forms
