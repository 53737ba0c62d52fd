// The main module: from scan to clean, and how the program ends.
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

#include "Hands.h"
#include "Sample.h"
#include "Scenarios.h"
#include "core/Keys.h"
#include "core/Run.h"
#include "core/m_SharedProcedures.h"
#include "platform/Machine.h"
#include "play/Driver.h"
#include "program/Program.h"

namespace fs = std::filesystem;
namespace keys = core::keys;
using play::Player;

namespace e2e {

namespace {

// By which check box of the cleaning page, and what must have become of the files.
int CleanBy(controls::CheckBox forms::CleaningBrasmirPage::*box, bool filesInBin) {
  Sample sample;
  auto system = Listing(sample.Drive() / "Windows/System32");
  int rows = 0;
  sample.Run([&](Player& player) {
    frmMain& form = player.Form();
    if ((form.*box).Value == 0)
      player.SetOption(form.lblCleaningOptionsBrasmir, form.fraCleaningBrasmir, form.*box, 1);
    player.OpenScanPage();
    player.Scan();
    rows = gGarbageFiles.UpperBound();
    player.OpenResults();
    Check(form.lvwFilesResultsBrasmir.Count() == rows, "every finding has its row");
    player.CleanAll();
    Check(gCleaningStatus->FilesDeleted == rows, "every file counts as deleted");
    Check(form.lvwFilesResultsBrasmir.Count() == 0, "no row is left");
    player.Close();
  });
  Check(rows > 100, "the scan found the garbage");
  Check(!fs::exists(sample.Temp() / "hidden.tmp"), "a hidden file is gone");
  // The first settings skip read-only files; one that also has the system bit isn't skipped.
  Check(fs::exists(sample.Temp() / "read-only.tmp"), "a read-only file is skipped");
  Check(!fs::exists(sample.Temp() / "read-only-system.tmp"), "a read-only system file is gone");
  CheckTheRestStands(sample, system);
  Check(sample.InBin() == (filesInBin ? rows : 0), "the bin holds what it should");
  Check(sample.Stored(keys::kCleaningStatus, "Files deleted") == std::to_string(rows),
        "the statistics are stored");
  return Failures();
}

// Stop in the middle of a scan, and no starter works while the scan winds down.
int StopScan() {
  Sample sample(30000);
  sample.Run([&](Player& player) {
    frmMain& form = player.Form();
    player.OpenScanPage();
    // Every other starter, while the scan is on the stack: before Stop is pressed, and after it where the
    // scan is still winding down.
    auto tryStarters = [&form] {
      form.cmdScanComputerLumaro.Click();
      form.cmdCleanUpScanComputerLumaro.Click();
      form.cmdDeleteResultsBrasmir.Click();
      form.cmdRunPlugIns.Click();
    };
    player.When([&form] { return form.prgScanComputerProgressBrasmir.Value > 500; },
                [&player, tryStarters] {
                  tryStarters();
                  player.When([] { return gAppRunning && gAppRunning->StopProcess; },
                              [tryStarters] {
                                if (core::Run::OnStack()) tryStarters();
                              });
                  play::driver::Click("cmdScanComputerBrasmir");
                });
    player.Scan();
    Check(gAppRunning->StopProcess, "the stop was taken");
    Check(gGarbageFiles.UpperBound() > 0 && gGarbageFiles.UpperBound() < 30000,
          "what was found by then is kept");
    Check(form.cmdScanComputerBrasmir.Caption == "Scan computer", "the button starts again");
    Check(form.lblProcessInfoScanComputerBrasmir.Caption == "Process: Finished scanning computer",
          "the scan says so");
    Check(form.lblTempFolderScanComputerLumaro.Caption == "" ||
              form.lblTempFolderScanComputerLumaro.Caption == "0",
          "no second run has measured anything");
    player.OpenResults();
    Check(form.lvwFilesResultsBrasmir.Count() == gGarbageFiles.UpperBound(), "the results can be viewed");
    player.Close();
  });
  return Failures();
}

int StopClean() {
  Sample sample(30000);
  sample.Run([&](Player& player) {
    frmMain& form = player.Form();
    DeleteDirectly(player);
    player.Scan();
    player.OpenResults();
    int rows = form.lvwFilesResultsBrasmir.Count();
    player.When([&] { return form.prgProgressResultsBrasmir.Value > 50; },
                [&] { play::driver::Click("cmdDeleteResultsBrasmir"); });
    player.CleanAll();
    int left = form.lvwFilesResultsBrasmir.Count();
    Check(left > 0 && left < rows,
          "some rows are gone and some are left: " + std::to_string(left) + " of " + std::to_string(rows));
    Check(form.lvwFilesResultsBrasmir.CheckedCount() == left, "what is left is still ticked");
    Check(gGarbageFiles.UpperBound() == left, "the list is what the rows are");
    Check(gCleaningStatus->FilesDeleted == rows - left, "what went is counted");
    for (int row = 1; row <= left; ++row)
      if (platform::CurrentMachine().Files().Look(form.lvwFilesResultsBrasmir.Path(row)).kind ==
          platform::EntryKind::Missing) {
        Check(false, "a row that is left has its file: " + form.lvwFilesResultsBrasmir.Path(row));
        break;
      }
    player.Close();
  });
  return Failures();
}

// A change survives a kill right after its page was left, and a second instance touches nothing meanwhile.
int KillAfterLeaving() {
  Sample sample;
  pid_t child = fork();
  if (child == 0) {
    sample.Run([&](Player& player) {
      frmMain& form = player.Form();
      player.SetOption(form.lblIncludeOptionsBrasmir, form.fraIncludeBrasmir,
                       form.chkZeroByteFilesIncludeBrasmir, 6);
      std::string store = ReadAll(sample.data / "registry.sqlite");
      pid_t second = fork();
      if (second == 0) {
        execl("/proc/self/exe", "whole_program", "second-instance", sample.data.c_str(), nullptr);
        _exit(1);
      }
      int status = 1;
      waitpid(second, &status, 0);
      bool silent = WIFEXITED(status) && WEXITSTATUS(status) == 0;
      if (!silent || store != ReadAll(sample.data / "registry.sqlite")) _exit(4);
      kill(getpid(), SIGKILL);
    });
    _exit(5);
  }
  int status = 0;
  waitpid(child, &status, 0);
  Check(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL,
        "the second instance ended silently and the first was killed: " + std::to_string(status));
  Check(sample.Stored(keys::kInclude, "Zero byte files") == "1", "the option is stored");
  return Failures();
}

// The end of the session is never refused: in the middle of a scan it ends the program, with all settings
// saved.
int SessionEnd() {
  Sample sample(30000);
  sample.RunAside([&](Player& player) {
    frmMain& form = player.Form();
    player.OpenScanPage();
    player.Click("cmdOptionsBrasmir");
    player.AwaitPage(form.fraOptionsBrasmir);
    player.Click("lblIncludeOptionsBrasmir");
    player.AwaitPage(form.fraIncludeBrasmir);
    player.Click("chkZeroByteFilesIncludeBrasmir");
    player.Await("the tick", [&] { return form.chkZeroByteFilesIncludeBrasmir.Value == 1; });
    // Not saved by leaving the page: only the close saves it.
    player.When([&] { return form.prgScanComputerProgressBrasmir.Value > 100; }, [] { raise(SIGTERM); });
    form.cmdScanComputerBrasmir.Click();
  });
  Check(sample.Stored(keys::kInclude, "Zero byte files") == "1", "the settings are saved");
  Check(sample.Stored(keys::kCleaningStatus, "Total times used") == "1", "the use is counted");
  return Failures();
}

}  // namespace

std::vector<Scenario> BrasmirScenarios() {
  return {
      {"delete", [] { return CleanBy(&frmMain::chkDeleteFilesCleaningBrasmir, false); }},
      {"recycle-bin", [] { return CleanBy(&frmMain::chkRecycleBinCleaningBrasmir, true); }},
      {"erase", [] { return CleanBy(&frmMain::chkEraseFilesCleaningBrasmir, false); }},
      {"stop-scan", StopScan},
      {"stop-clean", StopClean},
      {"kill-after-leaving", KillAfterLeaving},
      {"session-end", SessionEnd},
  };
}

}  // namespace e2e
