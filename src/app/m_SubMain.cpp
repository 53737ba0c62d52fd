#include "app/m_SubMain.h"

#include "app/MainWindow.h"
#include "app/Wiring.h"
#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "core/Keys.h"
#include "core/OpenForms.h"
#include "core/m_SharedProcedures.h"
#include "platform/LibRegistry.h"
#include "platform/LibShell.h"
#include "platform/Machine.h"
#include "settings/Seed.h"
#include "settings/m_Registry.h"

namespace m_SubMain {

namespace {

using core::Args;
using core::BoxIcon;
using core::Guarded;

core::Procedure Here(const char* procedure) {
  return {"m_SubMain", procedure};
}

void WriteLoading(const char* flag) {
  platform::LibRegistry().WriteValue(c_Registry::HKEY_CURRENT_USER, core::keys::kBrasmir, "Loading", flag);
}

// Whether the program has no settings yet. A store that can't be read is left to the reading of the settings.
bool IsFreshStore() {
  try {
    return !settings::HasSettings();
  } catch (...) {
    return false;
  }
}

void LoadMainWindow() {
  auto form = std::make_unique<frmMain>();
  core::SetMainForm(form.get());
  app::WireAll(*form);
  core::LoadForm(std::move(form), [] { core::SetMainForm(nullptr); });
}

}  // namespace

void Main(const Startup& startup) {
  // A close that arrives while the main window loads is carried out when the start is through with it.
  controls::EventDepth start;
  Guarded(
      Here("Main"), Args(),
      [&] {
        gAppRunning = std::make_unique<c_AppRunning>();
        gRegistry = std::make_unique<c_Registry>();
        gCleaningStatus = std::make_unique<c_CleaningStatus>();
        CheckScreenResolution();
        gAppRunning->AppLoading = true;
        if (platform::CurrentMachine().GetProcesses().ClaimInstance("Brasmir")) {
          const bool fresh = IsFreshStore();
          const bool seeded = !fresh || settings::Seed(startup.firstTimeSettings, startup.installDirectory);
          // A flag in a store without settings would make it look like one with settings.
          if (seeded) WriteLoading("1");
          if (!seeded || !m_Registry::ReadRegistrySettings()) {
            core::Tell(BoxIcon::Critical, "Registry error",
                       {"Error retrieving the registry settings for Brasmir",
                        "Reinstall Tidorra to correct the settings", "Brasmir will shutdown!"});
          } else {
            if (startup.installFiles && !gRegistry->InstallDirectory.empty())
              startup.installFiles(gRegistry->InstallDirectory, fresh);
            LoadMainWindow();
            if (core::ToNumber(gRegistry->LoadOnWindowsStartupLmro) == 0) core::ShowForm(core::MainForm());
          }
          if (seeded) WriteLoading("0");
        }
        gAppRunning->AppLoading = false;
      },
      [&] {
        // A main window that nobody can see would keep the process alive for ever, and one that is thought to
        // be loading could never be closed.
        WriteLoading("0");
        if (gAppRunning) gAppRunning->AppLoading = false;
        if (core::HasMainForm() && !core::MainForm().Visible) core::ShowForm(core::MainForm());
      });
}

void CheckScreenResolution() {
  Guarded(Here("CheckScreenResolution"), Args(), [] {
    if (platform::CurrentDesktop().ScreenSize().width != 640) return;
    if (core::Ask(BoxIcon::Exclamation, "Screen resolution",
                  {"You are using Low Screen Resolution:", "Current: 640*480",
                   "For Tidorra to work properly, change to Resolution: 800*600", "",
                   "Would you like to change screen resolution?"}))
      platform::LibShell().SetScreenResolution(800, 600);
  });
}

}  // namespace m_SubMain
