// A shared list, out of everybody's reach while a loop over it yields.
#pragma once

#include <utility>

#include "platform/CountedList.h"

namespace scan {

// Keeps a shared list away from whatever runs in the pump, and puts it back at the end.
class ListAside {
 public:
  explicit ListAside(platform::CountedList& shared) : shared_(shared), list_(std::move(shared)) {}
  ~ListAside() { shared_ = std::move(list_); }
  ListAside(const ListAside&) = delete;
  ListAside& operator=(const ListAside&) = delete;
  const platform::CountedList& List() const { return list_; }

 private:
  platform::CountedList& shared_;
  platform::CountedList list_;
};

}  // namespace scan
