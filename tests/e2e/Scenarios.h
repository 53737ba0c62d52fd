// The scenarios, by the part of the program that they play. Each gives its number of faults.
#pragma once

#include <vector>

namespace e2e {

struct Scenario {
  const char* name;
  int (*play)();
};

std::vector<Scenario> BrasmirScenarios();
std::vector<Scenario> LumaroScenarios();
std::vector<Scenario> StartUpScenarios();
std::vector<Scenario> RestoreScenarios();
std::vector<Scenario> ResultsMenuScenarios();
std::vector<Scenario> PlugInScenarios();

}  // namespace e2e
