// The page "Exclude..." of the module Brasmir.
#pragma once

#include "forms/NavigationControls.h"

namespace forms {

struct ExcludeBrasmirPage {
  CONTROL(Frame, fraExcludeBrasmir);

  // The heading of the list on top: "Excluded directories" or, while the files have the page, "Excluded
  // files".
  CONTROL_ARRAY(Label, lblInfo, 24);
  CONTROL(ListView, lvwExcludedFoldersBrasmir);
  CONTROL(Button, cmdAddDirectorieExcludeBrasmir);
  CONTROL(Button, cmdRemoveDirectorieExcludeBrasmir);
  CONTROL(Button, cmdModifyDirectorieExcludeBrasmir);
  CONTROL(Button, cmdExpandDirectoryExcludeBrasmir);
  CONTROL(ListView, lvwExcludedFilesBrasmir);
  CONTROL(Button, cmdAddFileExcludeBrasmir);
  CONTROL(Button, cmdRemoveFileExcludeBrasmir);
  CONTROL(Button, cmdModifyFileExcludeBrasmir);
  CONTROL(Button, cmdExpandFileExcludeBrasmir);
  CONTROL(CheckBox, chkEnableManualTypingExcludeBrasmir);
  CONTROL(CheckBox, chkSkipReadOnlyFilesExcludeBrasmir);

  // Which list has the page, as heights in twips: 1365 is the normal height, 3400 the expanded one. The lists
  // on the screen follow from Visible alone: the one that is shown takes what the hidden one leaves.
  int HeightOfExcludedFolders = 1365;
  int HeightOfExcludedFiles = 1365;

  ExcludeBrasmirPage();
  controls::Layout ExcludeBrasmirLayout(NavigationControls& shared);
};

}  // namespace forms
