// The programs of the family that run for this user.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "platform/Machine.h"
#include "platform/windows/WindowsPaths.h"

namespace platform {

// "Chronel.exe" and "Chronel" are names of the same program.
//
// A claim is a named mutex that exists: it is there for all sessions of the user, and the system takes it
// away with the process, however that ends. Nobody waits for it.
class WindowsProcesses : public Processes {
 public:
  // `family` goes into the names of the claims.
  WindowsProcesses(FileSystem& files, Locale& locale, const WindowsPaths& paths, std::wstring family)
      : files_(files), locale_(locale), paths_(paths), family_(std::move(family)) {}

  // In the program's folder, without handles of this process. A link is never started. A program that asks
  // for more rights has the system ask the user.
  bool Start(std::string_view program) override;
  // Asks each of its windows to close; a program without any is ended. Never the calling process.
  int CloseByName(std::string_view name, std::string_view folder) override;
  bool ClaimInstance(std::string_view name) override;
  void ReleaseInstance(std::string_view name) override;
  bool InstanceRuns(std::string_view name) override;

 private:
  std::wstring MutexName(std::string_view name) const;
  FileSystem& files_;
  Locale& locale_;
  const WindowsPaths& paths_;
  std::wstring family_;
  std::map<std::string, UniqueHandle, std::less<>> claims_;
};

}  // namespace platform
