// The phase of a scan that tests twenty thousand shortcuts, with the option that passes over removable
// drives, beside reading the same files.
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "Bench.h"
#include "ScanSettings.h"
#include "forms/frmMain.h"
#include "scan/m_FileValidationShortcuts.h"
#include "scan/m_ScanComputer.h"
#include "support/Shortcuts.h"

namespace fs = std::filesystem;

namespace {

constexpr int kShortcuts = 20'000;

// In the start menu's folders, to a thousand programs of which nine in ten are there.
void MakeShortcuts(const std::string& menu, const std::string& programs) {
  if (fs::exists(menu + "/whole")) return;
  for (int i = 0; i < 900; ++i) {
    std::string folder = programs + "/program " + std::to_string(i / 10);
    fs::create_directories(folder);
    std::ofstream(folder + "/start" + std::to_string(i) + ".exe") << "program";
  }
  for (int i = 0; i < kShortcuts; ++i) {
    std::string folder = menu + "/group" + std::to_string(i / 100);
    if (i % 100 == 0) fs::create_directories(folder);
    int program = i * 7919 % 1000;
    std::ofstream(folder + "/shortcut " + std::to_string(i) + ".lnk", std::ios::binary)
        << test::MakeShortcut("C:\\Program Files\\program " + std::to_string(program / 10) + "\\start" +
                              std::to_string(program) + ".exe");
  }
  std::ofstream(menu + "/whole") << "x";
}

}  // namespace

int main() {
  bench::Computer computer;
  const std::string profile = "C:\\Users\\User\\";
  std::string menu = computer.Native(profile + "AppData\\Roaming\\Microsoft\\Windows\\Start Menu");
  fs::create_directories(computer.Native(profile + "Desktop"));
  MakeShortcuts(menu, computer.Native("C:\\Program Files"));

  gRegistry = std::make_unique<c_Registry>();
  gAppRunning = std::make_unique<c_AppRunning>();
  bench::StoreScanSettings("C:\\");
  bench::SetScanOptions();
  gRegistry->BrokenShortCutsScanAllDriveBrsm = gRegistry->BrokenShortCutsIncludeAllUsersBrsm = "0";
  gRegistry->SkipShortcutsPointingToRemovableDrivesBrsm = "1";
  frmMain form;

  bench::Compare(
      "Shortcuts", 3.0, [&] { bench::Run("cd " + bench::Quoted(menu) + " && cat */*.lnk > /dev/null"); },
      [&] {
        gInvalidShortcuts.Reset();
        m_ScanComputer::ScanShortcutsBrsm(form);
        m_FileValidation::GetInvalidShortcutsBrsm(form);
        if (gFiles.UpperBound() < kShortcuts || gInvalidShortcuts.UpperBound() != kShortcuts / 10) {
          std::fprintf(stderr, "%d shortcuts, %d broken\n", gFiles.UpperBound(),
                       gInvalidShortcuts.UpperBound());
          std::exit(1);
        }
      });
  gAppRunning.reset();
  gRegistry.reset();
}
