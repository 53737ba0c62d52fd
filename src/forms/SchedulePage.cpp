#include "forms/SchedulePage.h"

#include "forms/Page.h"

namespace forms {

using namespace controls;

SchedulePage::SchedulePage() {
  Design(chkEnableSchedule, "Enable schedule", 'E');
  cboDaySchedule.AccessibleName = "Day";
  txtTimeSchedule.AccessibleName = "Time";
  cboWeekSchedule.AccessibleName = "Week";
  Link(lblCurrDayAndTimeSchedule, "Insert Current day and time", 'd', "Insert the current day and time");

  Design(chkIncludeBrasmirSchedule, "Include Brasmir", 'I');
  Link(lblViewSettingsBrasmirSchedule, "View settings", 'g');
  Design(chkIncludeLumaroSchedule, "Include Lumaro", 'n');
  Link(lblViewSettingsLumaroSchedule, "View settings", 's');
  Design(chkCreateReportSchedule, "Create a report on tasks performed", 'r');

  Link(lblScheduleHelpSchedule, "Schedule Information", 'f');
  lblScheduleHelpSchedule.Picture = "ui-info";
  Link(lblViewReportSchedule, "View report", 'V');
  Link(lblViewStatusSchedule, "Status", 'a');
  Status(lblUserInfoSchedule);
  Design(cmdStartSchedule, "Start schedule", 't');
  cmdStartSchedule.Primary = true;
  cmdStartSchedule.Enabled = false;
}

void SchedulePage::SetScheduleOn(bool on) {
  ScheduleIsOn = on;
  cmdStartSchedule.Caption = on ? "Stop schedule" : "Start schedule";
}

Layout SchedulePage::ScheduleLayout() {
  return Page(
      fraSchedule, {"Schedule...", HeadLine("Schedule Brasmir to run automatically")},
      {
          Group("Start schedule cleaning",
                {
                    Actions({chkEnableSchedule}, {lblCurrDayAndTimeSchedule}),
                    Grid(3, {Text("Day"), Text("Time"), Text("Week"), Item(cboDaySchedule).Expand(),
                             Item(txtTimeSchedule).Expand(), Item(cboWeekSchedule).Expand()})
                        .Growing({0, 1, 2})
                        .Expand(),
                }),
          Group("Select the utilities to include when the schedule is running",
                {
                    Row({chkIncludeBrasmirSchedule, lblViewSettingsBrasmirSchedule, Space(16),
                         chkIncludeLumaroSchedule, lblViewSettingsLumaroSchedule}),
                    chkCreateReportSchedule,
                }),
          Text("All settings configured will apply to the schedule", LabelStyle::Quiet),
          Text("Apply new settings (Stop schedule, Change settings, Start schedule)", LabelStyle::Quiet),
          Spring(),
          Item(lblUserInfoSchedule).Expand(),
      },
      {lblScheduleHelpSchedule, Space(4), lblViewReportSchedule, Space(4), lblViewStatusSchedule, Spring(),
       Item(cmdStartSchedule).Min(128)});
}

}  // namespace forms
