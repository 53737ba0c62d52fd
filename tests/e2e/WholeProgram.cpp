// Plays one scenario on the whole program in a real window.
//
// Usage: whole_program SCENARIO
#include <cstdio>
#include <string>

#include "Scenarios.h"
#include "program/Program.h"

int main(int argc, char** argv) {
  std::string wanted = argc > 1 ? argv[1] : "";
  if (wanted == "second-instance" && argc > 2)
    return program::Run(
        {.computer = {.dataFolder = argv[2], .userName = "User", .shareFolder = computer::ShareFolder()}}, 1,
        argv);
  for (const auto& scenarios : {e2e::BrasmirScenarios(), e2e::LumaroScenarios(), e2e::StartUpScenarios(),
                                e2e::RestoreScenarios(), e2e::ResultsMenuScenarios(), e2e::PlugInScenarios()})
    for (const e2e::Scenario& scenario : scenarios)
      if (wanted == scenario.name) return scenario.play() == 0 ? 0 : 1;
  std::fprintf(stderr, "no such scenario: %s\n", wanted.c_str());
  return 2;
}
