#include "settings/m_RegistryLists.h"

#include <chrono>
#include <optional>

#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "core/Numbers.h"
#include "core/Text.h"
#include "core/m_SharedProcedures.h"
#include "platform/Dates.h"
#include "platform/LibRegistry.h"
#include "platform/LibSmall.h"
#include "platform/Listings.h"
#include "platform/Machine.h"
#include "platform/Operations.h"
#include "platform/RuntimeError.h"
#include "platform/TextFile.h"

namespace m_Registry {

namespace {

using core::Args;
using core::Guarded;
using core::Object;
using core::Value;
using platform::CountedList;
using platform::LibRegistry;

constexpr int kBackupDays = 30;

core::Procedure Here(const char* procedure) {
  return {"m_Registry", procedure};
}

// A list that has no key for its ticks gives none.
void FillList(controls::ListView& list, int smallIcon, const std::string& key,
              const std::string* selectionKey, const char* failure) {
  LibRegistry registry;
  CountedList names;
  if (long code = registry.EnumValues(gRegistry->HKEY_CURRENT_USER, key, names); code != 0)
    return core::TellRegistryError(failure, code);
  list.Whole = false;
  for (int i = 0; i < names.UpperBound(); ++i) {
    std::string name = names[i];
    int row = list.AddRow(name, smallIcon);
    list.SetSubItem(row, 1, registry.ReadValue(gRegistry->HKEY_CURRENT_USER, key, name));
    if (selectionKey)
      list.SetChecked(row,
                      core::ToBoolean(registry.ReadValue(gRegistry->HKEY_CURRENT_USER, *selectionKey, name)));
  }
  list.Whole = true;
}

void SaveList(const controls::ListView& list, const std::string& key, const std::string* selectionKey,
              const char* failure) {
  if (list.Count() == 0 || !list.Whole) return;
  LibRegistry registry;
  platform::RegistryTransaction transaction;
  long failed = 0;
  auto write = [&](const std::string& to, std::string_view name, std::string_view data) {
    long code = registry.WriteValue(gRegistry->HKEY_CURRENT_USER, to, name, data);
    if (failed == 0) failed = code;
  };
  list.ForEach([&](int row) {
    write(key, list.Text(row), list.SubItem(row, 1));
    if (selectionKey) write(*selectionKey, list.Text(row), core::BooleanText(list.Checked(row)));
  });
  long code = transaction.Commit();
  if (failed == 0) failed = code;
  if (failed != 0) core::TellRegistryError(failure, failed);
}

// The date of a text of date and time. A blank parts the two; some locales have blanks in the date as well,
// so the first blank that leaves a date before it counts.
std::chrono::sys_days DatePart(const std::string& text) {
  platform::Locale& locale = platform::CurrentMachine().GetLocale();
  for (std::size_t blank = text.find(' ');; blank = text.find(' ', blank + 1)) {
    if (auto date = locale.ParseDate(std::string_view(text).substr(0, blank))) return platform::DayOf(*date);
    if (blank == std::string::npos) throw platform::TypeMismatch();
  }
}

bool Expired(const std::string& backupFile) {
  std::string created = platform::LibFileTime().GetCreated(backupFile);
  if (created.empty()) return false;
  std::chrono::sys_days today = platform::DayOf(platform::CurrentMachine().GetClock().Now());
  return DatePart(created) + std::chrono::days(kBackupDays) <= today;
}

}  // namespace

void AssignFileFilters(frmMain& form, const std::string& sSubKey1, const std::string& sSubKey2) {
  Guarded(Here("AssignFileFilters"),
          Args(Object{"frmMain"}, Value("sSubKey1", sSubKey1), Value("sSubKey2", sSubKey2)), [&] {
            FillList(form.lvwFileFiltersBrasmir, forms::IconFileFilter, sSubKey1, &sSubKey2,
                     "Error retrieve file filters from registry");
          });
}

void SaveFileFilterSettings(frmMain& form, const std::string& sSubKey1, const std::string& sSubKey2) {
  Guarded(Here("SaveFileFilterSettings"),
          Args(Object{"frmMain"}, Value("sSubKey1", sSubKey1), Value("sSubKey2", sSubKey2)), [&] {
            SaveList(form.lvwFileFiltersBrasmir, sSubKey1, &sSubKey2,
                     "Saving file filters to registry failed");
          });
}

void AssignDrives(frmMain& form, const std::string& sSubKey1, const std::string& sSubKey2) {
  Guarded(Here("AssignDrives"),
          Args(Object{"frmMain"}, Value("sSubKey1", sSubKey1), Value("sSubKey2", sSubKey2)), [&] {
            FillList(form.lvwDrivesBrasmir, forms::IconDrive, sSubKey1, &sSubKey2,
                     "Error retrieve drives from registry");
          });
}

void SaveDriveSettings(frmMain& form, const std::string& sSubKey1, const std::string& sSubKey2) {
  Guarded(Here("SaveDriveSettings"),
          Args(Object{"frmMain"}, Value("sSubKey1", sSubKey1), Value("sSubKey2", sSubKey2)),
          [&] { SaveList(form.lvwDrivesBrasmir, sSubKey1, &sSubKey2, "Saving drives to registry failed"); });
}

void AssignUserDefinedFolders(frmMain& form, const std::string& sSubKey1, const std::string& sSubKey2) {
  Guarded(Here("AssignUserDefinedFolders"),
          Args(Object{"frmMain"}, Value("sSubKey1", sSubKey1), Value("sSubKey2", sSubKey2)), [&] {
            FillList(form.lvwUserDefinedFoldersLumaro, forms::IconClearFolder, sSubKey1, &sSubKey2,
                     "Error retrieve included User Defined Folders from registry");
          });
}

void SaveUserDefinedFoldersSettings(frmMain& form, const std::string& sSubKey1, const std::string& sSubKey2) {
  Guarded(Here("SaveUserDefinedFoldersSettings"),
          Args(Object{"frmMain"}, Value("sSubKey1", sSubKey1), Value("sSubKey2", sSubKey2)), [&] {
            SaveList(form.lvwUserDefinedFoldersLumaro, sSubKey1, &sSubKey2,
                     "Saving included User Defined Folders to registry failed");
          });
}

void AssignExcludedFolders(frmMain& form, const std::string& sSubKey) {
  Guarded(Here("AssignExcludedFolders"), Args(Object{"frmMain"}, Value("sSubKey", sSubKey)), [&] {
    FillList(form.lvwExcludedFoldersBrasmir, forms::IconExcludedDirectory, sSubKey, nullptr,
             "Error retrieve excluded directories from registry");
  });
}

void SaveExcludedFoldersSettings(frmMain& form, const std::string& sSubKey) {
  Guarded(Here("SaveExcludedFoldersSettings"), Args(Object{"frmMain"}, Value("sSubKey", sSubKey)), [&] {
    SaveList(form.lvwExcludedFoldersBrasmir, sSubKey, nullptr,
             "Saving excluded directories to registry failed");
  });
}

void AssignExcludedFiles(frmMain& form, const std::string& sSubKey) {
  Guarded(Here("AssignExcludedFiles"), Args(Object{"frmMain"}, Value("sSubKey", sSubKey)), [&] {
    FillList(form.lvwExcludedFilesBrasmir, forms::IconExcludedFile, sSubKey, nullptr,
             "Error retrieve excluded files from registry");
  });
}

void SaveExcludedFilesSettings(frmMain& form, const std::string& sSubKey) {
  Guarded(Here("SaveExcludedFilesSettings"), Args(Object{"frmMain"}, Value("sSubKey", sSubKey)), [&] {
    SaveList(form.lvwExcludedFilesBrasmir, sSubKey, nullptr, "Saving excluded files to registry failed");
  });
}

void AssignBackups(frmMain& form, const std::string& sSubKey) {
  Guarded(Here("AssignBackups"), Args(Object{"frmMain"}, Value("sSubKey", sSubKey)), [&] {
    LibRegistry registry;
    CountedList names;
    if (long code = registry.EnumValues(gRegistry->HKEY_CURRENT_USER, sSubKey, names); code != 0)
      return core::TellRegistryError("Error retrieve backup files information from registry", code);
    for (int i = 0; i < names.UpperBound(); ++i) {
      std::string name = names[i];
      if (core::IsOne(gRegistry->DeleteBackupFiles)) {
        std::string file = gRegistry->InstallDirectory + "Backup\\" + name;
        if (Expired(file) && platform::ops::Remove(file) == platform::Status::Done) {
          registry.DeleteValue(gRegistry->HKEY_CURRENT_USER, sSubKey, name);
          // A cleaning that went on with this archive would write one that the catalogue doesn't know.
          if (core::Equals(name, gAppRunning->CurrBackupFileNameBrsm)) gAppRunning->NewSession = true;
          continue;
        }
      }
      int row = form.lvwBackupsBrasmir.AddRow(name, forms::IconBackup);
      form.lvwBackupsBrasmir.SetSubItem(row, 1,
                                        registry.ReadValue(gRegistry->HKEY_CURRENT_USER, sSubKey, name));
    }
  });
}

void SaveBackupSettings(frmMain& form, const std::string& sSubKey) {
  Guarded(Here("SaveBackupSettings"), Args(Object{"frmMain"}, Value("sSubKey", sSubKey)), [&] {
    SaveList(form.lvwBackupsBrasmir, sSubKey, nullptr, "Saving backup information to registry failed");
  });
}

void AssignPlugIns(frmMain& form) {
  Guarded(Here("AssignPlugIns"), Args(Object{"frmMain"}), [&] {
    form.lvwPlugInLists.Clear();
    CountedList files, folders;
    platform::ops::ListTree(gRegistry->InstallDirectory + "PlugIns", files, folders);
    for (int i = 0; i < files.UpperBound(); ++i) {
      platform::TextReader reader(files[i], kLargestPlugIn);
      std::string lines[8];
      for (std::string& line : lines) line = reader.ReadLine();
      int row = form.lvwPlugInLists.AddRow(lines[1], forms::IconPlugIn);
      form.lvwPlugInLists.SetSubItem(row, 1, lines[4]);
      form.lvwPlugInLists.SetSubItem(row, 2, lines[7]);
    }
  });
}

}  // namespace m_Registry
