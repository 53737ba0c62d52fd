#include "clean/m_Log.h"

#include "core/ErrorReport.h"
#include "core/Keys.h"
#include "core/m_SharedProcedures.h"
#include "platform/LibRegistry.h"
#include "platform/TextFile.h"

namespace m_Log {

namespace {

void Hand(const char* procedure, const char* file, const std::string& sFile) {
  core::Guarded(core::Procedure{"m_Log", procedure}, core::Args(core::Value("sFile", sFile)), [&] {
    // The entry comes first, so that it is there even if the line can't be written.
    platform::LibRegistry().WriteValue(gRegistry->HKEY_LOCAL_MACHINE, core::keys::kRunOnce, "Kelvish",
                                       gRegistry->InstallDirectory + "Kelvish.exe");
    platform::AppendTextLine(gRegistry->InstallDirectory + file, sFile);
  });
}

constexpr char kLockedFiles[] = "Temp\\Locked Files.txt";

}  // namespace

void WriteLockedFilesToLog(const std::string& sFile) {
  Hand("WriteLockedFilesToLog", kLockedFiles, sFile);
}
void WriteIndexDatFilesToLog(const std::string& sFile) {
  Hand("WriteIndexDatFilesToLog", "Temp\\Index Files.txt", sFile);
}

std::string LockedFilesLog() {
  return gRegistry->InstallDirectory + kLockedFiles;
}

}  // namespace m_Log
