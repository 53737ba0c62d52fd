// Control arrays whose elements lie on several pages of the main window.
#pragma once

#include "controls/Form.h"

namespace forms {

// The indexes in these arrays, by the page that an element lies on.
namespace home {
enum {
  Drives,
  Cleaning,
  Advanced,
  OptionsLumaro,
  BackupRestore,
  FileFilters,
  Include,
  Exclude,
  UserDefinedFolders
};
}
namespace next {
enum { Cleaning, Drives, FileFilters, Exclude };
}
namespace back {
enum {
  Cleaning = 0,
  Drives = 1,
  Results = 3,
  Include = 4,
  FileFilters = 5,
  Exclude = 6,
  Advanced = 7,
  OptionsBrasmir = 8,
  OptionsLumaro = 9,
  UserDefinedFolders = 10,
};
}
// Marks beside the reboot link of Lumaro's scan page and beside the schedule's line of the welcome page.
enum UserMark { RebootMark = 36, ScheduleMark = 41 };

// Each page's layout takes its own elements from here.
struct NavigationControls {
  CONTROL_ARRAY(Label, lblHome, home::Drives, home::Cleaning, home::Advanced, home::OptionsLumaro,
                home::BackupRestore, home::FileFilters, home::Include, home::Exclude,
                home::UserDefinedFolders);
  CONTROL_ARRAY(Button, cmdNext, next::Cleaning, next::Drives, next::FileFilters, next::Exclude);
  CONTROL_ARRAY(Button, cmdBack, back::Cleaning, back::Drives, back::Results, back::Include,
                back::FileFilters, back::Exclude, back::Advanced, back::OptionsBrasmir, back::OptionsLumaro,
                back::UserDefinedFolders);
  CONTROL_ARRAY(Picture, imgUser, RebootMark, ScheduleMark);

  NavigationControls();
};

}  // namespace forms
