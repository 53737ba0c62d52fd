// The schedule's settings.
#pragma once

#include "forms/frmMain.h"

namespace m_Schedule {

// Fills the Schedule page from the cache, each time that the page is opened from the main menu, and notes in
// lblUserMap that the user is there.
void LoadScheduleSettings(frmMain& form);

}  // namespace m_Schedule
