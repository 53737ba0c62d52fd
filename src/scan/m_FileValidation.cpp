#include "scan/m_FileValidation.h"

#include <vector>

#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "core/Keys.h"
#include "core/Numbers.h"
#include "core/m_SharedProcedures.h"
#include "platform/LibRegistry.h"
#include "scan/FileWalk.h"
#include "scan/m_Excluded.h"

namespace m_FileValidation {

using core::Args;
using core::Array;
using core::Guarded;
using core::Object;
using core::Procedure;
using core::Value;
using platform::CountedList;

namespace {

bool IsZero(const std::string& setting) {
  return core::ToNumber(setting) == 0;
}

// Whether the filter takes part in scans. A filter without a selection value raises 13.
bool IsSelected(const std::string& filter) {
  return core::ToBoolean(platform::LibRegistry().ReadValue(gRegistry->HKEY_CURRENT_USER,
                                                           core::keys::kSelectedFileFilters, filter));
}

void ListGarbageFile(frmMain& form, const scan::FoundFile& file, long size) {
  gGarbageFiles.AddIn(file.Folder(), file.Name());
  gAppRunning->AddToTotalFileSize(static_cast<double>(size));
  form.lblTotalSizeScanComputerBrasmir.Caption = core::NumberText(gAppRunning->TotalFileSize()) + " KB";
  form.lblGarbageFilesScanComputerBrasmir.Caption = std::to_string(gGarbageFiles.UpperBound());
}

}  // namespace

bool ValidateFile(frmMain& form, const scan::FoundFile& sDirPath, const scan::FilterSet& sFileFilters) {
  return Guarded(Procedure{"m_FileValidation", "ValidateFile"},
                 Args(Object{"frmMain"}, Value("sDirPath", sDirPath), Array{"sFileFilters()"}), [&] {
                   std::vector<int> hits;
                   sFileFilters.Match(sDirPath.Name(), hits);
                   for (int hit : hits) {
                     const std::string& filter = sFileFilters.Filter(hit);
                     if (!IsSelected(filter)) continue;
                     long size = sDirPath.Size();
                     if (IsZero(gRegistry->ExcludeZeroByteFilesFileFiltersBrsm) || size >= 1 ||
                         !m_Excluded::IsExcludedZeroByteFileFileFilter(filter))
                       ListGarbageFile(form, sDirPath, size);
                     return true;
                   }
                   return false;
                 });
}

bool IncludeZeroByteFile(frmMain& form, const scan::FoundFile& sFile) {
  return Guarded(Procedure{"m_FileValidation", "IncludeZeroByteFile"},
                 Args(Object{"frmMain"}, Value("sFile", sFile)), [&] {
                   if (sFile.IsFilled() || sFile.Size() != 0) return false;
                   std::string key(".");
                   key += scan::ExtensionOf(sFile.Name());
                   if (core::IsOne(gRegistry->ApplyListToGlobalScanningBrsm) &&
                       core::IsOne(gRegistry->ExcludeZeroByteFilesFileFiltersBrsm) &&
                       m_Excluded::IsExcludedZeroByteFileFileFilter(key))
                     return false;
                   gZeroByteFiles.AddIn(sFile.Folder(), sFile.Name());
                   form.lblZeroByteFilesScanComputerBrasmir.Caption =
                       std::to_string(gZeroByteFiles.UpperBound());
                   return true;
                 });
}

void StartFileValidationBrsm(frmMain& form, platform::SizesAhead* ahead) {
  Guarded(Procedure{"m_FileValidation", "StartFileValidationBrsm"}, Args(Object{"frmMain"}), [&] {
    if (gFiles.Empty()) return;
    form.prgScanComputerProgressBrasmir.Max = gFiles.UpperBound();

    CountedList filterNames, directories, files;
    long error = platform::LibRegistry().EnumValues(gRegistry->HKEY_CURRENT_USER, core::keys::kFileFilters,
                                                    filterNames);
    long exclusionError = m_Excluded::ReadExclusions(directories, files);
    if (error != 0 || exclusionError != 0) {
      core::Tell(core::BoxIcon::Critical, "Registry error...",
                 {"Reading registry information returned with error", core::kPermission,
                  "File validation will be terminated"});
      gAppRunning->StopProcess = true;
      return;
    }

    const scan::FilterSet filters(filterNames);
    const scan::Exclusions excluded(directories, files);
    scan::WalkFiles(form, ahead, [&](const scan::FoundFile& file) {
      if (m_Excluded::IsExcludedSettingBrsm(excluded, file)) return;
      if (!ValidateFile(form, file, filters) && core::IsOne(gRegistry->IncludeZeroByteFilesBrsm))
        IncludeZeroByteFile(form, file);
    });
    form.prgScanComputerProgressBrasmir.Value = 0;
    form.lblScanComputerProcentBrasmir.Caption = "0 %";
  });
}

}  // namespace m_FileValidation
