// One of the two lists of files that are handed over to the boot-time cleaner.
#pragma once

#include <string>
#include <vector>

namespace kelvish {

// Other programs append to the list at any time, under the claim core::handover::kClaim, which both
// operations take for their moment. A list is worked off from a file aside, "<name> in work.txt", so that
// nothing appended meanwhile is mixed with it; that file goes only once what failed stands in the list again.
// An end of the process at any moment leaves every line in one of the two, and an aside left behind is part
// of what the next Take gives.
class WorkList {
 public:
  struct Lines {
    std::vector<std::string> paths;
    // Lines that name no file for certain: one without its end, which may be the half of a path, and one with
    // a character that the code page hasn't got.
    std::vector<std::string> unusable;
  };

  // `path` ends in ".txt".
  explicit WorkList(std::string path);

  // There is no such list, and none aside. Ask under the claim.
  bool Gone() const;
  // All lines handed over so far, each once and in their order. Raises RuntimeError where they can't be had.
  Lines Take();
  // Makes the list from the lines that are to be tried again and those that have been added meanwhile, each
  // once, and forgets what was taken. A list without lines goes away. Raises RuntimeError, and then all stays
  // aside.
  void PutBack(const std::vector<std::string>& kept);

 private:
  std::string path_, aside_;
};

}  // namespace kelvish
