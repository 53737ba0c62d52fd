// The page "Options..." of the module Brasmir: the way to its five option pages.
#pragma once

#include "forms/NavigationControls.h"

namespace forms {

// Its handlers: ui/Navigation.h.
struct OptionsBrasmirPage {
  CONTROL(Frame, fraOptionsBrasmir);

  CONTROL(Label, lblFileFiltersOptionsBrasmir);
  CONTROL(Label, lblDrivesOptionsBrasmir);
  CONTROL(Label, lblCleaningOptionsBrasmir);
  CONTROL(Label, lblExcludeOptionsBrasmir);
  CONTROL(Label, lblIncludeOptionsBrasmir);

  OptionsBrasmirPage();
  controls::Layout OptionsBrasmirLayout(NavigationControls& shared);
};

}  // namespace forms
