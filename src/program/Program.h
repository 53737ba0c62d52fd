// The whole program on this machine: the computer, the windows and the start, put together.
#pragma once

#include <functional>
#include <string>

namespace program {

struct Options {
  // The data folder of a played computer; empty for the user's own. Nothing on a real one.
  std::string dataFolder = {};
  // The name of the profile below C:\Users on a played computer; empty for the user's own.
  std::string userName = {};
  // The folder that the build or the installation filled for the program: pictures/, help/, plug-ins/,
  // first-time-settings.txt and the sibling programs' executables in bin/.
  std::string shareFolder = {};
  // Called before the start, once there are windows to be had.
  std::function<void()> starting = {};
  // Called from the message loop once the start is through and a window is loaded.
  std::function<void()> started = {};
};

// Runs the program from its start to its end. Gives the process's exit code.
int Run(const Options& options, int argc, char** argv);

// share/ beside the executable, or else in the folder above it.
std::string ShareFolder();

}  // namespace program
