// The schedule's page.
#pragma once

#include "forms/frmMain.h"

// Gives the page's controls, and the schedule's line on the welcome page, their handlers.
void WireSchedule(frmMain& form);

void cmdStartSchedule_Click(frmMain& form);
void chkEnableSchedule_Click(frmMain& form);
void lblCurrDayAndTimeSchedule_Click(frmMain& form);
// Opens the schedule's page, like the main menu, while the line's mark is to be seen.
void lblScheduleStatus_Click(frmMain& form);
void lblScheduleHelpSchedule_Click();
void lblViewReportSchedule_Click();
void lblViewStatusSchedule_Click();
void lblViewSettingsBrasmirSchedule_Click(frmMain& form);
void lblViewSettingsLumaroSchedule_Click(frmMain& form);
