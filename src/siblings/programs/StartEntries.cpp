// Run at a logon: starts what is entered for it in the registry. Takes no arguments; see tools/start-entries.
#include "siblings/entries/StartEntries.h"

#include <exception>
#include <fcntl.h>
#include <filesystem>
#include <iostream>
#include <spawn.h>
#include <unistd.h>

#include "platform/host/HostMachine.h"
#include "platform/host/HostPrivacy.h"

namespace {

// The main program, which lies beside this one.
bool StartBrasmir() {
  std::error_code error;
  std::string program = std::filesystem::read_symlink("/proc/self/exe", error).parent_path() / "Brasmir";
  if (access(program.c_str(), X_OK) != 0) return false;
  posix_spawn_file_actions_t files;
  posix_spawn_file_actions_init(&files);
  for (int file : {0, 1, 2}) posix_spawn_file_actions_addopen(&files, file, "/dev/null", O_RDWR, 0);
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID);
  char* arguments[] = {program.data(), nullptr};
  pid_t process;
  bool good = posix_spawn(&process, program.c_str(), &files, &attributes, arguments, environ) == 0;
  posix_spawnattr_destroy(&attributes);
  posix_spawn_file_actions_destroy(&files);
  return good;
}

}  // namespace

int main() {
  platform::MakeNewFilesPrivate();
  platform::HostMachine machine({.programs = platform::HostMachine::ShareFolder() + "/bin"});
  platform::SetCurrentMachine(&machine);
  int result = 0;
  try {
    for (const entries::Started& entry : entries::StartAll(StartBrasmir)) {
      std::cout << (entry.good ? "started " : "not started ") << entry.name << ": " << entry.program << '\n';
      if (!entry.good) result = 1;
    }
  } catch (const std::exception& error) {
    std::cerr << "StartEntries: " << error.what() << '\n';
    const platform::StoreState store = machine.Registry().State();
    if (!platform::IsReadable(store.health))
      std::cerr << store.place << '\n' << store.fault << '\n' << store.advice << '\n';
    result = 1;
  }
  platform::SetCurrentMachine(nullptr);
  return result;
}
