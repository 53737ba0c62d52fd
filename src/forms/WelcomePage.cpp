#include "forms/WelcomePage.h"

#include "forms/Page.h"

namespace forms {

using namespace controls;

WelcomePage::WelcomePage() {
  for (Label* label :
       {&lblDateUsedCleaningStatus, &lblTimeUsedCleaningStatus, &lblTotalTimesUsedCleaningStatus,
        &lblFilesDeletedCleaningStatus, &lblTotalFilesDeletedCleaningStatus, &lblSizeFreedUpCleaningStatus,
        &lblTotalSizeFreedUpCleaningStatus})
    Value(*label);
  Link(lblResetCleaningStatus, "Reset Cleaning Status", 'R', "Set all counters to zero");
  Link(lblScheduleStatus, "");
  lblScheduleStatus.AccessibleName = "Schedule";
  Link(lblGraphDiskView, "Graph Disk-Space", 'G');
}

Layout WelcomePage::WelcomeLayout(NavigationControls& shared) {
  Layout last = Grid(2, {Text("Date used:"), lblDateUsedCleaningStatus,          //
                         Text("Time used:"), lblTimeUsedCleaningStatus,          //
                         Text("Files deleted:"), lblFilesDeletedCleaningStatus,  //
                         Text("Size freed up:"), lblSizeFreedUpCleaningStatus})
                    .Growing({1})
                    .Expand();
  Layout total = Grid(2, {Text("Total times used:"), lblTotalTimesUsedCleaningStatus,        //
                          Text("Total files deleted:"), lblTotalFilesDeletedCleaningStatus,  //
                          Text("Total size freed up:"), lblTotalSizeFreedUpCleaningStatus})
                     .Growing({1})
                     .Expand();
  return Page(fraWelcome, {"Brasmir Log", HeadLine("Clean computer and improve performance")},
              {
                  Row({Group("Status Last Cleaning", {std::move(last)}).Stretch(),
                       Group("Status Total Cleaning", {std::move(total)}).Stretch()})
                      .Gap(16)
                      .Expand(),
                  Actions({lblGraphDiskView}, {lblResetCleaningStatus}),
                  Spring(),
                  Row({shared.imgUser[ScheduleMark], Wide(lblScheduleStatus)}).Expand(),
              });
}

}  // namespace forms
