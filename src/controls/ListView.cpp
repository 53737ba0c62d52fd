#include "controls/ListView.h"

#include <bit>
#include <cstring>
#include <functional>
#include <stdexcept>

namespace controls {

namespace {

// Of both texts as one.
std::size_t HashOfBoth(std::string_view first, std::string_view second) {
  std::hash<std::string_view> hash;
  if (first.empty()) return hash(second);
  char room[512];
  std::size_t length = first.size() + second.size();
  if (length > sizeof room) return hash(std::string(first).append(second));
  std::memcpy(room, first.data(), first.size());
  if (!second.empty()) std::memcpy(room + first.size(), second.data(), second.size());
  return hash({room, length});
}

}  // namespace

std::size_t ListView::Slot(int row) const {
  if (row < 1 || row > Count()) throw std::out_of_range("row " + std::to_string(row) + " of list " + Name());
  return slots_.SlotOf(static_cast<std::size_t>(row) - 1);
}

int ListView::Number(std::size_t slot) const {
  return static_cast<int>(slots_.NumberOf(slot)) + 1;
}

void ListView::Changed() {
  ++version_;
  Touch();
}

std::string_view ListView::Cell(std::size_t slot, int column) const {
  if (column < 0 || static_cast<std::size_t>(column) >= Width()) return {};
  const Span& span = cells_[slot * Width() + static_cast<std::size_t>(column)];
  return std::string_view(pool_).substr(span.offset, span.length);
}

void ListView::SetCell(std::size_t slot, int column, std::string_view text) {
  if (column < 0 || static_cast<std::size_t>(column) >= Width()) return;
  Span& span = cells_[slot * Width() + static_cast<std::size_t>(column)];
  // Neighbours often share a folder: the text of the row before serves again.
  if (slot > 0) {
    const Span& before = cells_[(slot - 1) * Width() + static_cast<std::size_t>(column)];
    if (std::string_view(pool_).substr(before.offset, before.length) == text) {
      span = before;
      return;
    }
  }
  span.offset = pool_.size() & ((std::uint64_t{1} << 40) - 1);
  span.length = text.size() & ((std::uint64_t{1} << 24) - 1);
  pool_.append(text);
}

int ListView::AddRow(std::string_view text, int smallIcon) {
  std::size_t slot = rows_.size();
  rows_.push_back(RowData{});
  rows_.back().icon = static_cast<std::uint8_t>(smallIcon);
  cells_.resize(cells_.size() + Width(), Span{0, 0});
  SetCell(slot, 0, text);
  slots_.Add();
  Index(slot);
  Changed();
  return Count();
}

void ListView::Reserve(int rows) {
  rows_.reserve(rows_.size() + static_cast<std::size_t>(rows));
  cells_.reserve(cells_.size() + static_cast<std::size_t>(rows) * Width());
}

void ListView::RemoveRow(int row) {
  std::size_t slot = Slot(row);
  Unindex(slot);
  rows_[slot].alive = false;
  if (rows_[slot].checked) --checked_;
  slots_.Remove(slot);
  if (selected_ == slot) selected_ = kNone;
  if (Count() == 0)
    Clear();
  else if (slots_.IsSparse())
    Compact();
  Changed();
}

void ListView::Compact() {
  std::vector<RowData> rows;
  std::vector<Span> cells;
  std::string pool;
  rows.reserve(slots_.Count());
  cells.reserve(slots_.Count() * Width());
  std::size_t selected = kNone;
  std::vector<RowData> oldRows = std::move(rows_);
  std::vector<Span> oldCells = std::move(cells_);
  std::string oldPool = std::move(pool_);
  rows_.clear();
  cells_.clear();
  pool_.clear();
  for (std::size_t slot = 0; slot < oldRows.size(); ++slot) {
    if (!oldRows[slot].alive) continue;
    if (slot == selected_) selected = rows_.size();
    rows_.push_back(oldRows[slot]);
    cells_.resize(cells_.size() + Width(), Span{0, 0});
    for (std::size_t column = 0; column < Width(); ++column) {
      const Span& span = oldCells[slot * Width() + column];
      SetCell(rows_.size() - 1, static_cast<int>(column),
              std::string_view(oldPool).substr(span.offset, span.length));
    }
  }
  selected_ = selected;
  slots_.Pack();
  byText_ = {};
  byPath_ = {};
}

void ListView::Clear() {
  if (rows_.empty()) return;
  rows_.clear();
  cells_.clear();
  pool_.clear();
  slots_.Clear();
  checked_ = 0;
  selected_ = kNone;
  ensureVisible_ = 0;
  byText_ = {};
  byPath_ = {};
  Changed();
}

void ListView::SetText(int row, std::string_view text) {
  SetSubItem(row, 0, text);
}

void ListView::SetSubItem(int row, int column, std::string_view text) {
  std::size_t slot = Slot(row);
  if (Cell(slot, column) == text) return;
  // The text may lie in the pool that is about to grow.
  std::string own(text);
  if (column <= 1) Unindex(slot);
  SetCell(slot, column, own);
  if (column <= 1) Index(slot);
  Changed();
}

void ListView::SetChecked(int row, bool checked) {
  RowData& data = rows_[Slot(row)];
  if (data.checked == checked) return;
  data.checked = checked;
  checked_ += checked ? 1 : -1;
  Changed();
}

void ListView::CheckAll(bool checked) {
  for (RowData& data : rows_) data.checked = checked;
  checked_ = checked ? Count() : 0;
  Changed();
}

void ListView::SetForeColor(int row, Color color) {
  RowData& data = rows_[Slot(row)];
  if (data.color == color) return;
  data.color = color;
  Changed();
}

void ListView::Select(int row) {
  selected_ = row == 0 ? kNone : Slot(row);
  Touch();
}

void ListView::EnsureVisible(int row) {
  ensureVisible_ = row;
  Touch();
}

int ListView::TakeEnsureVisible() {
  return std::exchange(ensureVisible_, 0);
}

std::string ListView::Path(int row) const {
  std::size_t slot = Slot(row);
  std::string path(Cell(slot, 1));
  path += Cell(slot, 0);
  return path;
}

void ListView::HashIndex::Add(std::size_t slot, std::size_t hash) {
  if (next.size() <= slot) next.resize(slot + 1, kEnd);
  std::uint32_t& head = heads[hash & (heads.size() - 1)];
  next[slot] = head;
  head = static_cast<std::uint32_t>(slot);
}

void ListView::HashIndex::Remove(std::size_t slot, std::size_t hash) {
  std::uint32_t* link = &heads[hash & (heads.size() - 1)];
  while (*link != kEnd && *link != slot) link = &next[*link];
  if (*link == slot) *link = next[slot];
}

std::size_t ListView::HashOf(std::size_t slot, bool path) const {
  return HashOfBoth(path ? Cell(slot, 1) : std::string_view(), Cell(slot, 0));
}

void ListView::BuildIndex(bool path) const {
  HashIndex& index = path ? byPath_ : byText_;
  index.built = true;
  index.heads.assign(std::bit_ceil(rows_.size() + 16), HashIndex::kEnd);
  index.next.assign(rows_.size(), HashIndex::kEnd);
  // The heads are met in no order, so they are called for some rows ahead of their use.
  constexpr std::size_t kAhead = 32;
  std::size_t hashes[kAhead];
  for (std::size_t slot = 0; slot < rows_.size() + kAhead; ++slot) {
    std::size_t& hash = hashes[slot % kAhead];
    if (slot >= kAhead && rows_[slot - kAhead].alive) index.Add(slot - kAhead, hash);
    if (slot >= rows_.size()) continue;
    hash = HashOf(slot, path);
    __builtin_prefetch(&index.heads[hash & (index.heads.size() - 1)], 1);
  }
}

void ListView::Index(std::size_t slot) const {
  for (bool path : {false, true}) {
    HashIndex& index = path ? byPath_ : byText_;
    if (!index.built) continue;
    if (rows_.size() > 2 * index.heads.size())
      BuildIndex(path);
    else
      index.Add(slot, HashOf(slot, path));
  }
}

void ListView::Unindex(std::size_t slot) const {
  if (byText_.built) byText_.Remove(slot, HashOf(slot, false));
  if (byPath_.built) byPath_.Remove(slot, HashOf(slot, true));
}

int ListView::Find(std::string_view wanted, bool path) const {
  HashIndex& index = path ? byPath_ : byText_;
  if (!index.built) BuildIndex(path);
  std::size_t best = kNone;
  std::size_t hash = HashOfBoth({}, wanted);
  for (std::uint32_t slot = index.heads[hash & (index.heads.size() - 1)]; slot != HashIndex::kEnd;
       slot = index.next[slot]) {
    std::string_view folder = path ? Cell(slot, 1) : std::string_view();
    std::string_view text = Cell(slot, 0);
    bool equal = wanted.size() == folder.size() + text.size() && wanted.substr(0, folder.size()) == folder &&
                 wanted.substr(folder.size()) == text;
    if (equal && slot < best) best = slot;
  }
  return best == kNone ? 0 : Number(best);
}

int ListView::FindText(std::string_view text) const {
  return Find(text, false);
}
int ListView::FindPath(std::string_view path) const {
  return Find(path, true);
}

}  // namespace controls
