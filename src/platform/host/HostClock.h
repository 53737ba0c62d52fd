// The machine's clock, in its local time zone.
#pragma once

#include "platform/Machine.h"

namespace platform {

class HostClock : public Clock {
 public:
  DateTime Now() override;
  DateTime ToLocal(Moment moment) override;
};

}  // namespace platform
