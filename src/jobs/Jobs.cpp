#include "jobs/Jobs.h"

#include <utility>

#include "clean/m_CleanFiles.h"
#include "core/m_SharedProcedures.h"
#include "scan/m_Results.h"

namespace jobs {

namespace {

// Everything of the category that the results page shows.
void CleanShown(frmMain& form, forms::ResultCategory category, const Cleaning& told) {
  controls::ListView& rows = form.lvwFilesResultsBrasmir;
  told.begins(category, m_Results::CategoryOf(form, category).name, rows.Count());
  if (rows.Count() == 0) return;
  form.TellLocked(forms::LockedFiles::None);
  gSelectedFiles.Reset();
  form.cmdSelectAllResultsBrasmir.Click();
  form.cmdDeleteResultsBrasmir.Click();
  std::string path;
  for (int i = 0; i < gSelectedFiles.UpperBound(); ++i) {
    gSelectedFiles.Get(i, path);
    told.file(path, !rows.FindPath(path));
  }
  told.ends(rows.Count());
}

}  // namespace

void Scan(frmMain& form) {
  form.cmdScanComputerBrasmir.Click();
}

void CleanFound(frmMain& form, const Stop& stop, const Cleaning& told) {
  // Opens the results on the first category.
  form.cmdViewResultsScanComputerBrasmir.Click();
  const int categories = static_cast<int>(form.OfferedCategories.size());
  for (int item = 0; item < categories && !stop(); ++item) {
    if (item > 0) form.cboSelectResultsBrasmir.SetListIndex(item);
    CleanShown(form, form.OfferedCategories[static_cast<std::size_t>(item)], told);
  }
}

void CleanList(frmMain& form, platform::CountedList files, const Cleaning& told) {
  gGarbageFiles = std::move(files);
  // Its backup is a new archive, as after a scan.
  gAppRunning->NewSession = true;
  m_Results::OfferCategories(form, {forms::ResultCategory::GarbageFiles});
  form.cboSelectResultsBrasmir.SetListIndex(0);
  CleanShown(form, forms::ResultCategory::GarbageFiles, told);
}

void ScanPlaces(frmMain& form) {
  form.cmdScanComputerLumaro.Click();
}

void CleanPlaces(frmMain& form) {
  form.cmdCleanUpScanComputerLumaro.Click();
}

}  // namespace jobs
