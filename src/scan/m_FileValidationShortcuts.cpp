#include "scan/m_FileValidationShortcuts.h"

#include <vector>

#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "core/Numbers.h"
#include "core/Text.h"
#include "core/m_SharedProcedures.h"
#include "platform/LibDisk.h"
#include "platform/LibFile.h"
#include "platform/LibPath.h"
#include "platform/LibSmall.h"
#include "scan/FileWalk.h"
#include "scan/FilterSet.h"
#include "scan/m_Excluded.h"

namespace m_FileValidation {

using core::Args;
using core::Guarded;
using core::Object;
using core::Procedure;
using core::Value;
using platform::CountedList;

void GetInvalidShortcutsBrsm(frmMain& form) {
  Guarded(Procedure{"m_FileValidation", "GetInvalidShortcutsBrsm"}, Args(Object{"frmMain"}), [&] {
    if (gFiles.Empty()) return;
    form.prgScanComputerProgressBrasmir.Max = gFiles.UpperBound();

    CountedList directories, files;
    if (m_Excluded::ReadExclusions(directories, files) != 0) {
      core::Tell(core::BoxIcon::Critical, "Registry error...",
                 {"Reading registry information returned with error", core::kPermission,
                  "Scanning for broken shortcuts will be terminated"});
      gAppRunning->StopProcess = true;
      return;
    }

    const scan::Exclusions excluded(directories, files);
    scan::WalkFiles(form, nullptr, [&](const scan::FoundFile& file) {
      if (!m_Excluded::IsExcludedBrokenShortcutsBrsm(excluded, file)) ValidateShortCutFile(form, file);
    });
  });
}

void ValidateShortCutFile(frmMain& form, const scan::FoundFile& sFile) {
  Guarded(Procedure{"m_FileValidation", "ValidateShortCutFile"},
          Args(Object{"frmMain"}, Value("sFile", sFile)), [&] {
            static const core::Part shortcutPart("lnk");
            if (!shortcutPart.In(scan::ExtensionOf(sFile.Name()))) return;
            if (platform::LibFile().GetSize(sFile.Path()) <= 0) return;
            if (core::IsOne(gRegistry->SkipShortcutsPointingToRemovableDrivesBrsm) &&
                !ShortcutPointToFixedDrive(sFile.Path()))
              return;
            if (platform::LibShortcut().IsTargetValid(sFile.Path()) != 0) return;
            gInvalidShortcuts.AddIn(sFile.Folder(), sFile.Name());
            form.lblBrokenShortcutsScanComputerBrasmir.Caption =
                std::to_string(gInvalidShortcuts.UpperBound());
          });
}

bool ShortcutPointToFixedDrive(const std::string& sShortcut) {
  constexpr int kFixedDrive = 2;
  return Guarded(Procedure{"m_FileValidation", "ShortcutPointToFixedDrive", "Tidorra (Valdrin)...Error"},
                 Args(Value("sShortcut", sShortcut)), [&] {
                   std::string root;
                   for (const auto& drive : platform::FileSystemObject().Drives()) {
                     if (drive.DriveType != kFixedDrive) continue;
                     if (root.empty()) {
                       std::string target = GetShortcutTarget(sShortcut);
                       if (target.empty()) return false;
                       root = platform::LibPath().GetDriveRoot(target);
                     }
                     if (core::Contains(root, drive.DriveLetter)) return true;
                   }
                   return false;
                 });
}

std::string GetShortcutTarget(const std::string& sShortcut) {
  try {
    std::string path = platform::LibShortcut().GetPath(sShortcut);
    std::string_view target = core::Trim(path);
    if (target.size() >= 3 && target.substr(1, 2) == ":\\") return std::string(target);
  } catch (...) {
    // A shortcut that can't be read has no target.
  }
  return {};
}

}  // namespace m_FileValidation
