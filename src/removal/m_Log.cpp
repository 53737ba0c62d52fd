#include "removal/m_Log.h"

#include "core/ErrorReport.h"
#include "core/HandOver.h"
#include "core/Keys.h"
#include "core/m_SharedProcedures.h"
#include "platform/Claim.h"
#include "platform/LibRegistry.h"
#include "platform/RuntimeError.h"
#include "platform/TextFile.h"

namespace m_Log {

using namespace core::handover;

namespace {

void Hand(const char* procedure, const List& list, const std::string& sFile) {
  core::Guarded(core::Procedure{"m_Log", procedure}, core::Args(core::Value("sFile", sFile)), [&] {
    // The boot-time cleaner may be at the lists at this moment.
    platform::Claim lists(kClaim, kPatience);
    if (!lists.Held()) throw platform::PermissionDenied();
    // The entry comes first, so that it is there even if the line can't be written.
    WriteStartEntry(gRegistry->InstallDirectory);
    std::string line = Add(list, sFile);
    try {
      platform::AppendTextLine(gRegistry->InstallDirectory + list.file, sFile);
    } catch (...) {
      // A file that the reader isn't shown doesn't go.
      Remove(list, {line});
      throw;
    }
  });
}

}  // namespace

void WriteLockedFilesToLog(const std::string& sFile) {
  Hand("WriteLockedFilesToLog", kLockedFiles, sFile);
}
void WriteIndexDatFilesToLog(const std::string& sFile) {
  Hand("WriteIndexDatFilesToLog", kIndexFiles, sFile);
}

std::string LockedFilesLog() {
  return gRegistry->InstallDirectory + kLockedFiles.file;
}

}  // namespace m_Log
