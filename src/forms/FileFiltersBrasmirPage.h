// The page "File filters..." of the module Brasmir.
#pragma once

#include "forms/NavigationControls.h"

namespace forms {

// Its handlers: scan/FileFiltersBrasmirPage.h; the check box's: settings/OptionHandlers.h.
struct FileFiltersBrasmirPage {
  CONTROL(Frame, fraFileFiltersBrasmir);

  CONTROL(ListView, lvwFileFiltersBrasmir);
  CONTROL(TextBox, txtFilterFileFiltersBrasmir);
  CONTROL(TextBox, txtDescriptionFileFiltersBrasmir);
  CONTROL(TextBox, txtFileNameFileFiltersBrasmir);
  CONTROL(Button, cmdAddFileFiltersBrasmir);
  // Says "Modify", and "Save" while a filter is edited.
  CONTROL(Button, cmdModifyFileFiltersBrasmir);
  CONTROL(Button, cmdRemoveFileFiltersBrasmir);
  CONTROL(Button, cmdSelectAllFileFiltersBrasmir);
  CONTROL(Button, cmdUnSelectAllFileFiltersBrasmir);
  CONTROL(Label, lblTestFilterFileFiltersBrasmir);
  CONTROL(Label, lblUserInfoFileFiltersBrasmir);
  CONTROL(CheckBox, chkExcludeZeroByteFilesFilterFileFiltersBrasmir);
  // Enabled only while the check box above is ticked.
  CONTROL(Label, lblExcludeZeroByteFilesFileFiltersBrasmir);

  FileFiltersBrasmirPage();

  // Whether the text boxes hold a row that is being edited.
  bool EditsFileFilter = false;
  // Notes it, and says on the button what a click does next.
  void SetEditsFileFilter(bool edits);

  controls::Layout FileFiltersBrasmirLayout(NavigationControls& shared);
};

}  // namespace forms
