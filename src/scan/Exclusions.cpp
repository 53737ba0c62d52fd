#include "scan/Exclusions.h"

namespace scan {

Exclusions::Exclusions(const platform::CountedList& directories, const platform::CountedList& files) {
  for (const platform::CountedList* list : {&directories, &files}) {
    for (int i = 0; i < list->UpperBound(); ++i) {
      std::string entry = (*list)[i];
      if (entry.empty())
        everything_ = true;
      else
        entries_.Add(entry);
      if (entry.find('\\') == entry.npos) mayLieInName_ = true;
    }
  }
  entries_.Prepare();
}

bool Exclusions::Cover(const FoundFile& file) const {
  if (everything_) return !file.Folder().empty() || !file.Name().empty();
  if (file.Folder() != folder_) {
    folder_ = file.Folder();
    behindFolder_ = PatternSet::kStart;
    folderCovered_ = entries_.Finds(behindFolder_, folder_);
  }
  if (folderCovered_) return true;
  if (behindFolder_ == PatternSet::kStart && !mayLieInName_) return false;
  // Carried on from the folder's end, so that an entry which spans folder and name is found as well.
  PatternSet::State state = behindFolder_;
  return entries_.Finds(state, file.Name());
}

}  // namespace scan
