// The scan of a million files and the opening of its results in the program's real window.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <string>

#include "Bench.h"
#include "ScanSettings.h"
#include "forms/frmMain.h"
#include "platform/Listings.h"
#include "play/Driver.h"
#include "play/Player.h"
#include "program/Program.h"

namespace fs = std::filesystem;

namespace {

// The longest time between two looks at what the user does.
class Gaps {
 public:
  Gaps() {
    play::driver::When([this] { return Look(); }, [] {});
  }
  void Restart() {
    longest_ = {};
    last_ = Clock::now();
  }
  double Longest() {
    Look();
    return std::chrono::duration<double, std::milli>(longest_).count();
  }

 private:
  using Clock = std::chrono::steady_clock;
  bool Look() {
    Clock::time_point now = Clock::now();
    longest_ = std::max(longest_, now - last_);
    last_ = now;
    return false;
  }
  Clock::time_point last_ = Clock::now();
  Clock::duration longest_{};
};

void PrintGap(const char* name, double longest) {
  std::printf("%s %.0f 100 %s  (ms without a look at the user's input)\n", name, longest,
              longest <= 100 ? "ok" : "SLOW");
  std::fflush(stdout);
}

// A data folder with the same drive, as at a user's first start.
std::string WithSettingsOfItsOwn(const fs::path& drive) {
  fs::path data = drive.parent_path().parent_path().parent_path() / "window";
  fs::remove_all(data);
  fs::create_directories(data / "drives");
  fs::create_directory_symlink(drive, data / "drives/c:");
  return data;
}

void Measure(const std::string& root, const std::string& native) {
  play::Player player;
  frmMain& form = player.Form();
  player.OpenScanPage();
  // The page has read the settings by now.
  bench::StoreScanSettings(root);
  bench::SetScanOptions();
  Gaps gaps;
  double longest = 0;
  // A user waits for a button to stand still before the click; that isn't the program's time.
  auto awaitButton = [&](const char* name) {
    play::driver::Stillness still;
    player.Await(name,
                 [&] { return form.Reachable(*form.Find(name)) && still.Reached(play::driver::Find(name)); });
  };
  auto scan = [&] {
    form.ScanHasRun = false;
    gaps.Restart();
    play::driver::Click("cmdScanComputerBrasmir");
    player.Await("the end of the scan", [&] { return form.ScanHasRun; });
    player.AwaitRest();
    longest = std::max(longest, gaps.Longest());
  };
  auto beforeScan = [&] { awaitButton("cmdScanComputerBrasmir"); };
  auto find = [&] { bench::Run("find " + native + " -type f > /dev/null"); };
  gRegistry->IncludeZeroByteFilesBrsm.assign(1, '0');
  bench::Compare("Window-scan", 1.8, find, scan, 5, beforeScan);
  gRegistry->IncludeZeroByteFilesBrsm.assign(1, '1');
  bench::Compare("Window-scan-with-zero-byte-files", 1.8, find, scan, 5, beforeScan);
  PrintGap("Window-scan-longest-gap", longest);

  gGarbageFiles.Reset();
  platform::LibDriveScan().ScanTree(root, gGarbageFiles);
  longest = 0;
  bench::Compare(
      "Window-results", 2.0, [&] { bench::Run("find " + native + " -type f -printf '%s\\n' > /dev/null"); },
      [&] {
        gaps.Restart();
        player.OpenResults();
        longest = std::max(longest, gaps.Longest());
      },
      3, [&] { player.OpenScanPage(); });
  PrintGap("Window-results-longest-gap", longest);
  std::printf("Window-results-rows %d\n", form.lvwFilesResultsBrasmir.Count());
  player.Close();
}

}  // namespace

int main(int, char** argv) {
  std::string root, native, data;
  {
    bench::Computer computer;
    root = computer.Tree();
    native = bench::Quoted(computer.Native(root));
    data = WithSettingsOfItsOwn(computer.Native("C:"));
  }
  char* arguments[] = {argv[0], nullptr};
  return program::Run(
      {.computer = {.dataFolder = data, .userName = "User", .shareFolder = computer::ShareFolder()},
       .started = [&] { Measure(root, native); }},
      1, arguments);
}
