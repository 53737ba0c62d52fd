// The browser cache of the played computer.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/Machine.h"

namespace platform {

// The cache folder holds an index, "entries.txt", in UTF-8. Each line tells of one entry and ends in LF: "+",
// the key, a tab and the entry's file as a path below the cache folder, which is empty for an entry without
// one:
//
//   +https://example.org/logo.png<tab>IE\AB12CD34\logo.png
//   +Cookie:user@example.org/<tab>
//
// A later line with the same key replaces the earlier one, and a line of "-" and the key takes the entry
// away, so that whoever adds or removes only ever appends. A last line without its LF was never finished and
// counts for nothing. Keys are URLs and compare with case.
//
// Removing appends; once most lines speak of entries that have gone, the index is written anew beside and
// renamed. So a removal costs the same in a cache of a hundred entries and of a million, and a kill loses
// none.
class HostBrowserCache : public BrowserCache {
 public:
  // `folder` is where the cache folder belongs, whether or not it is there.
  HostBrowserCache(FileSystem& files, std::string folder)
      : files_(files), folder_(std::move(folder)), index_(folder_ + "\\entries.txt") {}
  // In the order of their making. A computer without a cache folder or an index has none.
  Status List(std::vector<std::string>& keys) override;
  // The entry and its file. Missing for a key that isn't there; an entry whose file can't be removed stays.
  Status Remove(std::string_view key) override;

 private:
  struct Entry {
    std::string file;
    std::size_t number;  // the line that made it
  };
  // Reads the index unless it is the one that was read last.
  Status Refresh();
  void TakeLine(std::string_view line);
  Status RemoveEntryFile(const std::string& file);
  Status AppendLine(std::string_view line);
  Status Rewrite();
  void NoteState();

  FileSystem& files_;
  std::string folder_, index_;
  std::unordered_map<std::string, Entry> entries_;
  std::size_t lines_ = 0;        // in the index
  std::uint64_t wholeSize_ = 0;  // of its finished lines
  // What the index was when it was read or written last.
  bool known_ = false;
  std::uint64_t size_ = 0;
  Moment modified_ = 0;
};

}  // namespace platform
