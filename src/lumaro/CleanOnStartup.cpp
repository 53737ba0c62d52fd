#include "lumaro/CleanOnStartup.h"

#include "core/ErrorReport.h"
#include "core/m_SharedProcedures.h"
#include "platform/Desktop.h"

namespace lumaro {

namespace {

using controls::kTwipsPerPixel;
using core::Args;
using core::Guarded;
using platform::CurrentDesktop;

// The window comes to rest this far above the screen's bottom edge, and moves so far at each step.
constexpr int kGap = 400, kStep = 50;
constexpr int kStepMilliseconds = 10, kTimerMilliseconds = 500;

core::Procedure Here(const char* procedure) {
  return {"frmCleanOnStartup", procedure};
}

int ScreenHeight() {
  return CurrentDesktop().ScreenSize().height * kTwipsPerPixel;
}

void Step(frmCleanOnStartup& form, int twips) {
  form.Position.Top += twips;
  CurrentDesktop().Move(form);
  CurrentDesktop().Refresh(form);
  CurrentDesktop().Sleep(kStepMilliseconds);
}

void Form_Load(frmCleanOnStartup& form) {
  Guarded(Here("Form_Load"), Args(), [&] {
    form.skn.Picture = gRegistry->InstallDirectory + "Skin\\Zinc-blue2.bmp";
    form.skn.Enabled = true;
    form.Caption = "Lumaro Cleaning.";
    form.anm.Open(gRegistry->InstallDirectory + "Animations\\FINDCOMP.avi");
    form.anm.Play();
    form.anm.ToolTip = "Cleaning computer...";
    form.lblStatus.Caption = "Status: Loading up...";
    CurrentDesktop().Refresh(form.lblStatus);
    form.Position.Left = CurrentDesktop().ScreenSize().width * kTwipsPerPixel - form.Position.Width;
    form.Position.Top = ScreenHeight();
    form.tmrShowSettings.Interval = kTimerMilliseconds;
    form.tmrShowSettings.Enabled = true;
  });
}

void tmrShowSettings_Timer(frmCleanOnStartup& form) {
  Guarded(Here("tmrShowSettings_Timer"), Args(), [&] {
    int rest = ScreenHeight() - form.Position.Height - kGap;
    while (form.Position.Top > rest) Step(form, -kStep);
    form.tmrShowSettings.Enabled = false;
  });
}

void Form_Unload(frmCleanOnStartup& form) {
  Guarded(Here("Form_Unload"), Args(core::BuiltIn{"Built In"}), [&] {
    while (form.Position.Top < ScreenHeight()) Step(form, kStep);
  });
}

void lblStop_Click() {
  Guarded(Here("lblStop_Click"), Args(), [] { gAppRunning->StopProcess = true; });
}

void Wire(frmCleanOnStartup& form) {
  form.Load = [&form] { Form_Load(form); };
  form.Unload = [&form](int&) { Form_Unload(form); };
  form.tmrShowSettings.Tick = [&form] { tmrShowSettings_Timer(form); };
  form.lblStop.Click = lblStop_Click;
}

}  // namespace

core::FormSlot<frmCleanOnStartup>& CleanOnStartup() {
  static core::FormSlot<frmCleanOnStartup> slot(Wire);
  return slot;
}

}  // namespace lumaro
