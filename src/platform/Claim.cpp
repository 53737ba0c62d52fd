#include "platform/Claim.h"

#include <thread>
#include <utility>

#include "platform/Machine.h"

namespace platform {

Claim::Claim(std::string name, std::chrono::milliseconds patience) : name_(std::move(name)) {
  auto until = std::chrono::steady_clock::now() + patience;
  for (;;) {
    held_ = CurrentMachine().GetProcesses().ClaimInstance(name_);
    if (held_ || std::chrono::steady_clock::now() >= until) return;
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
}

Claim::~Claim() {
  if (held_) CurrentMachine().GetProcesses().ReleaseInstance(name_);
}

}  // namespace platform
