// Commands in this process, on a computer of the test's own.
#pragma once

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "command/Program.h"
#include "core/Keys.h"
#include "settings/Seed.h"
#include "support/Session.h"
#include "support/TestComputer.h"

namespace test {

struct Answer {
  int code = -1;
  std::string out, err;
};

class CommandTest : public testing::Test {
 protected:
  CommandTest() {
    EXPECT_TRUE(settings::Seed(PackagedFile("first-time-settings.txt"), TestComputer::InstallDirectory()));
    computer.SetValue(core::keys::kDrives, "C:\\", "");
    computer.SetValue(core::keys::kSelectedDrives, "C:\\", "True");
    computer.SetValue(core::keys::kInclude, "Invalid shortcuts", "0");
  }

  // `in` is what stands at the standard input, which is a terminal if a person is to be asked.
  Answer Run(const Strings& words, const std::string& in = {}, bool terminal = false) {
    std::istringstream input(in);
    std::ostringstream output, errors;
    command::Console console{.in = input, .out = output, .err = errors, .inIsTerminal = terminal};
    Answer answer;
    answer.code = command::Run(
        words, console,
        {.dataFolder = computer.DataFolder(), .userName = "User", .shareFolder = BRASMIR_ROOT "/packaging"});
    platform::SetCurrentMachine(&computer.Machine());
    platform::SetCurrentDesktop(&computer.desktop);
    // What the command has written to the settings is seen at once.
    computer.Machine().Registry().State();
    answer.out = output.str();
    answer.err = errors.str();
    return answer;
  }

  // The objects of an answer in JSON, each of them as the schema says.
  static std::vector<nlohmann::json> Objects(const Answer& answer);

  // Paths of an answer to --null, sorted.
  static Strings Paths(const Answer& answer) {
    Strings paths;
    std::istringstream out(answer.out);
    for (std::string path; std::getline(out, path, '\0');) paths.push_back(path);
    std::sort(paths.begin(), paths.end());
    return paths;
  }

  std::string Stored(const char* key, const char* name) { return computer.GetValue(key, name); }

  TestComputer computer;
};

}  // namespace test
