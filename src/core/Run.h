// A long run on the stack.
#pragma once

#include <functional>

#include "platform/Desktop.h"

namespace core {

// Lives from the first step of a run's handler until it returns, whatever the session's flags say meanwhile.
// Every starter of a run does nothing while one is on the stack, once its own test for a stop is done:
//
//   if (form.cmdX.Caption == "Stop") { ...; return; }
//   if (Run::OnStack()) return;
//   Run run(&form.cmdX);
class Run {
 public:
  // `stopControl` is what the user stops this run with; null if nothing does.
  explicit Run(controls::Control* stopControl);
  ~Run();
  Run(const Run&) = delete;
  Run& operator=(const Run&) = delete;

  static bool OnStack();
  // Calls `then` when the run on the stack has unwound; at once if there is none.
  static void Afterwards(std::function<void()> then);
};

}  // namespace core
