// The settings that the benchmarks of the scan work with.
#pragma once

#include <string>

#include "core/Keys.h"
#include "core/m_SharedProcedures.h"
#include "platform/LibRegistry.h"

namespace bench {

// `root` as the one drive, forty filters of which twenty are selected, ten exclusions.
inline void StoreScanSettings(const std::string& root) {
  namespace keys = core::keys;
  using platform::kCurrentUser;
  platform::LibRegistry registry;
  platform::RegistryTransaction transaction;
  auto write = [&](const char* key, const std::string& name, const std::string& data) {
    registry.WriteValue(kCurrentUser, key, name, data);
  };
  for (const char* key : {keys::kDrives, keys::kSelectedDrives, keys::kFileFilters,
                          keys::kSelectedFileFilters, keys::kExcludedDirectories, keys::kExcludedFiles})
    registry.DeleteAllValues(kCurrentUser, key);
  write(keys::kDrives, root, "Fixed Drive");
  write(keys::kSelectedDrives, root, "True");
  // A tenth of the files match a selected filter and two tenths another one.
  const char* selected[] = {".tmp", "~$",   "thumbs.db", ".chk", ".gid", ".fts",        ".dmp",
                            ".err", ".wbk", ".syd",      ".prv", ".sik", "desktop.ini", ".log1",
                            ".000", ".001", "cache",     ".lo_", ".nch", ".pch"};
  const char* others[] = {".bak",      ".old", ".sup", ".ilk", ".obj", ".sbr", ".ncb",
                          ".aps",      ".bsc", ".da0", ".mtx", ".ftg", ".ftx", ".cpy",
                          "debug.txt", ".@@@", ".^^^", ".b~k", ".$$$", ".xlk"};
  for (int i = 0; i < 20; ++i) {
    for (const char* filter : {selected[i], others[i]}) write(keys::kFileFilters, filter, "User Defined");
    write(keys::kSelectedFileFilters, selected[i], "True");
    write(keys::kSelectedFileFilters, others[i], "False");
  }
  for (const char* digit : {"0", "1", "2", "3", "4"}) {
    std::string folder("C:\\Program Files\\Product "), file("C:\\Windows\\System32\\file");
    write(keys::kExcludedDirectories, folder.append(digit), "Dangerous to remove files in");
    write(keys::kExcludedFiles, file.append(digit).append(".dll"), "Dangerous to remove");
  }
}

// What else of the settings decides what a scan does.
inline void SetScanOptions() {
  for (std::string* option :
       {&gRegistry->ExcludeZeroByteFilesFileFiltersBrsm, &gRegistry->ApplyListToGlobalScanningBrsm,
        &gRegistry->SkipReadOnlyFilesBrsm, &gRegistry->DeleteOnWindowsStartupBrsm,
        &gRegistry->IncludeInvalidShortcutsBrsm})
    option->assign(1, '0');
}

}  // namespace bench
