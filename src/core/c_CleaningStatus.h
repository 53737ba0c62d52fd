// The session's cleaning counters, and those of a plug-in run.
#pragma once

#include <cstdint>

// One instance, gCleaningStatus. All plain stores.
class c_CleaningStatus {
 public:
  double FilesDeleted = 0;  // files removed since the last save
  double SizeFreedUp = 0;   // bytes freed since the last save; kilobytes only for the moment of the save
  double TotalFilesDeleted = 0, TotalSizeFreedUp = 0, TotalTimesUsed = 0;  // scratch for the save

  // The current plug-in run; never saved.
  std::int16_t PlugInFileCount = 0;
  std::int16_t PlugInFolderCount = 0;
  std::int16_t PlugInRegKeyCount = 0;
  std::int16_t PlugInRegValueCount = 0;
};
