#include "scan/m_ScanComputer.h"

#include <string>
#include <utility>

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
using platform::LibDriveScan;
using platform::LibRegistry;

namespace {

constexpr char kEveryName[] = "*.*";

std::unique_ptr<platform::SizesAhead> sizesAhead;

}  // namespace

bool ScanComputerBrsm() {
  return Guarded(Procedure{"m_ScanComputer", "ScanComputerBrsm"}, Args(), [&] {
    gFiles.Reset();
    gZeroByteFiles.Reset();
    gGarbageFiles.Reset();
    gInvalidShortcuts.Reset();
    sizesAhead.reset();
    // A setting that is no number is told of where it decides something.
    if (gRegistry->IncludeZeroByteFilesBrsm == "1") sizesAhead = LibDriveScan().LookAhead();

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
      if (LibDriveScan().ScanTree(drive, kEveryName, gFiles, sizesAhead.get()) != 0) {
        core::Tell(BoxIcon::Critical, "Drive error...",
                   {"Scanning drive returned with error", "Scanning drive will be terminated"});
        return false;
      }
    }
    return true;
  });
}

std::unique_ptr<platform::SizesAhead> TakeSizesAhead() {
  return std::move(sizesAhead);
}

bool ScanShortcutsBrsm(frmMain&) {
  return Guarded(Procedure{"m_ScanComputer", "ScanShortcutsBrsm"}, Args(Object{"frmMain"}), [&] {
    gFiles.Reset();
    platform::LibFolders folders;
    long error = 0;
    // One error word for all listings: the first failure stays in it.
    auto scan = [&error](const std::string& root) {
      long code = LibDriveScan().ScanTree(root, kEveryName, gFiles);
      if (error == 0) error = code;
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
    if (error == 0) return true;
    core::Tell(BoxIcon::Critical, "Drive error...",
               {"Scanning drive returned with error", "Validating shortcuts will be terminated"});
    return false;
  });
}

}  // namespace m_ScanComputer
