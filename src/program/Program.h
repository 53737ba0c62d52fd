// The whole program on this machine: the computer, the windows and the start, put together.
#pragma once

#include <functional>

#include "computer/Computer.h"

namespace program {

struct Options {
  computer::Options computer = {};
  // Called before the start, once there are windows to be had.
  std::function<void()> starting = {};
  // Called from the message loop once the start is through and a window is loaded.
  std::function<void()> started = {};
};

// Runs the program from its start to its end. Gives the process's exit code.
int Run(const Options& options, int argc, char** argv);

}  // namespace program
