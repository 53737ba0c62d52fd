// The page "Brasmir Log": what the cleanings have freed, and the schedule's line.
#pragma once

#include "forms/NavigationControls.h"

namespace forms {

// Its handlers: settings/OptionHandlers.h (the statistics), schedule/SchedulePage.h (the schedule's line),
// ui/DiskSpaceInformation.h (the chart).
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
  // Empty unless a schedule was on at the start; imgUser(ScheduleMark) stands beside it.
  CONTROL(Label, lblScheduleStatus);
  CONTROL(Label, lblGraphDiskView);

  WelcomePage();

  // A schedule was on when the program started: the line is shown and answers a click.
  bool ScheduleWasOnAtStart = false;

  controls::Layout WelcomeLayout(NavigationControls& shared);
};

}  // namespace forms
