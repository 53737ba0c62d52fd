// What the backup of one run holds, asked before anything is removed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/CountedList.h"
#include "platform/FileSystem.h"

namespace backup {

// A run makes one, hands it to AbaleZip::Zip, which enters every file that it has stored for certain, and
// asks it for each file that is about to be removed. Holds some 60 bytes for a file beside its name.
class BackupPromise {
 public:
  // The archive holds the file of this path, of that size in bytes and with that moment of the last change.
  // What was entered for the same path before no longer counts.
  void Add(std::string_view path, std::uint64_t size, platform::Moment modified);

  // True if the archive holds the file as it lies there now: a plain file under a path of the very same
  // bytes, of the same size and last changed at the same moment. `now` is what FileSystem::Look says of it.
  bool Holds(std::string_view path, const platform::EntryInfo& now) const;

  int Count() const { return paths_.UpperBound(); }
  // Bytes of memory that all of it takes.
  std::size_t MemoryUsed() const;

 private:
  struct Stored {
    std::uint64_t size;
    platform::Moment modified;
  };
  // The slot of a path, or the empty one where it belongs.
  std::size_t SlotOf(std::string_view path) const;
  void Grow();

  platform::CountedList paths_;
  std::vector<Stored> stored_;        // beside paths_
  std::vector<std::uint32_t> slots_;  // by hash: 0 for none, otherwise the place in paths_ plus 1
};

}  // namespace backup
