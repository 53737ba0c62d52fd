// The page "Advanced..." of the module Lumaro.
#pragma once

#include "forms/NavigationControls.h"

namespace forms {

// Its handlers: lumaro/OptionPages.h; the check boxes': settings/OptionHandlers.h.
struct AdvancedLumaroPage {
  CONTROL(Frame, fraAdvancedLumaro);

  CONTROL(CheckBox, chkConfirmCleaningAdvancedLumaro);
  CONTROL(CheckBox, chkDeleteFilesAdvancedLumaro);
  CONTROL(CheckBox, chkRecycleBinAdvancedLumaro);
  CONTROL(CheckBox, chkEraseFilesAdvancedLumaro);
  CONTROL(SpinBox, spnEraseTimesAdvancedLumaro);
  CONTROL(CheckBox, chkDeleteFilesOnWindowsStartupAdvancedLumaro);
  CONTROL(CheckBox, chkSkipReadOnlyFilesAdvancedLumaro);
  // Enabled on entering the page, while the program also starts in the tray.
  CONTROL(CheckBox, chkCleanOnWindowsStartupAdvancedLumaro);
  CONTROL(CheckBox, chkCleanPageFileAdvancedLumaro);
  CONTROL(CheckBox, chkActivateKelvishLog);
  CONTROL(Label, lblViewLockedFilesAdvancedLumaro);
  CONTROL(Label, lblApplySettingsToBrasmirAdvancedLumaro);

  AdvancedLumaroPage();
  controls::Layout AdvancedLumaroLayout(NavigationControls& shared);
};

}  // namespace forms
