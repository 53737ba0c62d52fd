// The page "Options..." of the module Lumaro.
#pragma once

#include "forms/LumaroPlaces.h"
#include "forms/NavigationControls.h"

namespace forms {

// Its handlers: lumaro/OptionPages.h; the check boxes': settings/OptionHandlers.h.
struct OptionsLumaroPage {
  CONTROL(Frame, fraOptionsLumaro);

  CONTROL(CheckBox, chkLoadOnWindowsStartupOptionsLumaro);
  CONTROL(CheckBox, chkAddToSystemTrayOptionsLumaro);
  CONTROL(Label, lblAdvancedLumaro);
  CONTROL(Label, lblManageCookiesOptionsLumaro);

  OptionsLumaroPage();
  controls::Layout OptionsLumaroLayout(NavigationControls& shared, LumaroPlaces& places);
};

}  // namespace forms
