#include "removal/Removing.h"

#include "core/m_SharedProcedures.h"
#include "platform/LibDirectory.h"
#include "platform/LibFile.h"
#include "platform/LibSmall.h"
#include "platform/Machine.h"

namespace removal {

bool DeleteFile(const std::string& path) {
  return platform::LibFile().Delete(path) == 1;
}

bool StaysLocked(const std::string& path) {
  return platform::LibFile().ClearFile(path);
}

bool RemoveFolder(const std::string& path) {
  return platform::LibDirectory().Remove(path) == 1;
}

bool RemoveTree(const std::string& path) {
  return platform::LibDirectory().RemoveTree(path) == 1;
}

bool RemoveCacheEntry(const std::string& entry) {
  return platform::LibInternetCache().DeleteEntry(entry) == 0;
}

void EmptyRecycleBin() {
  platform::CurrentMachine().Bin().Empty([] { return gAppRunning->StopProcess; });
}

}  // namespace removal
