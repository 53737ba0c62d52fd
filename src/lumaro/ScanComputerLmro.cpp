#include "lumaro/ScanComputerLmro.h"

#include <string>
#include <vector>

#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "core/Numbers.h"
#include "core/Run.h"
#include "core/m_SharedProcedures.h"
#include "lumaro/RowMarks.h"
#include "pages/m_Controls.h"
#include "places/Places.h"
#include "platform/LibSmall.h"
#include "platform/Listings.h"
#include "platform/Operations.h"
#include "platform/ScopeGuard.h"
#include "settings/CleaningMethod.h"

namespace m_ScanComputer {

namespace {

using core::Args;
using core::BoxIcon;
using core::Guarded;
using core::Object;
using lumaro::ResetLists;
using lumaro::RowHighlight;

// The bytes of a folder that could be listed; what is never cleared as a whole isn't to be freed either.
double ScanFolder(const std::string& folder) {
  if (platform::ops::ListTree(folder, gFiles, gFolders) != platform::Status::Done) return 0;
  return platform::ops::SizeBelow(folder);
}

double ScanPlace(frmMain& form, const places::Place& place) {
  std::string folder = places::Folder(place);
  if (folder.empty()) {
    core::Tell(BoxIcon::Critical, "Path error...", {place.scanError, "This path will not be scanned"});
    return 0;
  }
  double bytes;
  if (place.way == places::Way::CacheEntries) {
    // They are counted, which aren't files, and the folder is measured.
    platform::ops::ListCacheEntries(gFiles);
    bytes = platform::ops::SizeBelow(folder);
  } else {
    bytes = ScanFolder(folder);
  }
  places::ShowFound(form, place, gFiles.UpperBound() + place.countOffset);
  return bytes;
}

// The ticked rows of the page; their files add up in one list.
double ScanUsersFolders(frmMain& form) {
  double bytes = 0;
  const controls::ListView& list = form.lvwUserDefinedFoldersLumaro;
  for (int row = 1; row <= list.Count(); ++row)
    if (list.Checked(row)) bytes += ScanFolder(std::string(list.Text(row)));
  return bytes;
}

}  // namespace

void ScanComputerLmro(frmMain& form) {
  Guarded(core::Procedure{"m_ScanComputer", "ScanComputerLmro"}, Args(Object{"frmMain"}), [&] {
    ResetLists();
    double total = 0;
    form.prgScanComputerProgressLumaro.Max = static_cast<double>(places::Rows().size());
    for (const places::Place* place : places::Rows()) {
      const bool usersFolders = places::IsUsersFolders(*place);
      const bool isOn =
          usersFolders ? form.lvwUserDefinedFoldersLumaro.Count() > 0 : places::IsOn(*place, form);
      lumaro::ShowStep(form, place->row + 1);
      if (isOn) {
        RowHighlight highlight(form, place->row);
        form.ImgProcessLumaro[place->row].Visible = true;
        total += usersFolders ? ScanUsersFolders(form) : ScanPlace(form, *place);
      }
      // These are counted in any case, and stay listed.
      if (usersFolders)
        places::ShowFound(form, *place, gFiles.UpperBound());
      else
        ResetLists();
    }
    form.FoundBytes = total;
    form.FoundKilobytes = platform::LibSize().BytesToKilobytes(total);
    form.lblTotalSizeScanComputerLumaro.Caption = core::NumberText(form.FoundKilobytes) + " KB";
    lumaro::ResetProgress(form);
  });
}

}  // namespace m_ScanComputer

namespace lumaro {

namespace {

using core::Args;
using core::BoxIcon;
using core::Guarded;

core::Procedure Here(const char* procedure) {
  return {"frmMain", procedure};
}

}  // namespace

void cmdScanComputerLumaro_Click(frmMain& form) {
  Guarded(Here("cmdScanComputerLumaro_Click"), Args(), [&] {
    if (core::Run::OnStack()) return;
    core::Run run(core::Running::ScanLumaro, nullptr);
    run.Begin();
    core::Hourglass hourglass;
    platform::ScopeGuard end([] { gAppRunning->AppRunning = false; });
    m_Controls::SetControlsBeforeScanningLumaro(form);
    gAppRunning->AppRunning = true;
    m_ScanComputer::ScanComputerLmro(form);
    m_Controls::SetControlsAfterScanningLumaro(form);
  });
}

void lblDirLumaro_Click(frmMain& form, int Index) {
  Guarded(Here("lblDirLumaro_Click"), Args(core::Value("Index", Index)), [&] {
    const places::Place& place = *places::Rows().at(static_cast<std::size_t>(Index));
    if (places::IsUsersFolders(place)) return form.ShowPage(form.fraUserDefinedFoldersLumaro);
    std::string folder = places::FolderText(place);
    if (platform::ops::OpenFolder(folder) != platform::Status::Done)
      core::Tell(BoxIcon::Critical, "Open directory...", {"Open the directory " + folder + " failed"});
  });
}

void lblViewSettingsScanComputerLumaro_Click() {
  Guarded(Here("lblViewSettingsScanComputerLumaro_Click"), Args(), [] {
    std::string method = settings::ShownMethod(settings::Module::Lumaro);
    auto shown = [](const std::string& setting) { return core::BooleanText(core::ToBoolean(setting)); };
    std::vector<std::string> lines = {"Selected settings: "};
    for (const places::Place* place : places::Shown())
      lines.push_back(place->shown + shown((*gRegistry).*place->setting));
    lines.insert(lines.end(),
                 {"", "Cleaning method: " + method, "Use backup: " + shown(gRegistry->UseBackupLmro)});
    core::Tell(BoxIcon::Information, "Selected settings...", lines);
  });
}

}  // namespace lumaro
