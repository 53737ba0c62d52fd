// The boot-time cleaner on Windows, started once by the entry that the main program leaves. Takes no
// arguments.
#include <exception>

#include "platform/windows/WindowsLibraries.h"
#include "platform/windows/WindowsMachine.h"
#include "siblings/common/UnattendedDesktop.h"
#include "siblings/kelvish/Kelvish.h"

int main() {
  platform::LoadLibrariesOfTheSystemAlone();
  platform::WindowsMachine machine;
  siblings::UnattendedDesktop desktop;
  platform::SetCurrentMachine(&machine);
  platform::SetCurrentDesktop(&desktop);
  int result = 1;
  try {
    if (kelvish::WorkOff()) result = 0;
  } catch (const std::exception&) {
    // Nobody sits before it; the exit code tells.
  }
  platform::SetCurrentDesktop(nullptr);
  platform::SetCurrentMachine(nullptr);
  return result;
}
