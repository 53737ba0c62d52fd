// The start with Windows: into the tray, with a cleaning that nobody attends.
#include <algorithm>
#include <csignal>
#include <memory>
#include <set>

#include "LumaroPlay.h"
#include "Sample.h"
#include "Scenarios.h"
#include "TrayHost.h"
#include "core/Keys.h"
#include "core/Run.h"
#include "core/m_SharedProcedures.h"
#include "lumaro/CleanOnStartup.h"
#include "platform/Desktop.h"
#include "play/Driver.h"

namespace fs = std::filesystem;
namespace driver = play::driver;
using play::Player;

namespace e2e {

namespace {

using controls::kTwipsPerPixel;

// Chooses both by their pages; the program ends.
void ChooseStartUp(Sample& sample) {
  sample.RunAside([&](Player& player) {
    frmMain& form = player.Form();
    LumaroPlay lumaro(player);
    lumaro.OpenPage();
    lumaro.Choose({{&form.chkLoadOnWindowsStartupOptionsLumaro, 1}},
                  {{&form.chkCleanOnWindowsStartupAdvancedLumaro, 1},
                   {&form.chkDeleteFilesAdvancedLumaro, 1},
                   {&form.chkConfirmCleaningAdvancedLumaro, 0}});
    player.Close();
  });
  Check(sample.Stored(core::keys::kRun, "Brasmir") == "C:\\Program Files\\Tidorra\\Brasmir.exe",
        "Windows is told to start the program");
}

// The window that accompanies the cleaning is up and has done its way.
bool AtRest() {
  frmCleanOnStartup* window = lumaro::CleanOnStartup().Loaded();
  return window && window->Visible && !window->tmrShowSettings.Enabled;
}

// What was seen of the start, from its frames.
struct Seen {
  bool mainWindow = false;
  bool slidIn = false;
  bool inItsCorner = false;
  std::set<std::string> statuses;
  void Look() {
    mainWindow = mainWindow || driver::FindTop("Brasmir.");
    wxTopLevelWindow* window = driver::FindTop("Lumaro Cleaning.");
    if (!window || !AtRest()) return;
    slidIn = true;
    statuses.insert(lumaro::CleanOnStartup().Loaded()->lblStatus.Caption);
    platform::Size screen = platform::CurrentDesktop().ScreenSize();
    wxRect place = window->GetScreenRect();
    int above = screen.height - place.GetBottom() - 1;
    inItsCorner = inItsCorner || (place.GetRight() + 1 == screen.width && above >= 400 / kTwipsPerPixel &&
                                  above <= 400 / kTwipsPerPixel + 50 / kTwipsPerPixel + 1);
  }
};

int StartUpClean() {
  Sample sample(5000);
  auto system = Listing(sample.Drive() / "Windows/System32");
  ChooseStartUp(sample);
  Check(fs::exists(sample.Temp() / "bulk"), "nothing is cleaned yet");
  TrayHost tray;
  auto seen = std::make_shared<Seen>();
  sample.Start(
      [&] {
        driver::When(
            [seen] {
              // Until the start is through.
              if (gAppRunning && gAppRunning->AppLoading) seen->Look();
              return false;
            },
            [] {});
      },
      [&] {
        Check(!driver::FindTop("Brasmir.") && !driver::FindTop("Lumaro Cleaning."), "no window is there");
        Check(Listing(sample.Temp()) == std::map<std::string, long>{{"read-only.tmp", 2000}},
              "Temp is cleaned by the time that the start is through");
        Check(gCleaningStatus->FilesDeleted > 5000, "the files are counted");
        driver::WaitFor([&] { return tray.Notes().find("icon\n") != std::string::npos; });
        Check(tray.Notes().find("window Brasmir.") == std::string::npos, "the main window was never shown");
        // The end of the session is the one thing that ends a program which sits in the tray.
        std::raise(SIGTERM);
      });
  Check(!seen->mainWindow, "no frame showed the main window");
  Check(seen->slidIn, "the small window slid in");
  Check(seen->inItsCorner, "it rested in its corner");
  Check(seen->statuses.count("Status: Cleaning directories...") == 1, "it told what it was about");
  CheckTheRestStands(sample, system);
  return Failures();
}

}  // namespace

std::vector<Scenario> StartUpScenarios() {
  return {{"start-up-clean", StartUpClean}};
}

}  // namespace e2e
