// The shared lists, out of everybody's reach while a loop over them yields.
#pragma once

#include <utility>

#include "core/m_SharedProcedures.h"

namespace lumaro {

// Takes gFiles and gFolders away, which are empty meanwhile, and puts them back in place of whatever was
// listed there since.
class ListsAside {
 public:
  ListsAside() { Exchange(); }
  ~ListsAside() { Exchange(); }
  ListsAside(const ListsAside&) = delete;
  ListsAside& operator=(const ListsAside&) = delete;

  const platform::CountedList& Files() const { return files_; }

 private:
  void Exchange() {
    std::swap(files_, gFiles);
    std::swap(folders_, gFolders);
  }
  platform::CountedList files_, folders_;
};

}  // namespace lumaro
