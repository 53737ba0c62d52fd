// The settings of a first start, told as data in packaging/first-time-settings.txt.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace settings {

// One value below the current user's hive.
struct SeedValue {
  std::string key, name, data;
  bool operator==(const SeedValue&) const = default;
};

// Reads the text of the settings file; its form is told at its top. `installDirectory` stands for
// %InstallDirectory%, the computer's own folders for the others. Throws std::invalid_argument, which names
// the line, for a text that breaks the form.
std::vector<SeedValue> ParseSeed(std::string_view text, const std::string& installDirectory);

// Whether the program has settings. Raises RuntimeError where the store can't be read.
bool HasSettings();

// Writes all values in one transaction, and makes the program's own folders where they are missing. False,
// and nothing is left of it, if the text breaks its form or a value can't be written.
bool Seed(std::string_view text, const std::string& installDirectory);

}  // namespace settings
