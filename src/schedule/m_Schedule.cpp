#include "schedule/m_Schedule.h"

#include "core/ErrorReport.h"
#include "core/Numbers.h"
#include "core/m_SharedProcedures.h"

namespace m_Schedule {

namespace {

using core::Args;
using core::Guarded;
using core::Object;

core::Procedure Here(const char* procedure) {
  return {"m_Schedule", procedure};
}

}  // namespace

void LoadScheduleSettings(frmMain& form) {
  Guarded(Here("LoadScheduleSettings"), Args(Object{"frmMain"}), [&] {
    form.cboDaySchedule.Clear();
    form.cboWeekSchedule.Clear();
    form.lblUserMap.Caption = "Schedule...";
    for (const char* day : {"Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Sunday"})
      form.cboDaySchedule.AddItem(day);
    for (const char* week : {"Every Week", "Every second Week", "Every third Week", "Every fourth Week"})
      form.cboWeekSchedule.AddItem(week);
    const c_Registry& cache = *gRegistry;
    form.chkCreateReportSchedule.Value = core::ToInteger(cache.CreateReportSch);
    form.cboDaySchedule.SetText(cache.DaySch);
    form.chkIncludeBrasmirSchedule.Value = core::ToInteger(cache.IncludeBrasmirSch);
    form.chkIncludeLumaroSchedule.Value = core::ToInteger(cache.IncludeLumaroSch);
    form.chkEnableSchedule.Value = core::ToInteger(cache.EnableScheduleSch);
    form.txtTimeSchedule.Text = cache.TimeSch;
    form.cboWeekSchedule.SetText(cache.WeekSch);
    bool started = core::IsOne(cache.EnableScheduleSch);
    form.cmdStartSchedule.Caption = started ? "Stop schedule" : "Start schedule";
    form.lblUserInfoSchedule.Caption = started ? "Schedule started..." : "Schedule stopped...";
  });
}

}  // namespace m_Schedule
