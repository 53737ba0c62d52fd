// One unattended run of the modules that a schedule includes.
#pragma once

#include <functional>

#include "siblings/common/UnattendedDesktop.h"

namespace chronel {

struct RunResult {
  double files = 0;      // removed
  double kilobytes = 0;  // freed
  bool stopped = false;  // before its end
};

// Does what the user would do at the windows, with the settings as stored and without a question: scans and
// removes everything of each of the results' categories, and scans and cleans with Lumaro. The screens are
// filled for it and never saved. Adds to the statistics, and writes "Reports\Schedule.txt" below the
// installation folder if the schedule asks for a report. `stop` is asked for each file; once it says True the
// run ends where the user's stop button would end it.
//
// The cache of the settings must have been filled just before, and `desktop` be the current one.
RunResult RunModules(siblings::UnattendedDesktop& desktop, const std::function<bool()>& stop);

}  // namespace chronel
