#include "platform/CountedList.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "platform/RuntimeError.h"

namespace platform {

namespace {
constexpr std::size_t kSmallBlock = 4096, kLargeBlock = 256 * 1024;
}

CountedList& CountedList::operator=(CountedList&& other) noexcept {
  if (this != &other) Take(other);
  return *this;
}

CountedList& CountedList::operator=(const CountedList& other) {
  if (this != &other) {
    Reset();
    Append(other);
  }
  return *this;
}

void CountedList::Take(CountedList& other) {
  entries_ = std::exchange(other.entries_, {});
  slots_ = std::move(other.slots_);
  folders_ = std::exchange(other.folders_, {});
  blocks_ = std::exchange(other.blocks_, {});
  blockFree_ = std::exchange(other.blockFree_, 0);
  blockBytes_ = std::exchange(other.blockBytes_, 0);
  next_ = std::exchange(other.next_, nullptr);
  shownFolder_ = other.shownFolder_ = 0;
}

void CountedList::Reset() {
  CountedList empty;
  Take(empty);
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

void CountedList::Add(std::string_view text) {
  AddIn(0, text);
}

std::uint32_t CountedList::AddFolder(std::uint32_t parent, std::string_view name) {
  folders_.push_back({Store(name), static_cast<std::uint32_t>(name.size()), parent});
  return static_cast<std::uint32_t>(folders_.size());
}

std::string_view CountedList::FolderText(std::uint32_t folder) const {
  if (folder == 0) return {};
  const Folder& own = folders_[folder - 1];
  if (own.parent == 0) return {own.text, own.length};
  if (folder != shownFolder_) {
    shownText_.clear();
    AppendFolder(folder, shownText_);
    shownFolder_ = folder;
  }
  return shownText_;
}

void CountedList::AppendFolder(std::uint32_t folder, std::string& text) const {
  std::size_t length = 0;
  for (std::uint32_t at = folder; at != 0; at = folders_[at - 1].parent) length += folders_[at - 1].length;
  std::size_t end = text.size() + length;
  text.resize(end);
  for (std::uint32_t at = folder; at != 0; at = folders_[at - 1].parent) {
    const Folder& part = folders_[at - 1];
    end -= part.length;
    std::memcpy(text.data() + end, part.text, part.length);
  }
}

void CountedList::AddIn(std::uint32_t folder, std::string_view name) {
  entries_.push_back({Store(name), static_cast<std::uint32_t>(name.size()), folder});
  slots_.Add();
}

void CountedList::AddIn(std::string_view folder, std::string_view name) {
  std::uint32_t number = entries_.empty() ? 0 : entries_.back().folder;
  if (FolderText(number) != folder) number = folder.empty() ? 0 : AddFolder(folder);
  AddIn(number, name);
}

void CountedList::Append(const CountedList& other) {
  std::vector<std::uint32_t> renumbered(other.folders_.size() + 1, 0);
  // A folder stands behind the one that it lies in.
  for (std::size_t i = 1; i < renumbered.size(); ++i) {
    Folder folder = other.folders_[i - 1];
    renumbered[i] = AddFolder(renumbered[folder.parent], {folder.text, folder.length});
  }
  entries_.reserve(entries_.size() + other.slots_.Count());
  for (const Entry& entry : other.entries_)
    if (entry.text) AddIn(renumbered[entry.folder], {entry.text, entry.length});
}

void CountedList::Remove(int index) {
  if (index < 0 || index >= UpperBound()) throw SubscriptOutOfRange();
  std::size_t slot = slots_.SlotOf(static_cast<std::size_t>(index));
  entries_[slot].text = nullptr;
  slots_.Remove(slot);
  if (!slots_.IsSparse()) return;
  std::erase_if(entries_, [](const Entry& entry) { return !entry.text; });
  slots_.Pack();
}

void CountedList::Get(int index, std::string& text) const {
  text.clear();
  if (index == UpperBound()) return;
  if (index < 0 || index > UpperBound()) throw SubscriptOutOfRange();
  const Entry& entry = At(index);
  AppendFolder(entry.folder, text);
  text.append(entry.text, entry.length);
}

std::string CountedList::operator[](int index) const {
  std::string text;
  Get(index, text);
  return text;
}

std::size_t CountedList::MemoryUsed() const {
  return entries_.capacity() * sizeof(Entry) + slots_.MemoryUsed() + folders_.capacity() * sizeof(Folder) +
         blockBytes_;
}

}  // namespace platform
