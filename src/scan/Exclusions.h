// The exclusion lists, prepared for judging many paths.
#pragma once

#include <string>

#include "platform/CountedList.h"
#include "scan/FoundFile.h"
#include "scan/PatternSet.h"

namespace scan {

// An entry is a text to look for anywhere in a path, without regard to case: nothing anchors it to the start,
// and the backslash means nothing special. Made once for a run; a folder is then judged once for all files in
// it, and a file costs a pass over its name at most.
class Exclusions {
 public:
  explicit Exclusions(const platform::CountedList& directories) : Exclusions(directories, {}) {}
  Exclusions(const platform::CountedList& directories, const platform::CountedList& files);

  // True if the path holds an entry.
  bool Cover(const FoundFile& file) const;

 private:
  PatternSet entries_;
  // An entry without a backslash may lie within a name; any other begins in the folder.
  bool mayLieInName_ = false;
  // An empty entry stands in every path that isn't empty itself.
  bool everything_ = false;
  // The folder judged last, and where its text leaves the search.
  mutable std::string folder_;
  mutable bool folderCovered_ = false;
  mutable PatternSet::State behindFolder_ = PatternSet::kStart;
};

}  // namespace scan
