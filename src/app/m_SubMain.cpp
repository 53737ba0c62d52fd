#include "app/m_SubMain.h"

#include "app/MainWindow.h"
#include "app/Wiring.h"
#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "core/Keys.h"
#include "core/OpenForms.h"
#include "core/m_SharedProcedures.h"
#include "platform/LibPath.h"
#include "platform/LibRegistry.h"
#include "platform/LibShell.h"
#include "platform/Machine.h"
#include "platform/Operations.h"
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

// Without the drive that the program's own files belong on, there is nothing to start.
bool HasDriveOf(const std::string& installDirectory) {
  const std::string root = platform::LibPath().GetDriveRoot(installDirectory);
  if (platform::ops::IsFolder(root)) return true;
  core::Tell(BoxIcon::Critical, "Drive error",
             {"There is no drive " + root.substr(0, 1) + " on this computer",
              "Brasmir and its settings belong on that drive", "Brasmir will shutdown!"});
  return false;
}

// A store that can't be read is named, and is no store to start with; one that can't be written is told once,
// for changes would go without a word.
bool IsStoreUsable() {
  const platform::StoreState state = platform::CurrentMachine().Registry().State();
  if (!platform::IsReadable(state.health)) {
    core::Tell(BoxIcon::Critical, "Registry error",
               {"Error retrieving the registry settings for Brasmir", state.place, state.fault, state.advice,
                "Brasmir will shutdown!"});
    return false;
  }
  if (state.health == platform::StoreHealth::ReadOnly) app::TellUnwritableStore(state);
  return true;
}

void LoadMainWindow() {
  auto form = std::make_unique<frmMain>();
  core::SetMainForm(form.get());
  app::WireAll(*form);
  core::LoadForm(std::move(form), [] { core::SetMainForm(nullptr); });
}

// Fills the cache from the store and loads the main window. False if there are no settings to be had.
bool LoadProgram(const Startup& startup, bool fresh) {
  if (!m_Registry::ReadRegistrySettings()) return false;
  if (startup.installFiles && !gRegistry->InstallDirectory.empty())
    startup.installFiles(gRegistry->InstallDirectory, fresh);
  LoadMainWindow();
  if (core::ToNumber(gRegistry->LoadOnWindowsStartupLmro) == 0) core::ShowForm(core::MainForm());
  return true;
}

// The same behind the settings of a first start, with the "Loading" flag up meanwhile. Tells what fails.
bool StartUp(const Startup& startup) {
  const bool fresh = IsFreshStore();
  const bool seeded = !fresh || settings::Seed(startup.firstTimeSettings, startup.installDirectory);
  // A flag in a store without settings would make it look like one with settings.
  if (seeded) WriteLoading("1");
  const bool loaded = seeded && LoadProgram(startup, fresh);
  if (!loaded)
    core::Tell(BoxIcon::Critical, "Registry error",
               {"Error retrieving the registry settings for Brasmir",
                "Reinstall Tidorra to correct the settings", "Brasmir will shutdown!"});
  if (seeded) WriteLoading("0");
  return loaded;
}

}  // namespace

int Main(const Startup& startup) {
  int exitCode = 0;
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
        if (platform::CurrentMachine().GetProcesses().ClaimInstance("Brasmir") &&
            !(HasDriveOf(startup.installDirectory) && IsStoreUsable() && StartUp(startup)))
          exitCode = 1;
        gAppRunning->AppLoading = false;
      },
      [&] {
        // A main window that nobody can see would keep the process alive for ever, and one that is thought to
        // be loading could never be closed.
        WriteLoading("0");
        if (gAppRunning) gAppRunning->AppLoading = false;
        if (core::HasMainForm() && !core::MainForm().Visible) core::ShowForm(core::MainForm());
      });
  return exitCode;
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
