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

// What runs. The captions of the buttons follow from it and are never asked.
enum class Running { Nothing, ScanBrasmir, CleanBrasmir, ScanLumaro, CleanLumaro, PlugIns };

// Lives from the first step of a run's handler until it returns, whatever the session's flags say meanwhile.
// Every starter of a run does nothing while one is on the stack, once its own test for a stop is done:
//
//   if (Run::HasBegun(Running::X)) { ...; return; }
//   if (Run::OnStack()) return;
//   Run run(Running::X, &form.cmdX);
//   ... what comes before the run, a question for example ...
//   run.Begin();
class Run {
 public:
  // `stopControl` is what the user stops this run with; null if nothing does. A run inside another one is a
  // part of that one, and changes nothing of what runs.
  Run(Running what, controls::Control* stopControl);
  ~Run();
  Run(const Run&) = delete;
  Run& operator=(const Run&) = delete;

  // From here until the run has left the stack, a click on the button that started it asks it to stop.
  void Begin();

  // What is on the stack, from its first step on.
  static Running Now();
  static bool OnStack() { return Now() != Running::Nothing; }
  // Whether a run of this kind is on the stack and has begun.
  static bool HasBegun(Running what);
  // Calls `then` when the run on the stack has unwound; at once if there is none.
  static void Afterwards(std::function<void()> then);
  // Notes a failure in a procedure. False if the run on the stack has had the same before; outside of runs
  // nothing is noted and each is the first.
  static bool FirstFailure(const std::string& procedure, int number);

 private:
  RunClaim claim_;
};

}  // namespace core
