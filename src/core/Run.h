// A long run on the stack.
#pragma once

#include <functional>
#include <string>

#include "platform/Desktop.h"

namespace core {

// What a program of the family holds while it is in a run, so that the scheduler waits for the end of a run
// that the user has started. It nests within one process. A run goes on without it where another process has
// it: the user isn't refused anything.
class RunClaim {
 public:
  RunClaim();
  ~RunClaim();
  RunClaim(const RunClaim&) = delete;
  RunClaim& operator=(const RunClaim&) = delete;
  bool Held() const { return held_; }

 private:
  bool held_;
};

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
  // Notes a failure in a procedure. False if the run on the stack has had the same before; outside of runs
  // nothing is noted and each is the first.
  static bool FirstFailure(const std::string& procedure, int number);

 private:
  RunClaim claim_;
};

}  // namespace core
