// The command line on the host.
#ifndef _WIN32

#include <csignal>
#include <iostream>
#include <unistd.h>

#include "command/Program.h"

namespace {

volatile std::sig_atomic_t interrupted = 0;

void Interrupt(int) {
  interrupted = 1;
}

}  // namespace

int main(int argc, char** argv) {
  computer::GuardProcess();
  // No restart of a call that waits for an answer. Looked at between two files otherwise.
  struct sigaction action {};
  action.sa_handler = Interrupt;
  for (int number : {SIGINT, SIGTERM, SIGHUP}) sigaction(number, &action, nullptr);
  // A pipe whose reader has gone is told by the write.
  std::signal(SIGPIPE, SIG_IGN);
  std::ios::sync_with_stdio(false);
  command::Console console{.in = std::cin,
                           .out = std::cout,
                           .err = std::cerr,
                           .inIsTerminal = isatty(STDIN_FILENO) == 1,
                           .outIsTerminal = isatty(STDOUT_FILENO) == 1,
                           .errIsTerminal = isatty(STDERR_FILENO) == 1,
                           .interrupted = [] { return interrupted != 0; }};
  return command::Run({argv + 1, argv + argc}, console, {.shareFolder = computer::ShareFolder()});
}

#endif
