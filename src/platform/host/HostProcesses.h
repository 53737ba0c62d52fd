// The programs of the family that run on this machine.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "platform/Machine.h"

namespace platform {

// The programs of the family, "Chronel.exe" and "Kelvish.exe", are the native executables "Chronel" and
// "Kelvish" of a folder of their own, wherever on the played computer a path says that they lie: what lies
// there is never executed, because whoever made the disk may have put it there. Nothing else is started.
class HostProcesses : public Processes {
 public:
  // `programs` is the native folder of the executables; with an empty one nothing is started. Claims are
  // locks on files "<name>.lock" in `dataFolder`; the system drops them with the process, however it ends.
  HostProcesses(Locale& locale, std::string dataFolder, std::string programs)
      : locale_(locale), dataFolder_(std::move(dataFolder)), programs_(std::move(programs)) {}
  ~HostProcesses() override;

  // Detached, in a session of its own, without input and output, in the data folder. Where that is called
  // "brasmir", XDG_DATA_HOME tells the program of it.
  bool Start(std::string_view program) override;
  // Asks those that Start has started for this data folder to end (SIGTERM), whatever `folder` is. Never the
  // calling process.
  int CloseByName(std::string_view name, std::string_view folder) override;
  // In a data folder that can't be written and holds no lock file the claim is granted, since nobody can hold
  // it.
  bool ClaimInstance(std::string_view name) override;
  void ReleaseInstance(std::string_view name) override;
  bool InstanceRuns(std::string_view name) override;

 private:
  std::string LockFile(std::string_view name) const;
  // The native executable; empty for a name of no program of the family.
  std::string Executable(std::string_view name) const;
  Locale& locale_;
  std::string dataFolder_, programs_;
  std::map<std::string, int, std::less<>> claims_;  // open files by name
};

}  // namespace platform
