// The computer's clock, in its time zone.
#pragma once

#include "platform/Machine.h"

namespace platform {

class WindowsClock : public Clock {
 public:
  DateTime Now() override;
  // By the rules for summer time of that year.
  DateTime ToLocal(Moment moment) override;
};

}  // namespace platform
