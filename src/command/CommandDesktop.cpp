#include "command/CommandDesktop.h"

#include "core/Text.h"
#include "core/m_SharedProcedures.h"

namespace command {

using platform::BoxAnswer;

namespace {

// A box's lines as one sentence after the other.
std::string Said(const platform::Box& box) {
  std::string text = box.title;
  std::string_view rest = box.text;
  bool first = true;
  while (!rest.empty()) {
    std::size_t end = std::min(rest.find("\r\n"), rest.size());
    if (end > 0) text.append(first ? ": " : "; ").append(rest.substr(0, end));
    if (end > 0) first = false;
    rest.remove_prefix(std::min(end + 2, rest.size()));
  }
  return text;
}

}  // namespace

CommandDesktop::CommandDesktop(Console& console, Output& output, Progress& progress, bool yes)
    : console_(console), output_(output), progress_(progress), yes_(yes) {
  onPump = [this] {
    progress_.Tick();
    if (gAppRunning && console_.interrupted()) gAppRunning->StopProcess = true;
  };
}

BoxAnswer CommandDesktop::MessageBox(const platform::Box& box) {
  if (box.buttons == platform::BoxButtons::YesNo) {
    if (yes_ || confirmed) return BoxAnswer::Yes;
    if (console_.inIsTerminal) return Ask(Said(box)) ? BoxAnswer::Yes : BoxAnswer::No;
    output_.Error(Said(box) + " (answered No; --yes answers Yes)");
    return BoxAnswer::No;
  }
  if (box.icon == platform::BoxIcon::Critical) ++failures;
  if (box.icon == platform::BoxIcon::Information)
    output_.Note(Said(box));
  else
    output_.Error(Said(box));
  return BoxAnswer::Ok;
}

bool CommandDesktop::Confirm(const std::string& question, int& code) {
  if (yes_) return true;
  if (!console_.inIsTerminal) {
    output_.Error("tidorra: without a terminal this needs --yes");
    code = kUsedWrongly;
    return false;
  }
  if (Ask(question)) return true;
  code = console_.interrupted() ? kInterrupted : kNothingDone;
  if (code == kNothingDone) output_.Error("Nothing was done.");
  return false;
}

bool CommandDesktop::Ask(const std::string& question) {
  progress_.Clear();
  console_.out << std::flush;
  console_.err << core::OneLine(question) << " [y/N] " << std::flush;
  std::string answer;
  if (!std::getline(console_.in, answer)) console_.err << std::endl;
  return answer == "y" || answer == "Y" || core::Equals(answer, "yes");
}

}  // namespace command
