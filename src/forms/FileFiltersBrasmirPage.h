// The page "File filters..." of the module Brasmir.
#pragma once

#include "forms/NavigationControls.h"

namespace forms {

struct FileFiltersBrasmirPage {
  CONTROL(Frame, fraFileFiltersBrasmir);

  CONTROL(ListView, lvwFileFiltersBrasmir);
  CONTROL(TextBox, txtFilterFileFiltersBrasmir);
  CONTROL(TextBox, txtDescriptionFileFiltersBrasmir);
  CONTROL(TextBox, txtFileNameFileFiltersBrasmir);
  CONTROL(Button, cmdAddFileFiltersBrasmir);
  // "Modify" or "Save": the caption tells which phase the edit is in.
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
  controls::Layout FileFiltersBrasmirLayout(NavigationControls& shared);
};

}  // namespace forms
