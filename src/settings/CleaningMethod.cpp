#include "settings/CleaningMethod.h"

#include "core/Numbers.h"
#include "core/m_SharedProcedures.h"

namespace settings {

namespace {

struct Row {
  CleaningMethod method;
  std::string c_Registry::*brasmir;
  std::string c_Registry::*lumaro;
  const char* menuWord;
  // The text of the box, and the place in the order in which the box asks.
  const char* shown;
  int shownAt;
};

// In the order of CleaningMethod. The last one that is asked needs no setting.
constexpr Row kMethods[] = {
    {CleaningMethod::RecycleBin, &c_Registry::MoveFilesToRecyclebinBrsm,
     &c_Registry::MoveFilesToRecyclebinLmro, "Recycle bin", "Move files to recycle bin", 1},
    {CleaningMethod::Erase, &c_Registry::EraseFilesBrsm, &c_Registry::EraseFilesLmro, "Erase", "Erase files ",
     2},
    {CleaningMethod::Delete, &c_Registry::DeleteFilesBrsm, &c_Registry::DeleteFilesLmro, "Delete",
     "Delete files", 0},
};
constexpr int kCount = sizeof kMethods / sizeof kMethods[0];

bool IsChosen(const Row& row, Module module) {
  return core::IsOne((*gRegistry).*(module == Module::Brasmir ? row.brasmir : row.lumaro));
}

const std::string& PassesText(Module module) {
  return module == Module::Brasmir ? gRegistry->ErasePassesBrsm : gRegistry->ErasePassesLmro;
}

}  // namespace

CleaningMethod ConfiguredMethod(Module module) {
  for (const Row& row : kMethods)
    if (row.method == CleaningMethod::Delete || IsChosen(row, module)) return row.method;
  return CleaningMethod::Delete;
}

CleaningMethod MethodNamed(std::string_view menuWord) {
  for (const Row& row : kMethods)
    if (menuWord == row.menuWord) return row.method;
  return CleaningMethod::Delete;
}

short ErasePasses(Module module) {
  return core::ToInteger(PassesText(module));
}

std::string ShownMethod(Module module) {
  for (int place = 0; place < kCount; ++place)
    for (const Row& row : kMethods) {
      if (row.shownAt != place || (place < kCount - 1 && !IsChosen(row, module))) continue;
      if (row.method != CleaningMethod::Erase) return row.shown;
      // The module Lumaro shows the passes as the number that they are read as.
      std::string passes =
          module == Module::Lumaro ? core::NumberText(ErasePasses(module)) : PassesText(module);
      return row.shown + passes + " times";
    }
  return {};
}

}  // namespace settings
