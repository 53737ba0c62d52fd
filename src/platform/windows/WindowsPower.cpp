#include "platform/windows/WindowsPower.h"

#include "platform/windows/WindowsHandle.h"

namespace platform {

namespace {

// The user has the privilege, but it is switched off until a process asks for it.
bool TakePrivilege() {
  HANDLE opened;
  if (!OpenProcessToken(GetCurrentProcess(), TOKEN_ADJUST_PRIVILEGES | TOKEN_QUERY, &opened)) return false;
  UniqueHandle token(opened);
  TOKEN_PRIVILEGES wanted{};
  wanted.PrivilegeCount = 1;
  wanted.Privileges[0].Attributes = SE_PRIVILEGE_ENABLED;
  if (!LookupPrivilegeValueW(nullptr, L"SeShutdownPrivilege", &wanted.Privileges[0].Luid)) return false;
  // It succeeds without giving anything, too.
  return AdjustTokenPrivileges(token.Get(), FALSE, &wanted, 0, nullptr, nullptr) &&
         GetLastError() == ERROR_SUCCESS;
}

}  // namespace

bool WindowsPower::Reboot() {
  if (!mayReboot_ || !TakePrivilege()) return false;
  return ExitWindowsEx(EWX_REBOOT, SHTDN_REASON_MAJOR_APPLICATION | SHTDN_REASON_MINOR_MAINTENANCE |
                                       SHTDN_REASON_FLAG_PLANNED);
}

}  // namespace platform
