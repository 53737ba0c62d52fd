#include "removal/Removing.h"

#include "core/m_SharedProcedures.h"
#include "platform/Operations.h"

namespace removal {

using platform::Status;

bool DeleteFile(const std::string& path) {
  return platform::ops::Remove(path) == Status::Done;
}

bool StaysLocked(const std::string& path) {
  Status status = platform::ops::Empty(path);
  return status != Status::Done && status != Status::Missing;
}

bool RemoveFolder(const std::string& path) {
  return platform::ops::RemoveFolder(path) == Status::Done;
}

bool RemoveTree(const std::string& path) {
  return platform::ops::RemoveTree(path) == Status::Done;
}

bool RemoveCacheEntry(const std::string& entry) {
  return platform::ops::RemoveCacheEntry(entry) == Status::Done;
}

void EmptyRecycleBin() {
  platform::ops::EmptyBin([] { return gAppRunning->StopProcess; });
}

}  // namespace removal
