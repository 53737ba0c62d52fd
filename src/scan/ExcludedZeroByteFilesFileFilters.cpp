#include "scan/ExcludedZeroByteFilesFileFilters.h"

#include <string>

#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "core/Keys.h"
#include "core/Numbers.h"
#include "core/OpenForms.h"
#include "core/m_SharedProcedures.h"
#include "pages/m_Controls.h"
#include "platform/LibRegistry.h"

namespace scan {

using core::Args;
using core::BuiltIn;
using core::Guarded;
using core::Procedure;
using platform::LibRegistry;

namespace {

constexpr char kForm[] = "frmExcludedZeroByteFilesFileFilters";
constexpr char kGlobalValue[] = "Apply list in global scanning";

core::FormSlot<frmExcludedZeroByteFilesFileFilters>& Slot() {
  static core::FormSlot<frmExcludedZeroByteFilesFileFilters> slot(Wire);
  return slot;
}

void Form_Load(frmExcludedZeroByteFilesFileFilters& form) {
  Guarded(Procedure{kForm, "Form_Load"}, Args(), [&] {
    form.skn.Picture = gRegistry->InstallDirectory + "Skin\\Zinc-blue2.bmp";
    form.skn.Enabled = true;
    m_Controls::SetFlatHeaders(form.lvwFileFilters);
    LoadFileFilters(form);
    RetrieveRegistrySettings(form);
  });
}

void Form_Activate() {
  Guarded(Procedure{kForm, "Form_Activate"}, Args(), [] { platform::CurrentDesktop().DoEvents(); });
}

void Form_Unload(frmExcludedZeroByteFilesFileFilters& form) {
  Guarded(Procedure{kForm, "Form_Unload"}, Args(BuiltIn{}), [&] {
    SaveFileFilters(form);
    SaveRegistrySettings(form);
  });
}

void lblClose_Click(frmExcludedZeroByteFilesFileFilters& form) {
  Guarded(Procedure{kForm, "lblClose_Click"}, Args(), [&] { core::CloseForm(form); });
}

}  // namespace

void LoadFileFilters(frmExcludedZeroByteFilesFileFilters& form) {
  Guarded(Procedure{kForm, "LoadFileFilters"}, Args(), [&] {
    LibRegistry registry;
    platform::CountedList filters;
    long code = registry.EnumValues(gRegistry->HKEY_CURRENT_USER, core::keys::kExcludeZeroByteFiles, filters);
    if (code != 0) return core::TellRegistryError("Error retrieve file filters from registry", code);
    for (int i = 0; i < filters.UpperBound(); ++i) {
      std::string filter = filters[i];
      // Converted first: a filter whose value can't be read gets no row, and so isn't saved over.
      bool excluded = core::ToBoolean(
          registry.ReadValue(gRegistry->HKEY_CURRENT_USER, core::keys::kExcludeZeroByteFiles, filter));
      form.lvwFileFilters.SetChecked(form.lvwFileFilters.AddRow(filter, 1), excluded);
    }
  });
}

void SaveFileFilters(frmExcludedZeroByteFilesFileFilters& form) {
  Guarded(Procedure{kForm, "SaveFileFilters"}, Args(), [&] {
    const controls::ListView& list = form.lvwFileFilters;
    LibRegistry registry;
    platform::RegistryTransaction transaction;
    long code = 0;
    for (int row = 1; row <= list.Count(); ++row)
      code = registry.WriteValue(gRegistry->HKEY_CURRENT_USER, core::keys::kExcludeZeroByteFiles,
                                 list.Text(row), core::BooleanText(list.Checked(row)));
    long lasting = transaction.Commit();
    if (code == 0) code = lasting;
    if (code != 0) core::TellRegistryError("Saving file filters to registry failed", code);
  });
}

void RetrieveRegistrySettings(frmExcludedZeroByteFilesFileFilters& form) {
  Guarded(Procedure{kForm, "RetrieveRegistrySettings"}, Args(), [&] {
    gRegistry->ApplyListToGlobalScanningBrsm =
        LibRegistry().ReadValue(gRegistry->HKEY_CURRENT_USER, core::keys::kFileFiltersExclude, kGlobalValue);
    form.chkApplyListInGlobalScanning.Value = core::ToInteger(gRegistry->ApplyListToGlobalScanningBrsm);
  });
}

void SaveRegistrySettings(frmExcludedZeroByteFilesFileFilters& form) {
  Guarded(Procedure{kForm, "SaveRegistrySettings"}, Args(), [&] {
    std::string value = core::NumberText(form.chkApplyListInGlobalScanning.Value);
    long code = LibRegistry().WriteValue(gRegistry->HKEY_CURRENT_USER, core::keys::kFileFiltersExclude,
                                         kGlobalValue, value);
    gRegistry->ApplyListToGlobalScanningBrsm = value;
    if (code != 0) core::TellRegistryError("Saving settings to registry failed", code);
  });
}

frmExcludedZeroByteFilesFileFilters& ShowExcludedZeroByteFilesFileFilters() {
  frmExcludedZeroByteFilesFileFilters& form = Slot().Get();
  core::ShowForm(form);
  return form;
}

void Wire(frmExcludedZeroByteFilesFileFilters& form) {
  form.Load = [&form] { Form_Load(form); };
  form.Activate = [] { Form_Activate(); };
  form.Unload = [&form](int&) { Form_Unload(form); };
  form.lblClose.Click = [&form] { lblClose_Click(form); };
}

}  // namespace scan
