// One of the two lists of files that are handed over to the boot-time cleaner, while it is worked off.
#pragma once

#include <string>
#include <unordered_set>
#include <vector>

#include "core/HandOver.h"

namespace kelvish {

// Other programs add lines at any time, under the claim core::handover::kClaim, which the operations take for
// their moment. Lines added meanwhile wait for the next start. A line is taken out after its file has been
// dealt with, so that an end of the process at any moment loses none: what was removed already is then found
// to be gone.
class WorkList {
 public:
  // `install` with its trailing backslash.
  WorkList(const core::handover::List& list, std::string install)
      : list_(list), install_(std::move(install)) {}

  // Nothing is handed over. Ask under the claim.
  bool IsEmpty() const { return core::handover::IsEmpty(list_); }
  // All lines so far in their order; of those that are the same to the letter only the first, the others are
  // taken out. Raises RuntimeError where they can't be had.
  std::vector<core::handover::Line> Take();
  // The line has been dealt with. Taken out with others, at the latest by Finish.
  void Done(const core::handover::Line& line);
  // Takes out what is done, and makes the reader's copy anew from what is left; it goes with the last line.
  // Raises RuntimeError where the lines can't be taken out.
  void Finish();
  // The copy alone; nothing that stands in it is believed.
  void ShowRest() const;

 private:
  void TakeOut();

  const core::handover::List& list_;
  std::string install_;
  std::vector<std::string> done_;
};

}  // namespace kelvish
