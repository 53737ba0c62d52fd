// A counted list: strings from index 0, with a count beside them.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/LiveSlots.h"

namespace platform {

// The upper bound equals the count: behind the last entry stands one empty slot, which operator[] gives as an
// empty string. A list is walked from 0 to UpperBound() - 1, and is empty when its upper bound is 0.
//
// Made for the paths of millions of files: texts lie in large blocks, and a path can be entered as a folder,
// held once, and a name; a folder in turn as the one that it lies in and its own name, so that a tree of any
// depth takes no more room than its names. An entry costs 16 bytes and its own characters.
class CountedList {
 public:
  CountedList() = default;
  // The list that was moved from is empty.
  CountedList(CountedList&& other) noexcept { Take(other); }
  CountedList& operator=(CountedList&& other) noexcept;
  CountedList(const CountedList& other) { Append(other); }
  CountedList& operator=(const CountedList& other);

  void Reset();
  void Add(std::string_view text);

  // A folder that names are entered under; `path` must be what stands before the name, its backslash
  // included. Gives the folder's number, which holds until Reset.
  std::uint32_t AddFolder(std::string_view path) { return AddFolder(0, path); }
  // A folder in another one: `name` with its backslash.
  std::uint32_t AddFolder(std::uint32_t parent, std::string_view name);
  void AddIn(std::uint32_t folder, std::string_view name);
  // Both in one: a folder that the last entry lies in is held once.
  void AddIn(std::string_view folder, std::string_view name);
  void Append(const CountedList& other);
  // Takes an entry out, so that those behind it move up by one. O(log n); from then on reading an entry costs
  // as much, until the list is reset.
  void Remove(int index);

  int UpperBound() const { return static_cast<int>(slots_.Count()); }
  bool Empty() const { return slots_.Count() == 0; }
  void Reserve(int entries) { entries_.reserve(static_cast<std::size_t>(entries)); }

  // The whole text of an entry; an empty string at the upper bound. Raises error 9 beyond.
  std::string operator[](int index) const;
  // The same into a string that keeps its memory from call to call.
  void Get(int index, std::string& text) const;

  // The two pieces of an entry; whole = FolderText(FolderOf(i)) + NameText(i). For an entry that was added as
  // one text the folder is number 0, which is empty. A folder's text holds until that of another one is asked
  // for.
  std::uint32_t FolderOf(int index) const { return At(index).folder; }
  std::string_view FolderText(std::uint32_t folder) const;
  std::string_view NameText(int index) const {
    const Entry& entry = At(index);
    return {entry.text, entry.length};
  }

  // Bytes that the list holds, blocks and tables together.
  std::size_t MemoryUsed() const;

 private:
  struct Entry {
    const char* text;  // null for an entry that has been removed
    std::uint32_t length;
    std::uint32_t folder;
  };
  struct Folder {
    const char* text;
    std::uint32_t length;
    std::uint32_t parent;  // 0 for none
  };
  const char* Store(std::string_view text);
  const Entry& At(int index) const { return entries_[slots_.SlotOf(static_cast<std::size_t>(index))]; }
  void AppendFolder(std::uint32_t folder, std::string& text) const;
  void Take(CountedList& other);

  std::vector<Entry> entries_;
  base::LiveSlots slots_;
  std::vector<Folder> folders_;
  // The folder whose text was put together last.
  mutable std::uint32_t shownFolder_ = 0;
  mutable std::string shownText_;
  std::vector<std::unique_ptr<char[]>> blocks_;
  std::size_t blockFree_ = 0, blockBytes_ = 0;
  char* next_ = nullptr;
};

}  // namespace platform
