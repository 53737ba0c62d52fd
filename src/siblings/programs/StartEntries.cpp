// Run at a logon: starts what is entered for it in the registry. Takes no arguments; see tools/start-entries.
#include "siblings/entries/StartEntries.h"

#include <exception>
#include <iostream>

#include "platform/host/HostMachine.h"

int main() {
  platform::HostMachine machine;
  platform::SetCurrentMachine(&machine);
  int result = 0;
  try {
    for (const entries::Started& entry : entries::StartAll()) {
      std::cout << (entry.good ? "started " : "not started ") << entry.name << ": " << entry.program << '\n';
      if (!entry.good) result = 1;
    }
  } catch (const std::exception& error) {
    std::cerr << "StartEntries: " << error.what() << '\n';
    result = 1;
  }
  platform::SetCurrentMachine(nullptr);
  return result;
}
