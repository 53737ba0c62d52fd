// A counted list: strings from index 0, with a count beside them.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

// The upper bound equals the count: behind the last entry stands one empty slot, which operator[] gives as an
// empty string. A list is walked from 0 to UpperBound() - 1, and is empty when its upper bound is 0.
//
// Made for the paths of millions of files: texts lie in large blocks, and a path can be entered as a folder, held
// once, and a name. An entry costs 16 bytes and its own characters.
class CountedList {
 public:
  CountedList() { folders_.emplace_back(); }
  CountedList(CountedList&&) noexcept = default;
  CountedList& operator=(CountedList&&) noexcept = default;
  CountedList(const CountedList& other) : CountedList() { Append(other); }
  CountedList& operator=(const CountedList& other);

  void Reset();
  void Add(std::string_view text);

  // A folder that names are entered under; `path` must be what stands before the name, its backslash included.
  // Gives the folder's number, which holds until Reset.
  std::uint32_t AddFolder(std::string_view path);
  void AddIn(std::uint32_t folder, std::string_view name);
  void Append(const CountedList& other);

  int UpperBound() const { return static_cast<int>(entries_.size()); }
  bool Empty() const { return entries_.empty(); }
  void Reserve(int entries) { entries_.reserve(static_cast<std::size_t>(entries)); }

  // The whole text of an entry; an empty string at the upper bound. Raises error 9 beyond.
  std::string operator[](int index) const;
  // The same into a string that keeps its memory from call to call.
  void Get(int index, std::string& text) const;

  // The two pieces of an entry; whole = FolderText(FolderOf(i)) + NameText(i). For an entry that was added as one
  // text the folder is number 0, which is empty.
  std::uint32_t FolderOf(int index) const { return entries_[static_cast<std::size_t>(index)].folder; }
  std::string_view FolderText(std::uint32_t folder) const { return folders_[folder]; }
  std::string_view NameText(int index) const {
    const Entry& entry = entries_[static_cast<std::size_t>(index)];
    return {entry.text, entry.length};
  }

  // Bytes that the list holds, blocks and tables together.
  std::size_t MemoryUsed() const;

 private:
  struct Entry {
    const char* text;
    std::uint32_t length;
    std::uint32_t folder;
  };
  const char* Store(std::string_view text);

  std::vector<Entry> entries_;
  std::vector<std::string_view> folders_;
  std::vector<std::unique_ptr<char[]>> blocks_;
  std::size_t blockFree_ = 0, blockBytes_ = 0;
  char* next_ = nullptr;
};

}  // namespace platform
