// The page "Brasmir Log": what the cleanings have freed, and the schedule's line.
#pragma once

#include "forms/NavigationControls.h"

namespace forms {

struct WelcomePage {
  CONTROL(Frame, fraWelcome);

  CONTROL(Label, lblDateUsedCleaningStatus);
  CONTROL(Label, lblTimeUsedCleaningStatus);
  CONTROL(Label, lblTotalTimesUsedCleaningStatus);
  CONTROL(Label, lblFilesDeletedCleaningStatus);
  CONTROL(Label, lblTotalFilesDeletedCleaningStatus);
  CONTROL(Label, lblSizeFreedUpCleaningStatus);
  CONTROL(Label, lblTotalSizeFreedUpCleaningStatus);
  CONTROL(Label, lblResetCleaningStatus);
  // Empty until a schedule is found at the start; imgUser(41) is its mark.
  CONTROL(Label, lblScheduleStatus);
  CONTROL(Label, lblGraphDiskView);

  WelcomePage();
  controls::Layout WelcomeLayout(NavigationControls& shared);
};

}  // namespace forms
