// Lumaro's scan and run by its page.
#include "Sample.h"
#include "Scenarios.h"
#include "core/Numbers.h"
#include "core/Run.h"
#include "core/m_SharedProcedures.h"

namespace fs = std::filesystem;
using program::Player;

namespace e2e {

namespace {

// Lumaro's run by its page: scan, clean, closing counts, links out of Temp.
int Lumaro() {
  Sample sample;
  sample.Run([&](Player& player) {
    frmMain& form = player.Form();
    player.Click("lblMainMenu(1)");
    player.AwaitPage(form.fraScanComputerLumaro);
    player.Click("cmdScanComputerLumaro");
    player.Await("the end of the scan", [&] {
      return form.lblProcessInfoScanComputerLumaro.Caption == "Process: Finished scanning computer";
    });
    Check(core::ToNumber(form.lblTempFolderScanComputerLumaro.Caption.Get()) > 200, "Temp is measured");
    player.Answer("Yes");
    player.Click("cmdCleanUpScanComputerLumaro");
    player.Await("the end of the cleaning", [&] {
      return form.lblProcessInfoScanComputerLumaro.Caption == "Process: Finished cleaning computer" &&
             !core::Run::OnStack();
    });
    Check(form.lblTempFolderScanComputerLumaro.Caption == "1",
          "Temp holds but the read-only file that is skipped: " +
              form.lblTempFolderScanComputerLumaro.Caption.Get());
    Check(gCleaningStatus->FilesDeleted > 200, "the files are counted");
    player.Close();
  });
  Check(Listing(sample.Temp()) == std::map<std::string, long>{{"read-only.tmp", 2000}},
        "the rest of Temp is gone");
  Check(fs::exists(sample.data / "outside/keep me.tmp"), "what a link led to is there");
  return Failures();
}

}  // namespace

std::vector<Scenario> LumaroScenarios() {
  return {{"lumaro", Lumaro}};
}

}  // namespace e2e
