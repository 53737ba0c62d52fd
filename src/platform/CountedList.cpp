#include "platform/CountedList.h"

#include <algorithm>
#include <cstring>

#include "platform/RuntimeError.h"

namespace platform {

namespace {
constexpr std::size_t kSmallBlock = 4096, kLargeBlock = 256 * 1024;
}

CountedList& CountedList::operator=(const CountedList& other) {
  if (this != &other) {
    Reset();
    Append(other);
  }
  return *this;
}

void CountedList::Reset() {
  entries_ = {};
  folders_.assign(1, {});
  blocks_.clear();
  blockFree_ = blockBytes_ = 0;
  next_ = nullptr;
}

const char* CountedList::Store(std::string_view text) {
  if (text.empty()) return "";
  if (text.size() > blockFree_) {
    std::size_t size = std::max(text.size(), blocks_.size() < 8 ? kSmallBlock : kLargeBlock);
    blocks_.push_back(std::make_unique_for_overwrite<char[]>(size));
    next_ = blocks_.back().get();
    blockFree_ = size;
    blockBytes_ += size;
  }
  char* place = next_;
  std::memcpy(place, text.data(), text.size());
  next_ += text.size();
  blockFree_ -= text.size();
  return place;
}

void CountedList::Add(std::string_view text) { AddIn(0, text); }

std::uint32_t CountedList::AddFolder(std::string_view path) {
  folders_.emplace_back(Store(path), path.size());
  return static_cast<std::uint32_t>(folders_.size() - 1);
}

void CountedList::AddIn(std::uint32_t folder, std::string_view name) {
  entries_.push_back({Store(name), static_cast<std::uint32_t>(name.size()), folder});
}

void CountedList::Append(const CountedList& other) {
  std::vector<std::uint32_t> renumbered(other.folders_.size(), 0);
  for (std::size_t i = 1; i < other.folders_.size(); ++i) renumbered[i] = AddFolder(other.folders_[i]);
  entries_.reserve(entries_.size() + other.entries_.size());
  for (const Entry& entry : other.entries_) AddIn(renumbered[entry.folder], {entry.text, entry.length});
}

void CountedList::Get(int index, std::string& text) const {
  text.clear();
  if (index == UpperBound()) return;
  if (index < 0 || index > UpperBound()) throw SubscriptOutOfRange();
  text.append(folders_[FolderOf(index)]);
  text.append(NameText(index));
}

std::string CountedList::operator[](int index) const {
  std::string text;
  Get(index, text);
  return text;
}

std::size_t CountedList::MemoryUsed() const {
  return entries_.capacity() * sizeof(Entry) + folders_.capacity() * sizeof(std::string_view) + blockBytes_;
}

}  // namespace platform
