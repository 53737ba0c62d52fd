#include "Sample.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sys/wait.h>
#include <unistd.h>

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

fs::path Sample::Native(const std::string& path) const {
  std::string rest = path.substr(3);
  std::replace(rest.begin(), rest.end(), '\\', '/');
  return Drive() / rest;
}

int Sample::InBin() const {
  int files = 0;
  if (fs::exists(Drive() / "$Recycle.Bin"))
    for (const auto& [name, size] : Listing(Drive() / "$Recycle.Bin"))
      files += fs::path(name).filename().string().starts_with("$R");
  return files;
}

fs::path Sample::UnpackedBackup() const {
  std::string archive, unpacked = root / "unpacked";
  for (const auto& entry : fs::directory_iterator(Install() / "Backup")) archive = entry.path();
  Check(!archive.empty(), "there is an archive");
  for (const std::string& command :
       {"unzip -tqq '" + archive + "' >/dev/null", "7z t '" + archive + "' >/dev/null",
        "unzip -qq '" + archive + "' -d '" + unpacked + "'"})
    Check(std::system(command.c_str()) == 0, "done well: " + command);
  return unpacked;
}

int Sample::Run(std::function<void(play::Player&)> play) {
  return Start({}, [&] {
    play::Player player;
    play(player);
  });
}

void Sample::RunAside(std::function<void(play::Player&)> play) {
  pid_t child = fork();
  if (child == 0) {
    Run(std::move(play));
    std::fflush(stdout);
    _exit(failures == 0 ? 0 : 1);
  }
  int status = 1;
  waitpid(child, &status, 0);
  Check(WIFEXITED(status) && WEXITSTATUS(status) == 0, "the start aside: " + std::to_string(status));
}

int Sample::Start(std::function<void()> starting, std::function<void()> started) {
  std::string name = "whole_program";
  char* argv[] = {name.data(), nullptr};
  return program::Run(
      {.computer = {.dataFolder = data, .userName = "User", .shareFolder = computer::ShareFolder()},
       .starting = std::move(starting),
       .started = std::move(started)},
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
