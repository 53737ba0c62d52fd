#include "settings/m_Registry.h"

#include "core/ErrorReport.h"
#include "core/Keys.h"
#include "core/Numbers.h"
#include "core/m_SharedProcedures.h"
#include "platform/Guard.h"
#include "platform/LibPath.h"
#include "platform/LibRegistry.h"
#include "platform/LibSmall.h"
#include "platform/Machine.h"
#include "platform/RuntimeError.h"
#include "settings/SettingsTable.h"

namespace m_Registry {

namespace {

using core::Args;
using core::Guarded;
using core::Object;
using platform::LibRegistry;

constexpr char kClearPageFile[] = "ClearPageFileAtShutdown";

core::Procedure Here(const char* procedure) {
  return {"m_Registry", procedure};
}

// A check box holds 0 or 1 and nothing else.
int CheckBoxValue(const std::string& text) {
  int value = core::ToInteger(text);
  if (value != 0 && value != 1) throw platform::RuntimeError(380, "Invalid property value");
  return value;
}

void Fill(frmMain& form, const settings::Option& option) {
  if (auto* box = std::get_if<controls::CheckBox frmMain::*>(&option.control)) {
    controls::CheckBox& control = form.**box;
    if (option.property)
      control.Value = CheckBoxValue((*gRegistry).*option.property);
    else
      control.Value = LibRegistry().ReadTypedValue(gRegistry->HKEY_LOCAL_MACHINE,
                                                   core::keys::kMemoryManagement, kClearPageFile) != 0;
    control.SetAssigned(true);
  } else {
    controls::SpinBox& control = form.*std::get<controls::SpinBox frmMain::*>(option.control);
    control.Value = core::ToNumber((*gRegistry).*option.property);
    control.SetAssigned(true);
  }
}

void SetAssigned(frmMain& form, const settings::Option& option, bool assigned) {
  std::visit([&](auto control) { (form.*control).SetAssigned(assigned); }, option.control);
}

bool Assigned(const frmMain& form, const settings::Option& option) {
  return std::visit([&](auto control) { return (form.*control).Assigned(); }, option.control);
}

std::string ValueText(const frmMain& form, const settings::Option& option) {
  return std::visit([&](auto control) { return core::NumberText((form.*control).Value.Get()); },
                    option.control);
}

std::string ReadStatistic(const char* name) {
  return LibRegistry().ReadValue(gRegistry->HKEY_CURRENT_USER, core::keys::kCleaningStatus, name);
}

void WriteStatistic(const char* name, const std::string& text) {
  LibRegistry().WriteValue(gRegistry->HKEY_CURRENT_USER, core::keys::kCleaningStatus, name, text);
}

}  // namespace

bool ReadRegistrySettings() {
  try {
    LibRegistry registry;
    platform::LibPath path;
    c_Registry& cache = *gRegistry;
    for (const settings::Setting& setting : settings::AllSettings())
      cache.*setting.property = registry.ReadValue(cache.HKEY_CURRENT_USER, setting.key, setting.name);
    cache.InstallDirectory = path.AddBackslash(cache.InstallDirectory);
    cache.PathProgramFiles = path.AddBackslash(cache.PathProgramFiles);
    platform::SetInstallFolder(cache.InstallDirectory);
    return true;
  } catch (...) {
    return false;
  }
}

void AssignOptionSettings(frmMain& form) {
  std::size_t filled = 0;
  const auto& options = settings::AllOptions();
  Guarded(
      Here("AssignOptionSettings"), Args(Object{"frmMain"}),
      [&] {
        for (; filled < options.size(); ++filled) Fill(form, options[filled]);
      },
      [&] {
        // The click handlers of the rows that were filled may have changed rows that weren't: neither may
        // reach the store.
        for (std::size_t i = filled; i < options.size(); ++i) SetAssigned(form, options[i], false);
      });
}

void SaveOptionSettings(frmMain& form) {
  Guarded(Here("SaveOptionSettings"), Args(Object{"frmMain"}), [&] {
    LibRegistry registry;
    platform::Machine& machine = platform::CurrentMachine();
    platform::RegistryTransaction transaction;
    registry.WriteValue(gRegistry->HKEY_CURRENT_USER, core::keys::kTidorra, "Last used",
                        machine.GetLocale().ShortDate(machine.GetClock().Now()));
    for (const settings::Option* option : settings::OptionsInWriteOrder()) {
      if (!Assigned(form, *option)) continue;
      std::string text = ValueText(form, *option);
      if (option->property) {
        const settings::Setting& setting = settings::SettingOf(option->property);
        registry.WriteValue(gRegistry->HKEY_CURRENT_USER, setting.key, setting.name, text);
      } else {
        registry.WriteTypedValue(gRegistry->HKEY_LOCAL_MACHINE, core::keys::kMemoryManagement, kClearPageFile,
                                 text, "REG_DWORD");
      }
    }
    transaction.Commit();
  });
}

void AssignCleaningStatus(frmMain& form) {
  Guarded(Here("AssignCleaningStatus"), Args(Object{"frmMain"}), [&] {
    form.lblDateUsedCleaningStatus.Caption = ReadStatistic("Date used");
    form.lblTimeUsedCleaningStatus.Caption = ReadStatistic("Time used");
    form.lblTotalTimesUsedCleaningStatus.Caption = ReadStatistic("Total times used");
    form.lblFilesDeletedCleaningStatus.Caption = ReadStatistic("Files deleted");
    form.lblTotalFilesDeletedCleaningStatus.Caption = ReadStatistic("Total files deleted");
    form.lblSizeFreedUpCleaningStatus.Caption = ReadStatistic("Size freed up") + " KB";
    form.lblTotalSizeFreedUpCleaningStatus.Caption = ReadStatistic("Total size freed up") + " KB";
  });
}

void SaveCleaningStatus() {
  Guarded(Here("SaveCleaningStatus"), Args(), [&] {
    c_CleaningStatus& status = *gCleaningStatus;
    // All numbers are read before anything changes: a missing one leaves the counters for the next try.
    double totalTimesUsed = core::ToNumber(ReadStatistic("Total times used")) + 1;
    double totalFilesDeleted = core::ToNumber(ReadStatistic("Total files deleted")) + status.FilesDeleted;
    double sizeFreedUp = platform::LibSize().BytesToKilobytes(status.SizeFreedUp);
    double totalSizeFreedUp = core::ToNumber(ReadStatistic("Total size freed up")) + sizeFreedUp;
    status.TotalTimesUsed = totalTimesUsed;
    status.TotalFilesDeleted = totalFilesDeleted;
    status.SizeFreedUp = sizeFreedUp;
    status.TotalSizeFreedUp = totalSizeFreedUp;

    platform::Machine& machine = platform::CurrentMachine();
    platform::DateTime now = machine.GetClock().Now();
    platform::RegistryTransaction transaction;
    WriteStatistic("Date used", machine.GetLocale().ShortDate(now));
    WriteStatistic("Time used", machine.GetLocale().LongTime(now));
    WriteStatistic("Total times used", core::NumberText(status.TotalTimesUsed));
    WriteStatistic("Files deleted", core::NumberText(status.FilesDeleted));
    WriteStatistic("Total files deleted", core::NumberText(status.TotalFilesDeleted));
    WriteStatistic("Size freed up", core::NumberText(status.SizeFreedUp));
    WriteStatistic("Total size freed up", core::NumberText(status.TotalSizeFreedUp));
    transaction.Commit();
    status.TotalTimesUsed = status.TotalFilesDeleted = status.TotalSizeFreedUp = 0;
    status.FilesDeleted = status.SizeFreedUp = 0;
  });
}

}  // namespace m_Registry
