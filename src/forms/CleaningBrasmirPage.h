// The page "Cleaning..." of the module Brasmir.
#pragma once

#include "forms/NavigationControls.h"

namespace forms {

// Its handlers: clean/CleaningBrasmirPage.h; the check boxes': settings/OptionHandlers.h.
struct CleaningBrasmirPage {
  CONTROL(Frame, fraCleaningBrasmir);

  CONTROL(CheckBox, chkDeleteFilesCleaningBrasmir);
  CONTROL(CheckBox, chkRecycleBinCleaningBrasmir);
  CONTROL(CheckBox, chkEraseFilesCleaningBrasmir);
  CONTROL(SpinBox, spnEraseTimesCleaningBrasmir);
  CONTROL(CheckBox, chkDeleteFilesOnWindowsStartupCleaningBrasmir);
  CONTROL(CheckBox, chkConfirmCleaningCleaningBrasmir);
  CONTROL(Label, lblViewLockedFilesCleaningBrasmir);
  CONTROL(Label, lblApplySettingsToLumaroCleaningBrasmir);

  CleaningBrasmirPage();
  controls::Layout CleaningBrasmirLayout(NavigationControls& shared);
};

}  // namespace forms
