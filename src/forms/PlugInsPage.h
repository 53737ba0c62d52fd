// The page "Plug-Ins (Your own disk cleaning rules)".
#pragma once

#include "forms/NavigationControls.h"

namespace forms {

// The marks of a rule file's sections, by their indexes.
enum RulesMark { FileRulesMark, FolderRulesMark, KeyRulesMark, ValueRulesMark };

// Its handlers: plugins/PlugInsPage.h.
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
  CONTROL_ARRAY(Picture, imgProcessPlugIns, FileRulesMark, FolderRulesMark, KeyRulesMark, ValueRulesMark);
  CONTROL(ProgressBar, prgProgressPlugIns);
  CONTROL(Label, lblStatusPlugIns);
  CONTROL(Label, lblUserInfoPlugIn);

  PlugInsPage();
  controls::Layout PlugInsLayout();
};

}  // namespace forms
