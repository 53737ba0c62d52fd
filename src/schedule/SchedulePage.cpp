#include "schedule/SchedulePage.h"

#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "core/UserInformation.h"
#include "core/m_SharedProcedures.h"
#include "platform/Operations.h"
#include "schedule/m_Schedule.h"

using core::Args;
using core::Guarded;

namespace {

constexpr core::Procedure In(const char* procedure) {
  return {"frmMain", procedure};
}

void ViewReport(const char* procedure, const char* file, const char* title, const char* failed) {
  Guarded(In(procedure), Args(), [&] {
    std::string path = gRegistry->InstallDirectory + file;
    if (platform::ops::IsFile(path))
      platform::ops::ViewContent(path);
    else
      core::Tell(core::BoxIcon::Information, title, {failed, "No report has been written."});
  });
}

}  // namespace

void cmdStartSchedule_Click(frmMain& form) {
  Guarded(In("cmdStartSchedule_Click"), Args(), [&] {
    if (form.ScheduleIsOn)
      m_Schedule::StopSchedule(form);
    else
      m_Schedule::StartSchedule(form);
  });
}

void chkEnableSchedule_Click(frmMain& form) {
  Guarded(In("chkEnableSchedule_Click"), Args(),
          [&] { form.cmdStartSchedule.Enabled = form.chkEnableSchedule.Value == 1; });
}

void lblCurrDayAndTimeSchedule_Click(frmMain& form) {
  Guarded(In("lblCurrDayAndTimeSchedule_Click"), Args(), [&] { m_Schedule::SetCurrDayAndTime(form); });
}

void lblScheduleStatus_Click(frmMain& form) {
  Guarded(In("lblScheduleStatus_Click"), Args(), [&] {
    if (form.ScheduleWasOnAtStart) form.lblMainMenu[forms::menu::Schedule].Click();
  });
}

void lblScheduleHelpSchedule_Click() {
  Guarded(In("lblScheduleHelpSchedule_Click"), Args(), [] {
    m_Schedule::ShowNotice();
    if (frmUserInformation* box = core::LoadedUserInformation())
      box->chkDoNotShowThisMessage.Value = core::UserInformationFlag(core::kStartScheduleKey);
  });
}

void lblViewReportSchedule_Click() {
  ViewReport("lblViewReportSchedule_Click", "Reports\\Schedule.txt", "Schedule report...",
             "Open the Schedule report failed.");
}

void lblViewStatusSchedule_Click() {
  ViewReport("lblViewStatusSchedule_Click", "Reports\\Status Schedule.txt", "Schedule status report...",
             "Open the status Schedule report failed.");
}

void lblViewSettingsBrasmirSchedule_Click(frmMain& form) {
  Guarded(In("lblViewSettingsBrasmirSchedule_Click"), Args(), [&] { form.ShowPage(form.fraOptionsBrasmir); });
}

void lblViewSettingsLumaroSchedule_Click(frmMain& form) {
  Guarded(In("lblViewSettingsLumaroSchedule_Click"), Args(), [&] { form.ShowPage(form.fraOptionsLumaro); });
}

void WireSchedule(frmMain& form) {
  form.cmdStartSchedule.Click = [&form] { cmdStartSchedule_Click(form); };
  form.chkEnableSchedule.Click = [&form] { chkEnableSchedule_Click(form); };
  form.lblCurrDayAndTimeSchedule.Click = [&form] { lblCurrDayAndTimeSchedule_Click(form); };
  form.lblScheduleStatus.Click = [&form] { lblScheduleStatus_Click(form); };
  form.lblScheduleHelpSchedule.Click = [] { lblScheduleHelpSchedule_Click(); };
  form.lblViewReportSchedule.Click = [] { lblViewReportSchedule_Click(); };
  form.lblViewStatusSchedule.Click = [] { lblViewStatusSchedule_Click(); };
  form.lblViewSettingsBrasmirSchedule.Click = [&form] { lblViewSettingsBrasmirSchedule_Click(form); };
  form.lblViewSettingsLumaroSchedule.Click = [&form] { lblViewSettingsLumaroSchedule_Click(form); };
}
