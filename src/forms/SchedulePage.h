// The page "Schedule...".
#pragma once

#include "forms/NavigationControls.h"

namespace forms {

// Its handlers: schedule/SchedulePage.h.
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
  // Says "Start schedule" or "Stop schedule", by ScheduleIsOn.
  CONTROL(Button, cmdStartSchedule);

  SchedulePage();

  // Whether a schedule is on, as far as this program knows.
  bool ScheduleIsOn = false;
  // Notes it, and says on the button what a click does next.
  void SetScheduleOn(bool on);

  controls::Layout ScheduleLayout();
};

}  // namespace forms
