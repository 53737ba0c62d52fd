// What Windows does with the start entries at a logon, for a computer that is played on another system.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace entries {

struct Started {
  std::string name;
  // The entry's data: the path of a program, which may stand in quotes. Arguments aren't known.
  std::string program;
  bool good = false;
};

// Starts the programs of the machine's RunOnce entries, each taken out before it is started, and then those
// of the current user's Run entries, which stay. Programs of the family only: what else an entry names isn't
// started (see Processes::Start), and neither is any file of the played computer. A RunOnce entry that can't
// be taken out isn't started, or it would be at each logon. Nothing is waited for. Raises RuntimeError where
// the registry can't be read.
//
// The main program needs its own folder on the real computer: an entry for "Brasmir.exe" in the installation
// folder calls `startBrasmir`, which tells whether it did.
std::vector<Started> StartAll(const std::function<bool()>& startBrasmir);

}  // namespace entries
