// The words that there are, in one place: what they mean, and all that is told of them.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <string>

#include "command/Commands.h"

namespace command {

// What a line is to do, or the text that it asks for.
struct Chosen {
  int (*command)(Context&) = nullptr;
  // Whether the answer of `command` needs settings; all do but for those that only tell a text.
  std::function<std::string()> text;
};

// Enters all commands; parsing fills the two.
void Describe(CLI::App& app, Wishes& wishes, Chosen& chosen);

// What is made of the description: the help of a command ("scan", "backup list"; empty for all), a page for
// man, and the completion for "bash", "zsh", "fish" or "powershell". Empty for a name that there isn't.
std::string HelpText(CLI::App& app, const std::vector<std::string>& command);
std::string ManualPage(CLI::App& app);
std::string Completion(CLI::App& app, const std::string& shell);

}  // namespace command
