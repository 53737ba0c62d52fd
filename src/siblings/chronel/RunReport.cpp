#include "siblings/chronel/RunReport.h"

#include <string_view>

#include "platform/Machine.h"

namespace chronel {

std::string MomentText() {
  platform::Machine& machine = platform::CurrentMachine();
  platform::DateTime now = machine.GetClock().Now();
  return machine.GetLocale().ShortDate(now) + " " + machine.GetLocale().LongTime(now);
}

void RunReport::Box(const platform::Box& box, platform::BoxAnswer answer) {
  if (!file_) return;
  bool question = box.buttons == platform::BoxButtons::YesNo;
  Line((question ? "Question: " : "Message: ") + box.title);
  std::string_view text = box.text;
  while (!text.empty()) {
    std::size_t end = text.find("\r\n");
    Line("    " + std::string(text.substr(0, end)));
    text.remove_prefix(end == text.npos ? text.size() : end + 2);
  }
  if (question) Line(answer == platform::BoxAnswer::Yes ? "    Answered: Yes" : "    Answered: No");
}

}  // namespace chronel
