// Removing ticked results by plain deletion.
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "Pump.h"
#include "clean/Wire.h"
#include "core/m_SharedProcedures.h"
#include "forms/frmMain.h"
#include "scan/Wire.h"

using namespace platform;

namespace {

// Rows for files that are there, all ticked, and in front of them rows for `others` that are not.
void FillRows(frmMain& form, const CountedList& files, int others) {
  controls::ListView& rows = form.lvwFilesResultsBrasmir;
  auto add = [&](std::string_view folder, std::string_view name, bool ticked) {
    int row = rows.AddRow(name, 2);
    rows.SetSubItem(row, 1, folder);
    rows.SetSubItem(row, 2, "7");
    rows.SetChecked(row, ticked);
  };
  rows.Clear();
  for (int i = 0; i < others; ++i) add("C:\\Elsewhere\\Deeper\\", "file " + std::to_string(i), false);
  for (int i = 0; i < files.UpperBound(); ++i)
    add(files.FolderText(files.FolderOf(i)), files.NameText(i), true);
  gGarbageFiles.Reset();
}

void BeginSession() {
  gAppRunning = std::make_unique<c_AppRunning>();
  gCleaningStatus = std::make_unique<c_CleaningStatus>();
  gRegistry = std::make_unique<c_Registry>();
  gRegistry->MoveFilesToRecyclebinBrsm = gRegistry->EraseFilesBrsm = gRegistry->ConfirmCleaningBrsm = "0";
  gRegistry->UseBackupBrsm = gRegistry->DeleteOnWindowsStartupBrsm = "0";
}

}  // namespace

int main() {
  bench::Computer computer;
  bench::PumpingDesktop desktop;
  SetCurrentDesktop(&desktop);
  BeginSession();
  frmMain form;
  scan::WireScan(form);
  clean::WireClean(form);
  form.cboSelectResultsBrasmir.AddItem("Garbage files");
  form.cboSelectResultsBrasmir.SetListIndex(0);

  constexpr int kFiles = 100'000, kRounds = 3, kSets = kRounds + 1;
  std::vector<CountedList> ours;
  std::vector<std::string> theirs;
  for (int set = 0; set < kSets; ++set) {
    ours.push_back(computer.Files("Ours" + std::to_string(set), kFiles));
    CountedList files = computer.Files("Theirs" + std::to_string(set), kFiles);
    theirs.push_back(computer.Machine().DataFolder() + "/clean-list-" + std::to_string(set));
    std::ofstream names(theirs.back(), std::ios::binary);
    for (int i = 0; i < kFiles; ++i) names << computer.Native(files[i]) << '\0';
  }
  CountedList twice = computer.Files("Twice", 2 * kFiles);

  double longest = 0, best = 1e9;
  int theirSet = 0, ourSet = 0;
  auto remove = [&] {
    bench::Run("xargs -0 rm < " + bench::Quoted(theirs[static_cast<std::size_t>(theirSet++)]));
  };
  // The time of the run alone; the rows are there by then.
  auto clean = [&] {
    auto start = std::chrono::steady_clock::now();
    desktop.Restart();
    form.cmdDeleteResultsBrasmir.Click();
    longest = std::max(longest, desktop.LongestGap());
    if (form.lvwFilesResultsBrasmir.CheckedCount() != 0) std::exit(1);
    best = std::min(best, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
  };
  auto fill = [&](int others) {
    if (ourSet < kSets) FillRows(form, ours[static_cast<std::size_t>(ourSet)], others);
  };

  bench::Compare(
      "Clean-100000", 1.5, remove,
      [&] {
        clean();
        ++ourSet;
      },
      kRounds, [&] { fill(0); });
  double once = best;
  bench::Compare("Clean-100000-of-a-million-rows", 1.5, remove, clean, 1, [&] { fill(900'000); });
  FillRows(form, twice, 0);
  best = 1e9;
  clean();
  std::printf("Clean-200000-against-100000 %.2f 2.20 %s  (%.3f s, %.3f s)\n", best / once,
              best <= 2.2 * once ? "ok" : "SLOW", best, once);
  std::printf("Clean-longest-gap %.0f 100 %s  (ms without a pump)\n", longest,
              longest <= 100 ? "ok" : "SLOW");
  gAppRunning.reset();
  gRegistry.reset();
}
