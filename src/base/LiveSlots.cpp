#include "base/LiveSlots.h"

#include <bit>

namespace base {

void LiveSlots::Add() {
  ++slots_;
  ++live_;
  if (tree_.empty()) return;
  // The new node covers the slots behind its lowest set bit, which are those of its children and itself.
  std::uint32_t sum = 1;
  for (std::size_t child = 1; child < LowestBit(slots_); child *= 2) sum += tree_[slots_ - child];
  tree_.push_back(sum);
}

void LiveSlots::Remove(std::size_t slot) {
  if (tree_.empty()) {
    tree_.resize(slots_ + 1);
    for (std::size_t node = 1; node < tree_.size(); ++node)
      tree_[node] = static_cast<std::uint32_t>(LowestBit(node));
  }
  --live_;
  for (std::size_t node = slot + 1; node < tree_.size(); node += LowestBit(node)) --tree_[node];
}

void LiveSlots::Pack() {
  slots_ = live_;
  tree_ = {};
}

std::size_t LiveSlots::Search(std::size_t number) const {
  // Descend to the slot before which exactly `number` slots are live.
  std::size_t slot = 0;
  auto rest = static_cast<std::uint32_t>(number) + 1;
  for (std::size_t step = std::bit_floor(tree_.size() - 1); step; step /= 2) {
    if (slot + step < tree_.size() && tree_[slot + step] < rest) {
      slot += step;
      rest -= tree_[slot];
    }
  }
  return slot;
}

std::size_t LiveSlots::NumberOf(std::size_t slot) const {
  if (tree_.empty()) return slot;
  std::size_t before = 0;
  for (std::size_t node = slot; node; node -= LowestBit(node)) before += tree_[node];
  return before;
}

}  // namespace base
