// The command line from its first word to the exit code.
#pragma once

#include <string>
#include <vector>

#include "command/Console.h"
#include "computer/Computer.h"

namespace command {

// The words behind the program's name, in UTF-8 (on the host as they are). Gives the code that the process
// ends with.
int Run(const std::vector<std::string>& words, Console& console, const computer::Options& options);

}  // namespace command
