// Removing a list of a hundred thousand files.
#include <cstdlib>
#include <fstream>
#include <vector>

#include "Bench.h"
#include "platform/LibFile.h"

using namespace platform;

int main() {
  constexpr int kFiles = 100'000, kRounds = 3;
  bench::Computer computer;
  std::vector<CountedList> theirs, ours;
  std::string path, list = computer.Machine().DataFolder() + "/delete-list-";
  for (int round = 0; round < kRounds; ++round) {
    ours.push_back(computer.Files("Ours" + std::to_string(round), kFiles));
    theirs.push_back(computer.Files("Theirs" + std::to_string(round), kFiles));
    std::ofstream names(list + std::to_string(round), std::ios::binary);
    for (int i = 0; i < kFiles; ++i) {
      theirs.back().Get(i, path);
      names << computer.Native(path) << '\0';
    }
  }
  int theirRound = 0, ourRound = 0;
  bench::Compare(
      "Delete", 1.5,
      [&] { bench::Run("xargs -0 rm < " + bench::Quoted(list + std::to_string(theirRound++))); },
      [&] {
        const CountedList& files = ours[static_cast<std::size_t>(ourRound++)];
        for (int i = 0; i < kFiles; ++i) {
          files.Get(i, path);
          LibFile().GetSize(path);
          if (LibFile().Delete(path) != 1) std::exit(1);
        }
      },
      kRounds);
}
