// Restarting the computer.
#pragma once

#include "platform/Machine.h"

namespace platform {

class WindowsPower : public Power {
 public:
  // Where it may not, Reboot fails.
  explicit WindowsPower(bool mayReboot) : mayReboot_(mayReboot) {}
  bool IsNT() override { return true; }
  bool Reboot() override;

 private:
  bool mayReboot_;
};

}  // namespace platform
