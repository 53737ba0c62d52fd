#include "Sample.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>

#include "platform/host/HostMachine.h"
#include "program/Program.h"

namespace fs = std::filesystem;

namespace e2e {

namespace {
int failures = 0;
}

void Check(bool holds, const std::string& what) {
  if (holds) return;
  std::printf("FAILED: %s\n", what.c_str());
  ++failures;
}

int Failures() {
  return failures;
}

Sample::Sample(int files) {
  std::string pattern = fs::temp_directory_path() / "brasmir-e2e-XXXXXX";
  root = ::mkdtemp(pattern.data());
  data = root / "data";
  std::string command = std::string(BRASMIR_ROOT "/packaging/sample-computer/make-sample-computer '") +
                        (data / "drives").string() + "' --user User --files " + std::to_string(files) +
                        " >/dev/null";
  if (std::system(command.c_str()) != 0) std::abort();
  fs::current_path(root);
}

Sample::~Sample() {
  fs::remove_all(root);
}

int Sample::Run(std::function<void(program::Player&)> play) {
  std::string name = "whole_program";
  char* argv[] = {name.data(), nullptr};
  return program::Run({.dataFolder = data,
                       .userName = "User",
                       .shareFolder = program::ShareFolder(),
                       .started =
                           [&] {
                             program::Player player;
                             play(player);
                           }},
                      1, argv);
}

std::string Sample::Stored(const std::string& key, const std::string& name) const {
  platform::HostMachine machine({.dataFolder = data, .userName = "User"});
  return machine.Registry().Read(platform::kCurrentUser, key, name).text;
}

std::string ReadAll(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::map<std::string, long> Listing(const fs::path& folder) {
  std::map<std::string, long> files;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (entry.is_symlink())
      files[entry.path().lexically_relative(folder)] = -1;
    else if (entry.is_regular_file())
      files[entry.path().lexically_relative(folder)] = static_cast<long>(entry.file_size());
  }
  return files;
}

void CheckTheRestStands(const Sample& sample, const std::map<std::string, long>& system) {
  Check(Listing(sample.Drive() / "Windows/System32") == system, "System32 is as it was");
  Check(fs::exists(sample.data / "outside/keep me.tmp"), "what a link leads to is there");
  Check(fs::exists(sample.Drive() / "Users/User/Documents"), "the documents are there");
}

}  // namespace e2e
