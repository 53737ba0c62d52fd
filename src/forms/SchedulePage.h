// The page "Schedule...".
#pragma once

#include "forms/NavigationControls.h"

namespace forms {

struct SchedulePage {
  CONTROL(Frame, fraSchedule);

  CONTROL(CheckBox, chkEnableSchedule);
  CONTROL(ComboBox, cboDaySchedule);
  CONTROL(TextBox, txtTimeSchedule);
  CONTROL(ComboBox, cboWeekSchedule);
  CONTROL(CheckBox, chkIncludeBrasmirSchedule);
  CONTROL(CheckBox, chkIncludeLumaroSchedule);
  CONTROL(CheckBox, chkCreateReportSchedule);
  CONTROL(Label, lblCurrDayAndTimeSchedule);
  CONTROL(Label, lblViewSettingsBrasmirSchedule);
  CONTROL(Label, lblViewSettingsLumaroSchedule);
  CONTROL(Label, lblScheduleHelpSchedule);
  CONTROL(Label, lblViewReportSchedule);
  CONTROL(Label, lblViewStatusSchedule);
  CONTROL(Label, lblUserInfoSchedule);
  // "Start schedule" or "Stop schedule": the caption is the record of the schedule's state.
  CONTROL(Button, cmdStartSchedule);

  SchedulePage();
  controls::Layout ScheduleLayout();
};

}  // namespace forms
