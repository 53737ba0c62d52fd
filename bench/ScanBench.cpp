// A whole scan of a million files: forty filters of which twenty are selected, ten exclusions, with and
// without zero-byte files.
#include <string>

#include "Pump.h"
#include "core/Keys.h"
#include "core/m_SharedProcedures.h"
#include "forms/frmMain.h"
#include "platform/LibRegistry.h"
#include "scan/Wire.h"

using namespace platform;
namespace keys = core::keys;

namespace {

void Store(const std::string& root) {
  LibRegistry registry;
  RegistryTransaction transaction;
  auto write = [&](const char* key, const std::string& name, const std::string& data) {
    registry.WriteValue(kCurrentUser, key, name, data);
  };
  for (const char* key : {keys::kDrives, keys::kSelectedDrives, keys::kFileFilters,
                          keys::kSelectedFileFilters, keys::kExcludedDirectories, keys::kExcludedFiles})
    registry.DeleteAllValues(kCurrentUser, key);
  write(keys::kDrives, root, "Fixed Drive");
  write(keys::kSelectedDrives, root, "True");
  // A tenth of the files match a selected filter and two tenths another one.
  const char* selected[] = {".tmp", "~$",   "thumbs.db", ".chk", ".gid", ".fts",        ".dmp",
                            ".err", ".wbk", ".syd",      ".prv", ".sik", "desktop.ini", ".log1",
                            ".000", ".001", "cache",     ".lo_", ".nch", ".pch"};
  const char* others[] = {".bak",      ".old", ".sup", ".ilk", ".obj", ".sbr", ".ncb",
                          ".aps",      ".bsc", ".da0", ".mtx", ".ftg", ".ftx", ".cpy",
                          "debug.txt", ".@@@", ".^^^", ".b~k", ".$$$", ".xlk"};
  for (int i = 0; i < 20; ++i) {
    for (const char* filter : {selected[i], others[i]}) write(keys::kFileFilters, filter, "User Defined");
    write(keys::kSelectedFileFilters, selected[i], "True");
    write(keys::kSelectedFileFilters, others[i], "False");
  }
  for (int i = 0; i < 5; ++i) {
    write(keys::kExcludedDirectories, "C:\\Program Files\\Product " + std::to_string(i),
          "Dangerous to remove files in");
    write(keys::kExcludedFiles, "C:\\Windows\\System32\\file" + std::to_string(i) + ".dll",
          "Dangerous to remove");
  }
}

}  // namespace

int main() {
  bench::Computer computer;
  bench::PumpingDesktop desktop;
  SetCurrentDesktop(&desktop);
  std::string root = computer.Tree(), native = bench::Quoted(computer.Native(root));
  Store(root);

  gAppRunning = std::make_unique<c_AppRunning>();
  gRegistry = std::make_unique<c_Registry>();
  gRegistry->ExcludeZeroByteFilesFileFiltersBrsm = gRegistry->ApplyListToGlobalScanningBrsm = "0";
  gRegistry->SkipReadOnlyFilesBrsm = gRegistry->DeleteOnWindowsStartupBrsm = "0";
  gRegistry->IncludeInvalidShortcutsBrsm = "0";
  frmMain form;
  scan::WireScan(form);

  auto scan = [&] { form.cmdScanComputerBrasmir.Click(); };
  auto find = [&] { bench::Run("find " + native + " -type f > /dev/null"); };
  auto findEmpty = [&] { bench::Run("find " + native + " -type f -size 0 > /dev/null"); };
  gRegistry->IncludeZeroByteFilesBrsm = "0";
  bench::Compare("Scan", 1.8, find, scan);
  // Telling an empty file takes a look at each, which a plain find doesn't take.
  gRegistry->IncludeZeroByteFilesBrsm = "1";
  bench::Compare("Scan-with-zero-byte-files", 1.8, find, scan, 3);
  bench::Compare("Scan-with-zero-byte-files-against-find-size-0", 1.8, findEmpty, scan, 3);
  gAppRunning.reset();
  gRegistry.reset();
}
