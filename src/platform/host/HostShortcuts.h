// The targets of shortcut files.
#pragma once

#include "platform/Machine.h"

namespace platform {

// Where a shortcut holds no local path but one with variables, %windir%, %SystemRoot%, %SystemDrive%,
// %ProgramFiles%, %ProgramData%, %ALLUSERSPROFILE%, %PUBLIC%, %USERPROFILE%, %APPDATA%, %LOCALAPPDATA%,
// %TEMP% and %TMP% are put in; one that is unknown, or whose folder isn't there, makes the target unknown.
class HostShortcuts : public Shortcuts {
 public:
  explicit HostShortcuts(Machine& machine) : machine_(machine) {}
  std::string Target(std::string_view path) override;

 private:
  std::string Expand(const std::string& path);
  std::string Variable(std::string_view name);
  Machine& machine_;
};

}  // namespace platform
