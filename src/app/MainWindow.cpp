#include "app/MainWindow.h"

#include <initializer_list>
#include <utility>

#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "core/Keys.h"
#include "core/OpenForms.h"
#include "core/Run.h"
#include "core/m_SharedProcedures.h"
#include "lumaro/CleanOnStartup.h"
#include "pages/m_Controls.h"
#include "platform/LibRegistry.h"
#include "platform/Machine.h"
#include "settings/FormSettings.h"
#include "settings/m_Registry.h"

namespace app {

namespace {

using core::Args;
using core::BuiltIn;
using core::Guarded;
using platform::CurrentDesktop;

constexpr char kCaption[] = "Brasmir.";
constexpr char kProgram[] = "Brasmir.exe";
constexpr int kFilledLists = 7;

// The main window is to close, however long that may take: the unattended clean waits no longer.
bool closing = false;

core::Procedure Here(const char* procedure) {
  return {"frmMain", procedure};
}

void CleanUnattended(frmMain& form) {
  core::FormSlot<frmCleanOnStartup>& window = lumaro::CleanOnStartup();
  core::ShowForm(window.Get());
  CurrentDesktop().Refresh(window.Get());
  auto wait = [&](const char* status, int milliseconds) {
    if (closing) return false;
    if (frmCleanOnStartup* shown = window.Loaded()) {
      shown->lblStatus.Caption = status;
      CurrentDesktop().Refresh(shown->lblStatus);
    }
    CurrentDesktop().Sleep(milliseconds);
    return true;
  };
  if (wait("Status: Scanning directories...", 5000)) form.cmdScanComputerLumaro.Click();
  if (wait("Status: Cleaning directories...", 10000)) form.cmdCleanUpScanComputerLumaro.Click();
  wait("Status: Finished cleaning (Closing)...", 5000);
  if (frmCleanOnStartup* shown = window.Loaded()) {
    shown->anm.Stop();
    core::CloseForm(*shown);
  }
}

}  // namespace

void Form_Load(frmMain& form) {
  Guarded(Here("Form_Load"), Args(), [&] {
    closing = false;
    form.Caption = kCaption;
    form.skn.Picture = gRegistry->InstallDirectory + "Skin\\Zinc-blue2.bmp";
    form.HelpFile = gRegistry->InstallDirectory + "Help\\Tidorra.chm";
    form.ShowPage(form.fraWelcome);
    if (core::IsOne(gRegistry->EnableScheduleSch)) {
      form.ScheduleWasOnAtStart = true;
      form.imgUser[forms::ScheduleMark].Visible = true;
      form.lblScheduleStatus.Caption = "Brasmir is configured to run automatically...";
    }
    m_Controls::LoadMouseMenus(form, form.mnuFile);
    settings::AssignRegistrySettings(form);
    m_Registry::AssignCleaningStatus(form);
    for (controls::ListView* list :
         {&form.lvwExcludedFoldersBrasmir, &form.lvwDrivesBrasmir, &form.lvwBackupsBrasmir,
          &form.lvwFilesResultsBrasmir, &form.lvwFileFiltersBrasmir, &form.lvwPlugInLists,
          &form.lvwExcludedFilesBrasmir, &form.lvwUserDefinedFoldersLumaro})
      m_Controls::SetFlatHeaders(*list);
    if (core::IsOne(gRegistry->LoadOnWindowsStartupLmro)) {
      PutLumaroInSystemTray(form);
      if (core::IsOne(gRegistry->CleanOnWindowsStartupLmro)) CleanUnattended(form);
    }
  });
}

void Form_Activate(frmMain&) {
  Guarded(Here("Form_Activate"), Args(), [&] {
    // Once for each list that was filled.
    for (int list = 0; list < kFilledLists; ++list) CurrentDesktop().DoEvents();
    gAppRunning->AppIsLoaded = true;
  });
}

void Form_QueryUnload(frmMain& form, int& Cancel, int UnloadMode) {
  // Accepted before, and carried out when the run has unwound: what was saved then isn't saved over.
  if (closing) return;
  Guarded(Here("Form_QueryUnload"), Args(BuiltIn{}), [&] {
    settings::SaveRegistrySettings(form);
    m_Registry::SaveCleaningStatus();
    m_Registry::ReadRegistrySettings();
    if (!gAppRunning->AppIsLoaded || gAppRunning->AppRunning || gAppRunning->AppLoading) {
      Cancel = 1;
      return;
    }
    if (IsOpenForms()) {
      core::Tell(core::BoxIcon::Exclamation, "Open Windows",
                 {"Windows are open in the application.", "Close all Windows before closing Brasmir"});
      Cancel = 1;
      return;
    }
    // The end of the session waits for nobody.
    const platform::StoreState store = platform::CurrentMachine().Registry().State();
    if (store.health != platform::StoreHealth::Good && UnloadMode != 2) TellUnwritableStore(store);
    platform::LibRegistry registry;
    if (core::IsOne(gRegistry->LoadOnWindowsStartupLmro))
      registry.WriteValue(gRegistry->HKEY_CURRENT_USER, core::keys::kRun, "Brasmir",
                          gRegistry->InstallDirectory + kProgram);
    else
      registry.DeleteValue(gRegistry->HKEY_CURRENT_USER, core::keys::kRun, "Brasmir");
    if (core::IsOne(gRegistry->AddToSystemTrayLmro)) {
      PutLumaroInSystemTray(form);
      Cancel = 1;
    } else {
      Cancel = 0;
    }
  });
  if (UnloadMode == 2) Cancel = 0;
  if (Cancel != 0) return;
  closing = true;
  if (core::Run::OnStack()) gAppRunning->StopProcess = true;
}

void Form_Unload(frmMain& form) {
  Guarded(Here("Form_Unload"), Args(BuiltIn{}), [&] {
    const std::vector<controls::Form*> forms = core::OpenForms();
    for (controls::Form* other : forms)
      if (other != &form) core::CloseForm(*other, 2);
    gRegistry.reset();
    gAppRunning.reset();
    gCleaningStatus.reset();
    core::SetMainForm(nullptr);
  });
}

void Form_TrayDoubleClick(frmMain& form) {
  Guarded(Here("Form_MouseMove"), Args(BuiltIn{}), [&] {
    if (core::Run::OnStack()) return;
    CurrentDesktop().Activate(form);
    form.ShowPage(form.fraScanComputerLumaro);
    core::ShowForm(form);
    CurrentDesktop().Refresh(form);
    m_Registry::AssignCleaningStatus(form);
    form.lblMainMenu[forms::menu::Lumaro].Click();
    form.cmdScanComputerLumaro.Click();
  });
}

bool IsOpenForms() {
  return Guarded(Here("IsOpenForms"), Args(), [] {
    for (controls::Form* form : core::OpenForms()) {
      if (form == &core::MainForm()) continue;
      if (!form->Visible) core::ShowForm(*form);
      return true;
    }
    return false;
  });
}

void PutLumaroInSystemTray(frmMain& form) {
  Guarded(Here("PutLumaroInSystemTray"), Args(), [&] {
    if (CurrentDesktop().AddTrayIcon(form, form.imgMainMenu[forms::menu::Lumaro].Image, "Lumaro"))
      return core::HideForm(form);
    form.Visible = true;
    CurrentDesktop().Minimise(form);
  });
}

void cmdCloseApplication_Click(frmMain& form) {
  Guarded(Here("cmdCloseApplication_Click"), Args(), [&] { core::CloseForm(form); });
}

void TellUnwritableStore(const platform::StoreState& state) {
  core::Tell(core::BoxIcon::Exclamation, "Registry error",
             {"The settings of Brasmir can't be saved. What you change is lost when the program closes.",
              state.place, state.fault, state.advice});
}

void EndSession() {
  if (core::HasMainForm())
    core::CloseForm(core::MainForm(), 2);
  else
    CurrentDesktop().Quit();
}

void WireMainWindow(frmMain& form) {
  form.Load = [&form] { Form_Load(form); };
  form.Activate = [&form] { Form_Activate(form); };
  form.QueryUnload = [&form](int& Cancel, int UnloadMode) { Form_QueryUnload(form, Cancel, UnloadMode); };
  form.Unload = [&form](int&) { Form_Unload(form); };
  form.TrayDoubleClick = [&form] { Form_TrayDoubleClick(form); };
  form.cmdCloseApplication.Click = [&form] { cmdCloseApplication_Click(form); };
}

}  // namespace app
