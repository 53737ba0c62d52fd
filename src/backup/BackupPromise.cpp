#include "backup/BackupPromise.h"

#include <functional>
#include <string>

namespace backup {

namespace {

std::size_t HashOf(std::string_view path) {
  return std::hash<std::string_view>()(path);
}

}  // namespace

std::size_t BackupPromise::SlotOf(std::string_view path) const {
  std::size_t mask = slots_.size() - 1, slot = HashOf(path) & mask;
  for (; slots_[slot] != 0; slot = (slot + 1) & mask) {
    int place = static_cast<int>(slots_[slot] - 1);
    std::string_view folder = paths_.FolderText(paths_.FolderOf(place)), name = paths_.NameText(place);
    if (path.size() == folder.size() + name.size() && path.starts_with(folder) && path.ends_with(name)) break;
  }
  return slot;
}

void BackupPromise::Grow() {
  std::size_t size = slots_.empty() ? 64 : slots_.size() * 2;
  slots_.assign(size, 0);
  std::string path;
  for (int place = 0; place < paths_.UpperBound(); ++place) {
    paths_.Get(place, path);
    std::size_t slot = HashOf(path) & (size - 1);
    while (slots_[slot] != 0) slot = (slot + 1) & (size - 1);
    slots_[slot] = static_cast<std::uint32_t>(place) + 1;
  }
}

void BackupPromise::Add(std::string_view path, std::uint64_t size, platform::Moment modified) {
  if ((stored_.size() + 1) * 4 > slots_.size() * 3) Grow();
  std::uint32_t& entry = slots_[SlotOf(path)];
  if (entry != 0) {
    stored_[entry - 1] = {size, modified};
    return;
  }
  std::size_t name = path.rfind('\\') + 1;  // 0 where there is none
  paths_.AddIn(path.substr(0, name), path.substr(name));
  stored_.push_back({size, modified});
  entry = static_cast<std::uint32_t>(stored_.size());
}

bool BackupPromise::Holds(std::string_view path, const platform::EntryInfo& now) const {
  if (now.kind != platform::EntryKind::File || slots_.empty()) return false;
  std::uint32_t entry = slots_[SlotOf(path)];
  if (entry == 0) return false;
  const Stored& stored = stored_[entry - 1];
  return stored.size == now.size && stored.modified == now.modified;
}

std::size_t BackupPromise::MemoryUsed() const {
  return paths_.MemoryUsed() + stored_.capacity() * sizeof(Stored) + slots_.capacity() * sizeof(slots_[0]);
}

}  // namespace backup
