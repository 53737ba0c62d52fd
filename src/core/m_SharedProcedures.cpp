#include "core/m_SharedProcedures.h"

std::unique_ptr<c_AppRunning> gAppRunning;
std::unique_ptr<c_Registry> gRegistry;
std::unique_ptr<c_CleaningStatus> gCleaningStatus;

platform::CountedList gFiles;
platform::CountedList gFolders;
platform::CountedList gZeroByteFiles;
platform::CountedList gGarbageFiles;
platform::CountedList gInvalidShortcuts;
