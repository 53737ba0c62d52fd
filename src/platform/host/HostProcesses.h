// The programs of the family that run on this machine.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "platform/Machine.h"

namespace platform {

// A program is a native executable that lies on a drive of the played computer; "Chronel.exe" and "Chronel"
// are names of the same one.
class HostProcesses : public Processes {
 public:
  // Claims are locks on files "<name>.lock" in `dataFolder`; the system drops them with the process, however
  // it ends.
  HostProcesses(Machine& machine, std::string dataFolder,
                std::function<std::string(std::string_view)> toNative)
      : machine_(machine), dataFolder_(std::move(dataFolder)), toNative_(std::move(toNative)) {}
  ~HostProcesses() override;

  // Detached, in a session of its own, without input and output, in the program's folder. Where the data
  // folder is called "brasmir", XDG_DATA_HOME tells the program of it. A link is never started.
  bool Start(std::string_view program) override;
  // Asks them to end (SIGTERM). Never the calling process.
  int CloseByName(std::string_view name, std::string_view folder) override;
  // In a data folder that can't be written and holds no lock file the claim is granted, since nobody can hold
  // it.
  bool ClaimInstance(std::string_view name) override;
  void ReleaseInstance(std::string_view name) override;
  bool InstanceRuns(std::string_view name) override;

 private:
  std::string LockFile(std::string_view name) const;
  Machine& machine_;
  std::string dataFolder_;
  std::function<std::string(std::string_view)> toNative_;
  std::map<std::string, int, std::less<>> claims_;  // open files by name
};

}  // namespace platform
