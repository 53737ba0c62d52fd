// The scheduler: waits for the date of the schedule and runs the modules that it includes.
#pragma once

#include "siblings/chronel/Surroundings.h"
#include "siblings/common/UnattendedDesktop.h"

namespace chronel {

// Takes its orders from the eight values of the schedule's key and keeps looking at them. A date that has
// passed is run at once, whether it was missed by a second or by a month; a run of another program of the
// family is waited for. After a run that has come to its end "Start date" moves on by whole steps of the week
// choice until it lies ahead; a run that is stopped or killed is made up for at the next start. State and
// next run stand in "Reports\Status Schedule.txt" below the installation folder.
//
// Returns when it is told to end, when the enable flag isn't 1, when there is no date to run at, when the
// settings can't be read, and at once beside another instance. `desktop` must be the current one.
void Main(siblings::UnattendedDesktop& desktop, const Surroundings& surroundings);

}  // namespace chronel
