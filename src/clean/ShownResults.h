// The rows of the results and the list that they show, kept alike while files are removed.
#pragma once

#include <cstdint>
#include <string>

#include "forms/frmMain.h"
#include "platform/CountedList.h"

namespace m_CleanFiles {

// After each Update the list of the category in the combo box is what the rows are: entries that a narrowing
// has hidden are gone from it. The first Update rebuilds the list from the rows. Later ones take the same
// entry out of both, as long as nothing else has touched the rows since: then, and when the combo box shows
// another category, the list is rebuilt.
class ShownResults {
 public:
  explicit ShownResults(frmMain& form) : form_(form) {}
  // For an outcome of exactly 1 the first row of that path, case included, goes away.
  void Update(const std::string& sFile, long lResult);

 private:
  frmMain& form_;
  const platform::CountedList* list_ = nullptr;
  std::uint64_t version_ = 0;
};

}  // namespace m_CleanFiles
