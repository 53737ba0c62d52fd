// The life of the toolkit around the program's own.
#pragma once

#include <functional>

namespace view {

// Brings the toolkit up, calls `start` from its message loop and returns once Desktop::Quit has been called
// (or `start` has answered False: there is nothing to show) and no handler is on the stack any more.
// `endSession` is called, on the same thread and also inside a pumping run, when the session ends or the
// process is told to end (SIGTERM, SIGINT). Arguments are ignored. The current WxDesktop must have been made
// before. Gives the process's exit code: 0, or 1 where there is no screen to be had.
int RunApplication(int argc, char** argv, std::function<bool()> start, std::function<void()> endSession);

}  // namespace view
