#include "platform/LibShell.h"

#include "platform/Desktop.h"
#include "platform/Machine.h"

namespace platform {

std::string LibShell::BrowseForFolder() const {
  return CurrentDesktop().BrowseForFolder();
}

bool LibShell::IsNT() const {
  return CurrentMachine().GetPower().IsNT();
}

long LibShell::SetScreenResolution(int width, int height) const {
  return CurrentDesktop().SetScreenResolution(width, height);
}

}  // namespace platform
