// The cookie manager: a ticked cookie will be deleted, an unticked one stays.
#pragma once

#include "core/OpenForms.h"
#include "forms/frmManageCookies.h"
#include "platform/CountedList.h"

namespace lumaro {

struct CookieManager : frmManageCookies {
  // The lines of "Cookies.txt" as they were when the window opened.
  platform::CountedList Remembered;
};

// The window's one instance. Closing it writes the unticked cookies to "Cookies.txt" in the installation
// folder, one full path to a line, in place of whatever stood there; with none unticked the file is emptied.
core::FormSlot<CookieManager>& ManageCookies();

}  // namespace lumaro
