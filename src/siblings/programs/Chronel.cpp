// The scheduler, started by the main program and at each logon. Takes no arguments; ends when it is told to.
#include "siblings/chronel/Chronel.h"

#include <csignal>
#include <ctime>

#include "platform/host/HostMachine.h"
#include "platform/host/HostPrivacy.h"

namespace {

sigset_t Ends() {
  sigset_t ends;
  sigemptyset(&ends);
  for (int number : {SIGTERM, SIGINT, SIGHUP}) sigaddset(&ends, number);
  return ends;
}

}  // namespace

int main() {
  platform::MakeNewFilesPrivate();
  // Held back and asked for, so that nothing is interrupted in the middle.
  const sigset_t ends = Ends();
  sigprocmask(SIG_BLOCK, &ends, nullptr);
  bool told = false;
  chronel::Surroundings surroundings;
  surroundings.toldToEnd = [&] {
    sigset_t pending;
    if (!told && sigpending(&pending) == 0)
      for (int number : {SIGTERM, SIGINT, SIGHUP}) told = told || sigismember(&pending, number) == 1;
    return told;
  };
  surroundings.wait = [&](std::chrono::milliseconds time) {
    timespec limit{time.count() / 1000, time.count() % 1000 * 1'000'000};
    if (sigtimedwait(&ends, nullptr, &limit) > 0) told = true;
  };

  platform::HostMachine machine;
  siblings::UnattendedDesktop desktop;
  platform::SetCurrentMachine(&machine);
  platform::SetCurrentDesktop(&desktop);
  chronel::Main(desktop, surroundings);
  const bool readable = platform::IsReadable(machine.Registry().State().health);
  platform::SetCurrentDesktop(nullptr);
  platform::SetCurrentMachine(nullptr);
  return readable ? 0 : 1;
}
