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

bool ConfirmForeign(double count, const std::vector<std::string>& folders) {
  std::vector<std::string> lines = {
      core::NumberText(count) +
          " of the files to restore were not stored by this program for you, or "
          "were changed afterwards.",
      "They would be written to these and perhaps more folders:"};
  lines.insert(lines.end(), folders.begin(), folders.end());
  lines.push_back("Restore them all the same?");
  return core::Ask(core::BoxIcon::Exclamation, "Restore backup", lines);
}

std::unique_ptr<AbaleZip> MakeWindowZip() {
  auto zip = std::make_unique<AbaleZip>();
  zip->ConfirmForeign = ConfirmForeign;
  return zip;
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
    zip->ConfirmForeign = ConfirmForeign;
  }
  return *zip;
}

AbaleZip& WindowZip() {
  if (!windowZip) windowZip = MakeWindowZip();
  return *windowZip;
}

core::FormSlot<frmBackupFileInformation>& BackupFileInformation() {
  static core::FormSlot<frmBackupFileInformation> slot([](frmBackupFileInformation& form) {
    windowZip = MakeWindowZip();
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
