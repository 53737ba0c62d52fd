// The schedule: its page, its first date, its start and stop. The cleaning at schedule time is another
// program's.
#pragma once

#include <string>

#include "forms/frmMain.h"

namespace m_Schedule {

// Fills the schedule's page from the cache and sets the map to "Schedule...".
void LoadScheduleSettings(frmMain& form);

// Writes the page's seven values and `sSetScheduleDate` as "Start date". True if all writes worked and became
// lasting.
bool SaveScheduleSettings(const std::string& sSetScheduleDate);

// The first date to run at, in the short date format: the next day of the page's name, today included while
// the page's time isn't lower, as text, than the present one. Empty for a day's text that is no day name.
std::string CalcScheduleDate();

// Puts today's name and the present time into the page.
void SetCurrDayAndTime(frmMain& form);

// Tests the page, stores it, starts the scheduler and enters it for the logon; tells what fails. Shows the
// notice unless the user has switched it off.
void StartSchedule(frmMain& form);

// Takes the enable flag back, removes the logon entry and tells the scheduler to end.
void StopSchedule(frmMain& form);

// Shows the notice, not modal.
void ShowNotice();

}  // namespace m_Schedule
