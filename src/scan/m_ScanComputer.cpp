#include "scan/m_ScanComputer.h"

#include <string>

#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "core/Keys.h"
#include "core/Numbers.h"
#include "core/m_SharedProcedures.h"
#include "platform/LibFolders.h"
#include "platform/LibPath.h"
#include "platform/LibRegistry.h"
#include "platform/Listings.h"

namespace m_ScanComputer {

using core::Args;
using core::BoxIcon;
using core::Guarded;
using core::Object;
using core::Procedure;
using platform::CountedList;
using platform::LibRegistry;
using platform::Status;

bool ScanComputerBrsm(platform::SizesAhead* ahead) {
  return Guarded(Procedure{"m_ScanComputer", "ScanComputerBrsm"}, Args(), [&] {
    gFiles.Reset();
    gZeroByteFiles.Reset();
    gGarbageFiles.Reset();
    gInvalidShortcuts.Reset();
    CountedList drives;
    if (LibRegistry().EnumValues(gRegistry->HKEY_CURRENT_USER, core::keys::kDrives, drives) != 0) {
      core::Tell(BoxIcon::Critical, "Registry error...",
                 {"Reading drives from registry returned with error", "Scanning drive will be terminated"});
      return false;
    }
    for (int i = 0; i < drives.UpperBound() && !gAppRunning->StopProcess; ++i) {
      std::string drive = drives[i];
      if (!core::ToBoolean(
              LibRegistry().ReadValue(gRegistry->HKEY_CURRENT_USER, core::keys::kSelectedDrives, drive)))
        continue;
      if (platform::ops::ListFiles(drive, gFiles, ahead) != Status::Done) {
        core::Tell(BoxIcon::Critical, "Drive error...",
                   {"Scanning drive returned with error", "Scanning drive will be terminated"});
        return false;
      }
    }
    return true;
  });
}

bool ScanShortcutsBrsm(frmMain&) {
  return Guarded(Procedure{"m_ScanComputer", "ScanShortcutsBrsm"}, Args(Object{"frmMain"}), [&] {
    gFiles.Reset();
    platform::LibFolders folders;
    bool allListed = true;
    auto scan = [&allListed](const std::string& root) {
      if (platform::ops::ListFiles(root, gFiles) != Status::Done) allListed = false;
    };
    if (core::IsOne(gRegistry->BrokenShortCutsScanAllDriveBrsm)) {
      scan(platform::LibPath().GetDriveRoot(folders.Windows()));
    } else {
      scan(folders.UserFolderA());
      scan(folders.UserFolderB());
      if (core::IsOne(gRegistry->BrokenShortCutsIncludeAllUsersBrsm)) {
        std::string first = folders.AllUsersFolderA(), second = folders.AllUsersFolderB(),
                    recent = folders.Recent();
        if (!second.empty())
          for (const std::string& folder : {first, second, recent}) scan(folder);
      }
    }
    if (allListed) return true;
    core::Tell(BoxIcon::Critical, "Drive error...",
               {"Scanning drive returned with error", "Validating shortcuts will be terminated"});
    return false;
  });
}

}  // namespace m_ScanComputer
