// The slots of a table from which entries are taken out one by one, and the numbers of those that are left.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace base {

// Slots are added at the end and keep their places; the live ones are numbered from 0 in their order. While
// none has been removed, number and slot agree and everything costs O(1); from then on O(log n).
class LiveSlots {
 public:
  LiveSlots() = default;
  // What was moved from is empty.
  LiveSlots(LiveSlots&& other) noexcept { Take(other); }
  LiveSlots& operator=(LiveSlots&& other) noexcept {
    Take(other);
    return *this;
  }

  // How many slots are live.
  std::size_t Count() const { return live_; }
  // How many slots there are, removed ones included.
  std::size_t Slots() const { return slots_; }
  // So many are removed that the table is worth being packed anew.
  bool IsSparse() const { return slots_ > 64 && live_ < slots_ / 4; }

  void Add();
  // `slot` must be live.
  void Remove(std::size_t slot);
  // The removed slots are taken out of the table: number and slot agree again.
  void Pack();
  void Clear() { *this = LiveSlots(); }

  // `number` must be below Count().
  std::size_t SlotOf(std::size_t number) const { return tree_.empty() ? number : Search(number); }
  // The number of a live slot.
  std::size_t NumberOf(std::size_t slot) const;

  std::size_t MemoryUsed() const { return tree_.capacity() * sizeof tree_[0]; }

 private:
  static std::size_t LowestBit(std::size_t node) { return node & (~node + 1); }
  std::size_t Search(std::size_t number) const;
  void Take(LiveSlots& other) {
    slots_ = std::exchange(other.slots_, 0);
    live_ = std::exchange(other.live_, 0);
    tree_ = std::exchange(other.tree_, {});
  }

  std::size_t slots_ = 0, live_ = 0;
  // A Fenwick tree of the live slots; empty while no slot has been removed.
  std::vector<std::uint32_t> tree_;
};

}  // namespace base
