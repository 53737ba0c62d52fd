// The boot-time cleaner, started once after its entry among the start entries. Takes no arguments.
#include "siblings/kelvish/Kelvish.h"

#include <exception>
#include <iostream>

#include "platform/host/HostMachine.h"
#include "platform/host/HostPrivacy.h"
#include "siblings/common/UnattendedDesktop.h"

int main() {
  platform::MakeNewFilesPrivate();
  platform::HostMachine machine;
  siblings::UnattendedDesktop desktop;
  platform::SetCurrentMachine(&machine);
  platform::SetCurrentDesktop(&desktop);
  int result = 1;
  try {
    if (kelvish::WorkOff()) result = 0;
  } catch (const std::exception& error) {
    std::cerr << "Kelvish: " << error.what() << '\n';
    const platform::StoreState store = machine.Registry().State();
    if (!platform::IsReadable(store.health))
      std::cerr << store.place << '\n' << store.fault << '\n' << store.advice << '\n';
  }
  platform::SetCurrentDesktop(nullptr);
  platform::SetCurrentMachine(nullptr);
  return result;
}
