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
// A claim is a file of the user's own that is open and shared with nobody: it holds for all sessions of the
// user, nobody else can take it away beforehand as they could a name that all users share, and the system
// gives it back with the process, however that ends.
class WindowsProcesses : public Processes {
 public:
  // `claims` is the native folder of the claims' files, made where it is missing.
  WindowsProcesses(FileSystem& files, Locale& locale, const WindowsPaths& paths, std::wstring claims)
      : files_(files), locale_(locale), paths_(paths), claimsFolder_(std::move(claims)) {}

  // In the program's folder, without handles of this process. A link is never started. A program that asks
  // for more rights has the system ask the user.
  bool Start(std::string_view program) override;
  // Asks each of its windows to close; a program without any is ended. Never the calling process.
  int CloseByName(std::string_view name, std::string_view folder) override;
  bool ClaimInstance(std::string_view name) override;
  void ReleaseInstance(std::string_view name) override;
  bool InstanceRuns(std::string_view name) override;

 private:
  std::wstring ClaimFile(std::string_view name) const;
  FileSystem& files_;
  Locale& locale_;
  const WindowsPaths& paths_;
  std::wstring claimsFolder_;
  std::map<std::string, UniqueHandle, std::less<>> claims_;
};

}  // namespace platform
