#include "platform/LibShell.h"

#include "platform/Desktop.h"
#include "platform/LibDirectory.h"
#include "platform/Machine.h"

namespace platform {

namespace {
long Reboot() {
  return CurrentMachine().GetPower().Reboot() ? 1 : 0;
}
}  // namespace

std::string LibShell::BrowseForFolder() const {
  return CurrentDesktop().BrowseForFolder();
}

long LibShell::OpenFolder(const std::string& folder) const {
  if (!LibDirectory().Exists(folder)) return 3;  // the system's "path not found"
  return CurrentDesktop().OpenFolder(folder);
}

long LibShell::EmptyRecycleBin() const {
  return CurrentMachine().Bin().Empty() == Status::Done ? 0 : 1;
}

bool LibShell::IsNT() const {
  return CurrentMachine().GetPower().IsNT();
}
long LibShell::RebootNT() const {
  return Reboot();
}
long LibShell::RebootWin9x() const {
  return Reboot();
}

long LibShell::SetScreenResolution(int width, int height) const {
  return CurrentDesktop().SetScreenResolution(width, height);
}

}  // namespace platform
