#include "app/Wiring.h"

#include "app/MainWindow.h"
#include "backup/BackupRestorePage.h"
#include "clean/Wire.h"
#include "lumaro/Wire.h"
#include "plugins/PlugInsPage.h"
#include "scan/Wire.h"
#include "schedule/SchedulePage.h"
#include "settings/OptionHandlers.h"
#include "ui/Wire.h"

namespace app {

void WireAll(frmMain& form) {
  settings::WireSettings(form);
  scan::WireScan(form);
  backup::WireBackup(form);
  clean::WireClean(form);
  lumaro::WireLumaro(form);
  WirePlugIns(form);
  WireSchedule(form);
  ui::WireUi(form);
  WireMainWindow(form);
}

}  // namespace app
