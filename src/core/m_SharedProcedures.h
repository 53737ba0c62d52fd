// The three objects that live for the whole run, and the shared work lists.
#pragma once

#include <memory>

#include "core/c_AppRunning.h"
#include "core/c_CleaningStatus.h"
#include "core/c_Registry.h"
#include "platform/CountedList.h"

// Made by Main, released when the main window has closed. Nothing may touch them later.
extern std::unique_ptr<c_AppRunning> gAppRunning;
extern std::unique_ptr<c_Registry> gRegistry;
extern std::unique_ptr<c_CleaningStatus> gCleaningStatus;

// The work lists of the scans and the cleaners. They belong to nobody: whoever starts a walk resets them
// first, and no two runs overlap. A loop that yields works on a list moved aside.
extern platform::CountedList gFiles;
extern platform::CountedList gFolders;
extern platform::CountedList gZeroByteFiles;
extern platform::CountedList gGarbageFiles;
extern platform::CountedList gInvalidShortcuts;
