// Removing ticked results by plain deletion.
#include <algorithm>
#include <chrono>
#include <fstream>
#include <string>

#include "Pump.h"
#include "clean/Wire.h"
#include "core/m_SharedProcedures.h"
#include "forms/frmMain.h"
#include "platform/LibFile.h"
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

}  // namespace

int main() {
  bench::Computer computer;
  bench::PumpingDesktop desktop;
  SetCurrentDesktop(&desktop);
  gAppRunning = std::make_unique<c_AppRunning>();
  gCleaningStatus = std::make_unique<c_CleaningStatus>();
  gRegistry = std::make_unique<c_Registry>();
  gRegistry->MoveFilesToRecyclebinBrsm = gRegistry->EraseFilesBrsm = gRegistry->ConfirmCleaningBrsm = "0";
  gRegistry->UseBackupBrsm = gRegistry->DeleteOnWindowsStartupBrsm = "0";
  frmMain form;
  scan::WireScan(form);
  clean::WireClean(form);
  form.cboSelectResultsBrasmir.AddItem("Garbage files");
  form.cboSelectResultsBrasmir.SetListIndex(0);

  std::string list = computer.Machine().DataFolder() + "/delete-list";
  double longest = 0;
  auto prepare = [&](int count, int others) {
    CountedList files = computer.Files(count);
    std::ofstream names(list, std::ios::binary);
    for (int i = 0; i < files.UpperBound(); ++i) names << computer.Native(files[i]) << '\0';
    names.close();
    bench::Run("sync");
    FillRows(form, files, others);
  };
  auto remove = [&] { bench::Run("xargs -0 rm < " + bench::Quoted(list)); };
  auto clean = [&] {
    desktop.Restart();
    form.cmdDeleteResultsBrasmir.Click();
    longest = std::max(longest, desktop.LongestGap());
    if (form.lvwFilesResultsBrasmir.CheckedCount() != 0) std::exit(1);
  };

  bench::Compare("Clean-100000", 1.5, remove, clean, 3, [&] { prepare(100'000, 0); });
  bench::Compare("Clean-100000-of-a-million-rows", 1.5, remove, clean, 2, [&] { prepare(100'000, 900'000); });
  std::printf("Clean-longest-gap %.0f 100 %s  (ms without a pump)\n", longest,
              longest <= 100 ? "ok" : "SLOW");

  // Twice as many rows take twice as long.
  auto seconds = [&](int count) {
    double best = 1e9;
    for (int i = 0; i < 3; ++i) {
      prepare(count, 0);
      auto start = std::chrono::steady_clock::now();
      clean();
      best = std::min(best, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }
    return best;
  };
  double once = seconds(100'000), twice = seconds(200'000);
  std::printf("Clean-200000-against-100000 %.2f 2.20 %s  (%.3f s, %.3f s)\n", twice / once,
              twice <= 2.2 * once ? "ok" : "SLOW", twice, once);
  gAppRunning.reset();
  gRegistry.reset();
}
