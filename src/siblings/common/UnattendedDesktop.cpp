#include "siblings/common/UnattendedDesktop.h"

namespace siblings {

platform::BoxAnswer UnattendedDesktop::MessageBox(const platform::Box& box) {
  platform::BoxAnswer answer =
      box.buttons == platform::BoxButtons::YesNo ? platform::BoxAnswer::Yes : platform::BoxAnswer::Ok;
  if (onBox) onBox(box, answer);
  return answer;
}

void UnattendedDesktop::Sleep(int milliseconds) {
  if (onSleep) onSleep(milliseconds);
}

}  // namespace siblings
