// Control arrays whose elements lie on several pages of the main window.
#pragma once

#include "controls/Form.h"

namespace forms {

// Each page's layout takes its own elements from here.
struct NavigationControls {
  // "Home" of the pages Drives (0), Cleaning (1), Advanced (2), Options of Lumaro (3), Backup/Restore (4),
  // File filters (5), Include (6), Exclude (7) and User defined folders (8).
  CONTROL_ARRAY(Label, lblHome, 0, 1, 2, 3, 4, 5, 6, 7, 8);
  // On Cleaning (0), Drives (1), File filters (2) and Exclude (3).
  CONTROL_ARRAY(Button, cmdNext, 0, 1, 2, 3);
  // On Cleaning (0), Drives (1), Results (3), Include (4), File filters (5), Exclude (6), Advanced (7),
  // Options of Brasmir (8), Options of Lumaro (9) and User defined folders (10). There is no 2.
  CONTROL_ARRAY(Button, cmdBack, 0, 1, 3, 4, 5, 6, 7, 8, 9, 10);
  // Marks beside the reboot link of Lumaro's scan page (36) and the schedule's line of the welcome page (41).
  CONTROL_ARRAY(Picture, imgUser, 36, 41);

  NavigationControls();
};

}  // namespace forms
