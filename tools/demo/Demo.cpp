// The guided demo: scans a sample computer in the real window, looks at the results, ticks them and cleans,
// with a picture of each step. Usage: demo DATA_FOLDER PICTURES_FOLDER [USER]
#include <cstdio>

#include "core/Numbers.h"
#include "core/m_SharedProcedures.h"
#include "play/Player.h"
#include "program/Program.h"

namespace {

void Play(const std::string& pictures) {
  play::Player player;
  frmMain& form = player.Form();
  player.SetPictures(pictures);
  player.Shoot("welcome");
  player.OpenScanPage();
  player.Shoot("ready-to-scan");
  bool shot = false;
  player.When([&] { return form.prgScanComputerProgressBrasmir.Value > 0; },
              [&] {
                if (!shot) player.Shoot("scanning");
                shot = true;
              });
  player.Scan();
  player.Shoot("scanned");
  std::printf("found:   %s garbage files (%s), %s zero byte files, %s broken shortcuts\n",
              form.lblGarbageFilesScanComputerBrasmir.Caption.Get().c_str(),
              form.lblTotalSizeScanComputerBrasmir.Caption.Get().c_str(),
              form.lblZeroByteFilesScanComputerBrasmir.Caption.Get().c_str(),
              form.lblBrokenShortcutsScanComputerBrasmir.Caption.Get().c_str());
  player.OpenResults();
  player.Shoot("results");
  player.CleanAll();
  player.Shoot("cleaned");
  std::printf("removed: %s files, to the recycle bin\n",
              core::NumberText(gCleaningStatus->FilesDeleted).c_str());
  std::printf("freed:   %s KB\n", core::WholeText(gCleaningStatus->SizeFreedUp / 1024).c_str());
  std::printf("left:    %d rows that could not be removed\n", form.lvwFilesResultsBrasmir.Count());
  std::fflush(stdout);
  player.Close();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) {
    std::fprintf(stderr, "usage: demo DATA_FOLDER PICTURES_FOLDER [USER]\n");
    return 2;
  }
  std::string pictures = argv[2];
  return program::Run({.computer = {.dataFolder = argv[1],
                                    .userName = argc > 3 ? argv[3] : "",
                                    .shareFolder = computer::ShareFolder()},
                       .started = [&] { Play(pictures); }},
                      1, argv);
}
