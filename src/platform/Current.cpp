#include <stdexcept>

#include "platform/Desktop.h"
#include "platform/Machine.h"

namespace platform {

namespace {
Machine* currentMachine = nullptr;
Desktop* currentDesktop = nullptr;
}  // namespace

Machine& CurrentMachine() {
  if (!currentMachine) throw std::logic_error("no machine is set");
  return *currentMachine;
}
void SetCurrentMachine(Machine* machine) {
  currentMachine = machine;
}

Desktop& CurrentDesktop() {
  if (!currentDesktop) throw std::logic_error("no desktop is set");
  return *currentDesktop;
}
void SetCurrentDesktop(Desktop* desktop) {
  currentDesktop = desktop;
}

}  // namespace platform
