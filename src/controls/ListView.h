// A list of rows with columns, ticks and small pictures: the working store of several subsystems.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/LiveSlots.h"
#include "controls/Controls.h"

namespace controls {

enum class MouseButton { Left = 1, Right = 2 };

// Rows are numbered from 1 in the order of their adding; 0 stands for "no row". Nothing sorts them. A list of
// a million rows is the normal case: adding, reading, finding by path and removing a row cost at most O(log
// n), and texts lie in one pool. A text_view that a read gives holds until the list is next changed.
class ListView : public Control {
 public:
  struct Column {
    std::string Caption;
    int Width = 160;  // at 96 dpi; the column that has Fill takes what is left
    bool Fill = false;
    Align Alignment = Align::Left;
  };

  explicit ListView(std::string name) : Control(Kind::ListView, std::move(name)) {}

  // The design: set once, before the first row.
  std::vector<Column> Columns;
  bool CheckBoxes = false;
  // File names of the row pictures, without size and extension; a row's SmallIcon counts from 1 in here.
  std::vector<std::string> SmallIcons;
  // The quiet line in the middle of the list while it has no rows.
  std::string EmptyText;
  // Key Delete in the list presses this control; null for none.
  Control* DeletePresses = nullptr;
  // False once a fill was cut short: what the list shows is then not what is stored, and isn't saved.
  bool Whole = true;
  // Column heads that are drawn flat and don't press like buttons.
  Property<bool> FlatHeaders{*this, false};

  int Count() const { return static_cast<int>(slots_.Count()); }
  int AddRow(std::string_view text, int smallIcon);  // gives the new row's number
  void RemoveRow(int row);
  void Clear();
  // Room for `rows` rows, so that a fill of known size allocates once.
  void Reserve(int rows);

  std::string_view Text(int row) const { return Cell(Slot(row), 0); }
  // Sub-item 1 is the second column.
  std::string_view SubItem(int row, int column) const { return Cell(Slot(row), column); }
  void SetText(int row, std::string_view text);
  void SetSubItem(int row, int column, std::string_view text);
  bool Checked(int row) const { return rows_[Slot(row)].checked; }
  // By the program. Raises nothing.
  void SetChecked(int row, bool checked);
  void CheckAll(bool checked);
  int CheckedCount() const { return checked_; }
  int SmallIcon(int row) const { return rows_[Slot(row)].icon; }
  Color ForeColor(int row) const { return rows_[Slot(row)].color; }
  void SetForeColor(int row, Color color);

  // The row that is selected, 0 for none. Selecting raises nothing; the user's selecting raises Click.
  int SelectedIndex() const { return selected_ == kNone ? 0 : Number(selected_); }
  void Select(int row);
  // The view scrolls this row into sight at the next frame.
  void EnsureVisible(int row);
  int TakeEnsureVisible();

  // The first row with exactly this text, or whose second column followed by its text is exactly this path; 0
  // for none. The first call builds an index in O(n); it is kept up to date from then on.
  int FindText(std::string_view text) const;
  int FindPath(std::string_view path) const;
  // Second column followed by text.
  std::string Path(int row) const;

  // Calls visit(row) for each row in order; faster than asking by number once rows have been removed. `visit`
  // must not change the list's rows.
  template <class Visit>
  void ForEach(Visit visit) const {
    int number = 0;
    for (std::size_t slot = 0; slot < rows_.size(); ++slot)
      if (rows_[slot].alive) visit(++number);
  }

  // Moves by one with each change of rows, texts, ticks or colours: what the view compares.
  std::uint64_t Version() const { return version_; }

  Event<> Click;
  Event<> DblClick;
  Event<MouseButton> MouseDown;
  // The user has ticked or unticked this row.
  Event<int> ItemCheck;

 private:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  struct Span {
    std::uint64_t offset : 40;
    std::uint64_t length : 24;
  };
  struct RowData {
    Color color = 0;
    std::uint8_t icon = 0;
    bool checked = false;
    bool alive = true;
  };

  // Slots are rows in the order of adding, removed ones included until Compact takes them out.
  std::size_t Slot(int row) const;
  int Number(std::size_t slot) const;
  std::string_view Cell(std::size_t slot, int column) const;
  void SetCell(std::size_t slot, int column, std::string_view text);
  std::size_t Width() const { return Columns.empty() ? 1 : Columns.size(); }
  void Changed();
  void Compact();
  // Slots by the hash of their text, or of their path: chains of slots whose hashes end alike. Made to be
  // built for a million rows within a frame or two.
  struct HashIndex {
    bool built = false;
    std::vector<std::uint32_t> heads;  // a power of two; kEnd where there is none
    std::vector<std::uint32_t> next;   // for each slot
    static constexpr std::uint32_t kEnd = 0xFFFFFFFFu;

    void Add(std::size_t slot, std::size_t hash);
    void Remove(std::size_t slot, std::size_t hash);
  };
  std::size_t HashOf(std::size_t slot, bool path) const;
  void BuildIndex(bool path) const;
  int Find(std::string_view wanted, bool path) const;
  void Index(std::size_t slot) const;
  void Unindex(std::size_t slot) const;

  std::vector<RowData> rows_;
  std::vector<Span> cells_;  // Width() for each slot
  std::string pool_;
  int checked_ = 0;
  std::size_t selected_ = kNone;
  int ensureVisible_ = 0;
  std::uint64_t version_ = 0;
  base::LiveSlots slots_;
  mutable HashIndex byText_, byPath_;
};

}  // namespace controls
