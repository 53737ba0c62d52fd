#include "scan/m_FileFilters.h"

#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "core/Keys.h"
#include "core/Numbers.h"
#include "core/Text.h"
#include "core/m_SharedProcedures.h"
#include "platform/LibPath.h"
#include "platform/LibRegistry.h"
#include "scan/FilterSet.h"
#include "settings/StoredRow.h"
#include "settings/m_RegistryLists.h"

namespace m_FileFilters {

using controls::ListView;
using core::Args;
using core::BoxIcon;
using core::Guarded;
using core::Object;
using core::Procedure;
using core::Value;
using platform::LibRegistry;

namespace {

constexpr char kUserDefined[] = "User Defined";

void RefuseDuplicate() {
  core::Tell(BoxIcon::Exclamation, "Duplicate file filter...", {"File filter already exists in list"});
}

std::string DescriptionOrDefault(const std::string& description) {
  return description.empty() ? kUserDefined : description;
}

void DeleteFilterValues(const std::string& filter) {
  LibRegistry registry;
  for (const char* key :
       {core::keys::kFileFilters, core::keys::kSelectedFileFilters, core::keys::kExcludeZeroByteFiles})
    registry.DeleteValue(gRegistry->HKEY_CURRENT_USER, key, filter);
}

// A row other than this one has the filter, case ignored.
bool IsFilterOfAnotherRow(const ListView& list, int row, const std::string& filter) {
  bool found = false;
  list.ForEach([&](int other) { found = found || (other != row && core::Equals(list.Text(other), filter)); });
  return found;
}

void TakeIntoTextBoxes(frmMain& form, int row) {
  const ListView& list = form.lvwFileFiltersBrasmir;
  form.txtFilterFileFiltersBrasmir.Text = std::string(list.Text(row));
  form.txtDescriptionFileFiltersBrasmir.Text = std::string(list.SubItem(row, 1));
  form.SetEditsFileFilter(true);
}

void SaveEdit(frmMain& form, int row) {
  ListView& list = form.lvwFileFiltersBrasmir;
  const std::string old(list.Text(row));
  const std::string filter = form.txtFilterFileFiltersBrasmir.Text;
  const std::string description = form.txtDescriptionFileFiltersBrasmir.Text;
  if (filter.empty()) return AskForFilter();
  if (DuplicateFilterModifyExisting(form, filter, description) || IsFilterOfAnotherRow(list, row, filter))
    return RefuseDuplicate();

  std::string excluded =
      LibRegistry().ReadValue(gRegistry->HKEY_CURRENT_USER, core::keys::kExcludeZeroByteFiles, old);
  // A filter that isn't in the table counts as not excluded; an empty text there couldn't be read back.
  if (excluded.empty()) excluded = "False";
  if (long code =
          settings::RenameRow(old, filter,
                              {{core::keys::kFileFilters, DescriptionOrDefault(description)},
                               {core::keys::kSelectedFileFilters, core::BooleanText(list.Checked(row))},
                               {core::keys::kExcludeZeroByteFiles, excluded}}))
    return core::TellRegistryError("Saving file filters to registry failed", code);
  list.SetText(row, filter);
  list.SetSubItem(row, 1, DescriptionOrDefault(description));
  form.lblUserInfoFileFiltersBrasmir.Caption = "Filter " + filter + " changed";
  AbandonEdit(form);
}

}  // namespace

void AddFileFilter(frmMain& form, const std::string& sFilter, const std::string& sDescription) {
  Guarded(Procedure{"m_FileFilters", "AddFileFilter"},
          Args(Object{"frmMain"}, Value("sFilter", sFilter), Value("sDescription", sDescription)), [&] {
            if (DuplicateFilterAddNew(form, sFilter)) return RefuseDuplicate();
            ListView& list = form.lvwFileFiltersBrasmir;
            int row = list.AddRow(sFilter, forms::IconFileFilter);
            list.SetSubItem(row, 1, DescriptionOrDefault(sDescription));
            list.SetChecked(row, true);
            form.lblUserInfoFileFiltersBrasmir.Caption = "Filter " + sFilter + " saved";
            LibRegistry().WriteValue(gRegistry->HKEY_CURRENT_USER, core::keys::kExcludeZeroByteFiles, sFilter,
                                     "False");
          });
}

void ModifyFileFilter(frmMain& form, int iSelectedIndex) {
  Guarded(Procedure{"m_FileFilters", "ModifyFileFilter"},
          Args(Object{"frmMain"}, Value("iSelectedIndex", iSelectedIndex)), [&] {
            if (form.EditsFileFilter)
              SaveEdit(form, iSelectedIndex);
            else
              TakeIntoTextBoxes(form, iSelectedIndex);
          });
}

void AbandonEdit(frmMain& form) {
  form.txtFilterFileFiltersBrasmir.Text = "";
  form.txtDescriptionFileFiltersBrasmir.Text = "";
  form.SetEditsFileFilter(false);
}

void AskForFilter() {
  core::Tell(BoxIcon::Information, "Add new file filter...",
             {"Type in Filter and Description to add a new file filter"});
}

void RemoveFileFilter(frmMain& form, int iSelectedIndex) {
  Guarded(
      Procedure{"m_FileFilters", "RemoveFileFilter"},
      Args(Object{"frmMain"}, Value("iSelectedIndex", iSelectedIndex)), [&] {
        ListView& list = form.lvwFileFiltersBrasmir;
        const std::string filter(list.Text(iSelectedIndex));
        if (!core::Ask(BoxIcon::Information, "Remove File Filter", {"Confirm remove file filter " + filter}))
          return;
        {
          platform::RegistryTransaction transaction;
          DeleteFilterValues(filter);
        }
        list.RemoveRow(iSelectedIndex);
        form.lblUserInfoFileFiltersBrasmir.Caption = "Filter " + filter + " removed";
      });
}

bool TestFileFilter(const std::string& sFilename, const std::string& sFileFilter) {
  return Guarded(Procedure{"m_FileFilters", "TestFileFilter"},
                 Args(Value("sFilename", sFilename), Value("sFileFilter", sFileFilter)), [&] {
                   return scan::FilterSet::Matches(sFileFilter, sFilename,
                                                   platform::LibPath().GetExtension(sFilename));
                 });
}

bool DuplicateFilterAddNew(const frmMain& form, const std::string& sFilter) {
  return Guarded(Procedure{"m_FileFilters", "DuplicateFilterAddNew"},
                 Args(Object{"frmMain"}, Value("sFilter", sFilter)),
                 [&] { return IsFilterOfAnotherRow(form.lvwFileFiltersBrasmir, 0, sFilter); });
}

bool DuplicateFilterModifyExisting(const frmMain& form, const std::string& sFilter,
                                   const std::string& sDescription) {
  return Guarded(Procedure{"m_FileFilters", "DuplicateFilterModifyExisting"},
                 Args(Object{"frmMain"}, Value("sFilter", sFilter), Value("sDescription", sDescription)),
                 [&] {
                   const ListView& list = form.lvwFileFiltersBrasmir;
                   for (int row = 1; row <= list.Count(); ++row)
                     if (list.SubItem(row, 1) == sDescription && core::Equals(list.Text(row), sFilter))
                       return true;
                   return false;
                 });
}

}  // namespace m_FileFilters
