// The page "Include..." of the module Brasmir.
#pragma once

#include "forms/NavigationControls.h"

namespace forms {

// Its handlers: settings/OptionHandlers.h.
struct IncludeBrasmirPage {
  CONTROL(Frame, fraIncludeBrasmir);

  CONTROL(CheckBox, chkZeroByteFilesIncludeBrasmir);
  CONTROL(CheckBox, chkBrokenShortcutsIncludeBrasmir);
  CONTROL(CheckBox, chkScanAllUsersProfileIncludeBrasmir);
  CONTROL(CheckBox, chkScanEntireDriveBrokenShortcutsIncludeBrasmir);
  CONTROL(CheckBox, chkSkipShortcutsPointingToRemovableDrives);
  CONTROL(Label, lblUserInformationBrokenShortcuts);

  IncludeBrasmirPage();
  controls::Layout IncludeBrasmirLayout(NavigationControls& shared);
};

}  // namespace forms
