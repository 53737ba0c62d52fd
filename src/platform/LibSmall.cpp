#include "platform/LibSmall.h"

#include <algorithm>
#include <cmath>

#include "platform/Machine.h"
#include "platform/PathText.h"
#include "platform/ProtectedFolders.h"
#include "platform/RuntimeError.h"

namespace platform {

namespace {
// std::round takes halves away from zero.
double TwoDecimals(double number) {
  return std::round(number * 100) / 100;
}
}  // namespace

double LibSize::BytesToKilobytes(double size) const {
  return TwoDecimals(size / 1024);
}
double LibSize::BytesToMegabytes(double size) const {
  return TwoDecimals(size / 1048576);
}

std::string LibFileTime::GetCreated(const std::string& path) const {
  Machine& machine = CurrentMachine();
  EntryInfo info = machine.Files().Look(path);
  if (info.kind == EntryKind::Missing || info.kind == EntryKind::Unreadable) return {};
  DateTime created = machine.GetClock().ToLocal(info.created);
  return machine.GetLocale().ShortDate(created) + ' ' + machine.GetLocale().LongTime(created);
}

long LibShortcut::IsTargetValid(const std::string& path) const {
  std::string target = CurrentMachine().GetShortcuts().Target(path);
  std::replace(target.begin(), target.end(), '/', '\\');
  std::string_view plain = WithoutBackslash(target);
  if (!IsPlainPath(plain)) return 1;
  return CurrentMachine().Files().LookBriefly(plain).kind == EntryKind::Missing ? 0 : 1;
}

std::string LibShortcut::GetPath(const std::string& path) const {
  Status status;
  if (!CurrentMachine().Files().Open(path, OpenMode::Read, status)) {
    if (status == Status::Missing) throw FileNotFound();
    if (status == Status::Denied || status == Status::Locked) throw PermissionDenied();
    throw PathFileAccess();
  }
  return CurrentMachine().GetShortcuts().Target(path);
}

long LibProcess::CloseByName(const std::string& name) const {
  if (name.empty() || InstallFolder().empty()) return 0;
  return CurrentMachine().GetProcesses().CloseByName(name, InstallFolder()) > 0 ? 1 : 0;
}

}  // namespace platform
