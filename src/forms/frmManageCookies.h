// The cookie manager.
#pragma once

#include "controls/Form.h"

struct frmManageCookies : controls::Form {
  // A row's small icon 1 is the picture of the key "Cookies".
  CONTROL(ListView, lvwCookies);
  CONTROL(Label, lblClose);

  frmManageCookies();
};
