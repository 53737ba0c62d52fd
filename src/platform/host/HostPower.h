// The played computer is of the NT line; it isn't restarted.
#pragma once

#include "platform/Machine.h"

namespace platform {

class HostPower : public Power {
 public:
  bool IsNT() override { return true; }
  bool Reboot() override { return false; }
};

}  // namespace platform
