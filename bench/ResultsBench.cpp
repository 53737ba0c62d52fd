// Opening the results with a million rows, and narrowing them.
#include <string>

#include "Pump.h"
#include "core/m_SharedProcedures.h"
#include "forms/frmMain.h"
#include "platform/Listings.h"
#include "scan/Wire.h"

using namespace platform;

int main() {
  bench::Computer computer;
  bench::PumpingDesktop desktop;
  SetCurrentDesktop(&desktop);
  std::string root = computer.Tree();
  LibDriveScan().ScanTree(root, gGarbageFiles);

  gRegistry = std::make_unique<c_Registry>();
  gRegistry->IncludeZeroByteFilesBrsm = gRegistry->IncludeInvalidShortcutsBrsm = "0";
  gRegistry->MoveFilesToRecyclebinBrsm = gRegistry->DeleteFilesBrsm = gRegistry->EraseFilesBrsm = "0";
  gRegistry->UseBackupBrsm = "0";
  frmMain form;
  scan::WireScan(form);

  std::string sizes = "find " + bench::Quoted(computer.Native(root)) + " -type f -printf '%s\\n' > /dev/null";
  double longest = 0;
  bench::Compare(
      "Results", 2.0, [&] { bench::Run(sizes); },
      [&] {
        desktop.Restart();
        form.cmdViewResultsScanComputerBrasmir.Click();
        longest = std::max(longest, desktop.LongestGap());
      },
      3);
  bench::Compare(
      "Results-narrowed", 2.0, [&] { bench::Run(sizes); },
      [&] {
        // A part of every folder's name, so that all rows stay.
        form.txtSortResultsBrasmir.Text = "TREE";
        desktop.Restart();
        form.lblSortListResultsBrasmir.Click();
        longest = std::max(longest, desktop.LongestGap());
      },
      3);
  std::printf("Results-longest-gap %.0f 100 %s  (ms without a pump, %d rows)\n", longest,
              longest <= 100 ? "ok" : "SLOW", form.lvwFilesResultsBrasmir.Count());
  gRegistry.reset();
}
