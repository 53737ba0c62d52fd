// A whole scan of a million files: forty filters of which twenty are selected, ten exclusions, with and
// without zero-byte files.
#include <string>

#include "Pump.h"
#include "ScanSettings.h"
#include "core/m_SharedProcedures.h"
#include "forms/frmMain.h"
#include "scan/Wire.h"

using namespace platform;

int main() {
  bench::Computer computer;
  bench::PumpingDesktop desktop;
  SetCurrentDesktop(&desktop);
  std::string root = computer.Tree(), native = bench::Quoted(computer.Native(root));
  bench::StoreScanSettings(root);

  gAppRunning = std::make_unique<c_AppRunning>();
  gRegistry = std::make_unique<c_Registry>();
  bench::SetScanOptions();
  frmMain form;
  scan::WireScan(form);

  auto scan = [&] { form.cmdScanComputerBrasmir.Click(); };
  auto find = [&] { bench::Run("find " + native + " -type f > /dev/null"); };
  auto findEmpty = [&] { bench::Run("find " + native + " -type f -size 0 > /dev/null"); };
  gRegistry->IncludeZeroByteFilesBrsm = "0";
  bench::Compare("Scan", 1.8, find, scan);
  // Telling an empty file takes a look at each, which a plain find doesn't take.
  gRegistry->IncludeZeroByteFilesBrsm = "1";
  bench::Compare("Scan-with-zero-byte-files", 1.8, find, scan);
  bench::Compare("Scan-with-zero-byte-files-against-find-size-0", 1.8, findEmpty, scan, 3);
  gAppRunning.reset();
  gRegistry.reset();
}
