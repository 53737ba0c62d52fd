// What the benchmarks share: a computer with a large tree, a yardstick beside each measurement, one line of
// result.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/CountedList.h"
#include "platform/host/HostMachine.h"
#include "support/NoDesktop.h"

namespace bench {

// Whoever is asked for his consent gives it.
class NoDesktop : public test::NoDesktop {
 public:
  NoDesktop() : test::NoDesktop(platform::BoxAnswer::Yes) {}
};

// A played computer in the folder that the environment variable BRASMIR_BENCH names (by default brasmir-bench
// in the folder for temporary files), which stays from run to run. It is the current machine while it lives.
class Computer {
 public:
  Computer();
  ~Computer();
  // The native path of "C:\...", names as given.
  std::string Native(const std::string& path) const;
  // "C:\Tree", made the first time: a million files in twenty thousand folders three levels deep.
  std::string Tree();
  // Fills the folder `name` of drive C: with `count` small files, a thousand in each sub-folder, and gives
  // their paths in the listing's order. What a run is to remove should be made before anything is removed:
  // ext4 makes files many times slower for seconds after a mass of them is gone.
  platform::CountedList Files(const std::string& name, int count);

  platform::HostMachine& Machine() { return *machine_; }
  NoDesktop desktop;

 private:
  std::string folder_;
  std::unique_ptr<platform::HostMachine> machine_;
};

// Runs a command line of the shell; ends the program if it fails.
void Run(const std::string& command);
// In single quotes for the shell.
std::string Quoted(const std::string& text);

// Takes the best time of `yardstick` and of `ours`, run one after the other `rounds` times, and prints
//   NAME RATIO LIMIT ok|SLOW
// with the times behind it. `before` runs ahead of each of the two, outside the time.
void Compare(const std::string& name, double limit, const std::function<void()>& yardstick,
             const std::function<void()>& ours, int rounds = 5, const std::function<void()>& before = {});

// Prints bytes for each of `count` things in the same form.
void Memory(const std::string& name, double limit, std::size_t bytes, int count);

}  // namespace bench
