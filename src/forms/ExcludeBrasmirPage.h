// The page "Exclude..." of the module Brasmir.
#pragma once

#include "forms/NavigationControls.h"

namespace forms {

// Which of the two lists are shown: both, or one that has the whole page.
enum class ExcludeLists { Both, Directories, Files };

// The heading of the list on top, in lblInfo.
constexpr int ExcludeHeading = 24;

// Its handlers: scan/ExcludeBrasmirPage.h.
struct ExcludeBrasmirPage {
  CONTROL(Frame, fraExcludeBrasmir);

  // "Excluded directories" or, while the files have the page, "Excluded files".
  CONTROL_ARRAY(Label, lblInfo, ExcludeHeading);
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

  // The list that is shown takes what the hidden one leaves.
  ExcludeLists ShownLists = ExcludeLists::Both;

  ExcludeBrasmirPage();
  controls::Layout ExcludeBrasmirLayout(NavigationControls& shared);
};

}  // namespace forms
