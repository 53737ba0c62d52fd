#include "backup/ZipControls.h"

#include <memory>
#include <utility>

#include "backup/BackupFileInformation.h"
#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "core/Numbers.h"

namespace backup {

namespace {

// The handler of the main window's control: an entry keeps its file's full path, drive included.
void AbaZip_PrepareEntry(std::string& sFilename, const std::string& sSourcePath) {
  core::Guarded(core::Procedure{"frmMain", "AbaZip_PrepareEntry"}, core::Args(core::BuiltIn{}),
                [&] { sFilename = sSourcePath; });
}

std::unique_ptr<AbaleZip> windowZip;

}  // namespace

AbaleZip& MainZip() {
  static std::unique_ptr<AbaleZip> zip;
  if (!zip) {
    zip = std::make_unique<AbaleZip>();
    zip->AbaZip_PrepareEntry = [](std::string& entry, const std::string&, const std::string& path) {
      AbaZip_PrepareEntry(entry, path);
    };
    zip->AbaZip_ListingFile = AbaZip_ListingFile;
  }
  return *zip;
}

AbaleZip& WindowZip() {
  if (!windowZip) windowZip = std::make_unique<AbaleZip>();
  return *windowZip;
}

core::FormSlot<frmBackupFileInformation>& BackupFileInformation() {
  static core::FormSlot<frmBackupFileInformation> slot([](frmBackupFileInformation& form) {
    windowZip = std::make_unique<AbaleZip>();
    WireBackupFileInformation(form);
  });
  return slot;
}

void TellZipFailure(const std::string& line, long result) {
  core::Tell(core::BoxIcon::Critical, "Error...",
             {line, MainZip().ErrorDescription(result),
              "Error code: " + core::NumberText(static_cast<double>(result))});
}

}  // namespace backup
