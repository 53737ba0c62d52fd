// One line of progress on a terminal, written over and over.
#pragma once

#include <chrono>
#include <functional>
#include <string>

#include "command/Console.h"

namespace command {

class Progress {
 public:
  // Silent where the errors go to no terminal, or `wanted` is False.
  Progress(Console& console, bool wanted) : console_(console), on_(wanted && console.errIsTerminal) {}
  ~Progress() { Clear(); }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  // What the line says, asked ten times a second; empty for nothing.
  std::function<std::string()> text;

  // May be called for each of a million items.
  void Tick();
  // Takes the line away, before anything else is written.
  void Clear();

 private:
  Console& console_;
  bool on_, shown_ = false;
  std::chrono::steady_clock::time_point next_{};
};

// "12 of 40, about 7 s left": how far a work is that began at `begun`.
std::string Estimate(double done, double all, std::chrono::steady_clock::time_point begun);

}  // namespace command
