#include "view/ListPane.h"

#include <algorithm>
#include <utility>
#include <wx/dcbuffer.h>
#include <wx/dcclient.h>
#include <wx/dcmemory.h>
#include <wx/settings.h>
#include <wx/time.h>

#include "view/FormWindow.h"
#include "view/Icons.h"
#include "view/Look.h"
#include "view/Native.h"
#include "view/Text.h"

namespace view {

namespace {

constexpr int kIcon = 16;
constexpr int kCheckColumn = 32;
constexpr int kSampleRows = 64;
constexpr int kWidestFitted = 320;
constexpr int kNarrowestFill = 140;
constexpr int kTypingPause = 1000;  // milliseconds after which typing starts a new name
// Beyond so many rows that come or go at once the list is told once, not row by row. While a run goes on that
// would hold it (a million rows take most of a second): it sees no more than this many rows in a frame, the
// rest later.
constexpr int kManyRows = 50000;
constexpr int kRowsInFrame = 8000;

}  // namespace

// The rows, as the native list asks for them. The list may know of more rows than there are until the next
// frame.
class ListPane::Model : public wxDataViewVirtualListModel {
 public:
  explicit Model(ListPane& pane)
      : pane_(pane), checks_(pane.list_.CheckBoxes), icons_(!pane.list_.SmallIcons.empty()) {}

  bool Knows(unsigned row) const { return !gone && row < static_cast<unsigned>(pane_.list_.Count()); }
  int ColumnOf(unsigned column) const { return static_cast<int>(column) - (checks_ ? 1 : 0); }

  void GetValueByRow(wxVariant& value, unsigned row, unsigned column) const override {
    ++asked;
    int at = ColumnOf(column);
    if (at < 0) {
      value = Knows(row) && pane_.list_.Checked(static_cast<int>(row) + 1);
      return;
    }
    wxString text;
    wxBitmapBundle icon;
    if (Knows(row)) {
      int number = static_cast<int>(row) + 1;
      text = ToWxLine(pane_.list_.SubItem(number, at));
      auto picture = static_cast<std::size_t>(pane_.list_.SmallIcon(number));
      if (at == 0 && picture > 0 && picture <= pane_.list_.SmallIcons.size())
        icon = PictureBundle(pane_.list_.SmallIcons[picture - 1], kIcon);
    }
    if (at == 0 && icons_)
      value << wxDataViewIconText(text, icon);
    else
      value = text;
  }

  bool SetValueByRow(const wxVariant& value, unsigned row, unsigned column) override {
    if (ColumnOf(column) >= 0) return false;
    bool checked = value.GetBool();
    auto& pane = pane_;
    int number = static_cast<int>(row) + 1;
    pane.owner_.Act(pane.list_, [&pane, number, checked] {
      if (number <= pane.list_.Count()) pane.owner_.GetForm()->UserTick(pane.list_, number, checked);
    });
    return false;
  }

  bool GetAttrByRow(unsigned row, unsigned, wxDataViewItemAttr& attr) const override {
    if (!Knows(row)) return false;
    controls::Color color = pane_.list_.ForeColor(static_cast<int>(row) + 1);
    if (!color) return false;
    attr.SetColour(Readable(ToWx(color), wxSystemSettings::GetColour(wxSYS_COLOUR_LISTBOX)));
    return true;
  }

  mutable unsigned long asked = 0;
  bool gone = false;

 private:
  ListPane& pane_;
  bool checks_, icons_;
};

namespace {

// The quiet line of an empty list.
class EmptyLine : public wxWindow {
 public:
  EmptyLine(wxWindow* parent, const wxString& text) : text_(text) {
    Hide();
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    Create(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE);
    native::SetAccessible(*this, native::Role::Text, text);
    Bind(wxEVT_PAINT, [this](wxPaintEvent&) {
      wxAutoBufferedPaintDC dc(this);
      wxColour ground = wxSystemSettings::GetColour(wxSYS_COLOUR_LISTBOX);
      dc.SetPen(*wxTRANSPARENT_PEN);
      dc.SetBrush(ground);
      dc.DrawRectangle(GetClientSize());
      dc.SetFont(FontOf(controls::LabelStyle::Plain));
      dc.SetTextForeground(Readable(QuietColour(), ground));
      dc.DrawLabel(text_, wxRect(GetClientSize()), wxALIGN_CENTER);
    });
  }
  bool AcceptsFocus() const override { return false; }

 protected:
  wxSize DoGetBestClientSize() const override {
    wxClientDC dc(const_cast<EmptyLine*>(this));
    dc.SetFont(FontOf(controls::LabelStyle::Plain));
    return dc.GetMultiLineTextExtent(text_) + wxSize(2, 2);
  }

 private:
  wxString text_;
};

}  // namespace

ListPane::ListPane(FormWindow& owner, wxWindow* parent, controls::ListView& list)
    : ControlView(owner, list), list_(list) {
  pane_ = new wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL | wxBORDER_NONE);
  data_ = new wxDataViewCtrl(pane_, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxDV_SINGLE | wxDV_ROW_LINES,
                             wxDefaultValidator, ToWx(list.Name()));
  empty_ = new EmptyLine(pane_, ToWx(list.EmptyText));
  native::PrepareList(*data_);
  model_ = new Model(*this);
  data_->AssociateModel(model_.get());
  MakeColumns();
  pane_->SetMinSize(wxSize(Px(200), Px(120)));

  pane_->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    data_->SetSize(pane_->GetClientSize());
    FillColumn();
    PlaceEmptyText();
    event.Skip();
  });
  data_->Bind(wxEVT_DATAVIEW_SELECTION_CHANGED, [this](wxDataViewEvent&) {
    int row = SelectedRow();
    owner_.Act(list_, [this, row] {
      if (row > 0 && row <= list_.Count()) owner_.GetForm()->UserSelect(list_, row);
    });
  });
  data_->Bind(wxEVT_DATAVIEW_ITEM_ACTIVATED, [this](wxDataViewEvent& event) {
    int row = static_cast<int>(model_->GetRow(event.GetItem())) + 1;
    owner_.Act(list_, [this, row] {
      if (row <= list_.Count()) owner_.GetForm()->UserDoubleClick(list_, row);
    });
  });
  data_->Bind(wxEVT_DATAVIEW_ITEM_CONTEXT_MENU, [this](wxDataViewEvent& event) {
    int row = event.GetItem().IsOk() ? static_cast<int>(model_->GetRow(event.GetItem())) + 1 : 0;
    owner_.Act(list_, [this, row] {
      if (row <= list_.Count()) owner_.GetForm()->UserMouseDown(list_, row, controls::MouseButton::Right);
    });
  });
  data_->Bind(wxEVT_KEY_DOWN, &ListPane::OnKey, this);
  data_->Bind(wxEVT_CHAR, &ListPane::OnChar, this);
  data_->GetMainWindow()->Bind(wxEVT_MOTION, &ListPane::OnMotion, this);
}

ListPane::~ListPane() = default;

void ListPane::MakeColumns() {
  unsigned at = 0;
  if (list_.CheckBoxes) {
    data_->AppendColumn(
        new wxDataViewColumn(wxString(), new wxDataViewToggleRenderer("bool", wxDATAVIEW_CELL_ACTIVATABLE),
                             at++, Px(kCheckColumn), wxALIGN_CENTER, 0));
  }
  bool first = true;
  for (const auto& column : list_.Columns) {
    auto align = column.Alignment == controls::Align::Right    ? wxALIGN_RIGHT
                 : column.Alignment == controls::Align::Center ? wxALIGN_CENTER_HORIZONTAL
                                                               : wxALIGN_LEFT;
    wxDataViewRenderer* renderer;
    if (first && !list_.SmallIcons.empty())
      renderer = new wxDataViewIconTextRenderer("wxDataViewIconText", wxDATAVIEW_CELL_INERT);
    else
      renderer = new wxDataViewTextRenderer("string", wxDATAVIEW_CELL_INERT, align | wxALIGN_CENTER_VERTICAL);
    renderer->EnableEllipsize(wxELLIPSIZE_MIDDLE);
    data_->AppendColumn(new wxDataViewColumn(ToWx(column.Caption), renderer, at++, Px(column.Width), align,
                                             wxDATAVIEW_COL_RESIZABLE));
    first = false;
  }
}

void ListPane::SyncName() {
  native::SetAccessibleName(*data_, ToWx(SpokenName()));
}

void ListPane::SyncContent() {
  if (list_.FlatHeaders && !std::exchange(flat_, true)) native::FlattenHeads(*data_);
  if (version_ != list_.Version() || RowsKnown() != list_.Count()) {
    version_ = list_.Version();
    SyncRows();
    if (!fitted_) FitColumns();
    PlaceEmptyText();
    native::RedrawRows(*data_);
  }
  SyncSelection();
  if (int row = list_.TakeEnsureVisible(); row > RowsKnown() && row <= list_.Count())
    list_.EnsureVisible(row);
  else if (row > 0 && row <= list_.Count())
    data_->EnsureVisible(model_->GetItem(static_cast<unsigned>(row) - 1));
}

// Rows have no identity in the native list: it is told of a change of their number at the end, and asks for
// the content of those in sight again.
void ListPane::SyncRows() {
  int had = static_cast<int>(model_->GetCount()), has = list_.Count();
  if (had == has) return;
  bool inRun = owner_.GetScreen().InRun();
  if (had == 0 || has == 0 || (!inRun && std::abs(has - had) > kManyRows)) {
    model_->Reset(static_cast<unsigned>(has));
    return;
  }
  if (inRun && std::abs(has - had) > kRowsInFrame) {
    has = had + (has > had ? kRowsInFrame : -kRowsInFrame);
    list_.Touch();
  }
  for (; had < has; ++had) model_->RowAppended();
  if (had > has) {
    wxArrayInt gone;
    for (; had > has; --had) gone.push_back(had - 1);
    model_->RowsDeleted(gone);
  }
}

void ListPane::SyncSelection() {
  int row = SelectedRow(), wanted = list_.SelectedIndex();
  if (row == wanted || wanted > RowsKnown()) return;
  if (wanted == 0)
    data_->UnselectAll();
  else
    native::SelectItem(*data_, model_->GetItem(static_cast<unsigned>(wanted) - 1));
}

int ListPane::SelectedRow() const {
  wxDataViewItem item = data_->GetSelection();
  if (!item.IsOk()) return 0;
  return static_cast<int>(model_->GetRow(item)) + 1;
}

// Heading and content of the first rows decide; the column that fills comes last.
void ListPane::FitColumns() {
  // The heads alone while there is no content.
  fitted_ = list_.Count() > 0;
  wxClientDC dc(data_);
  dc.SetFont(data_->GetFont());
  wxFont heads = data_->GetFont().Bold();
  unsigned at = list_.CheckBoxes ? 1 : 0;
  for (int column = 0; column < static_cast<int>(list_.Columns.size()); ++column, ++at) {
    const auto& design = list_.Columns[static_cast<std::size_t>(column)];
    if (design.Fill) continue;
    dc.SetFont(heads);
    int width = dc.GetTextExtent(ToWx(design.Caption)).x;
    dc.SetFont(data_->GetFont());
    int rows = std::min(list_.Count(), kSampleRows);
    for (int row = 1; row <= rows; ++row)
      width = std::max(width, dc.GetTextExtent(ToWxLine(list_.SubItem(row, column))).x);
    if (column == 0 && !list_.SmallIcons.empty()) width += Px(kIcon + 4);
    width = std::min(width + Px(24), Px(kWidestFitted));
    data_->GetColumn(at)->SetWidth(std::max(width, Px(design.Width)));
  }
  FillColumn();
}

void ListPane::FillColumn() {
  int count = static_cast<int>(list_.Columns.size());
  if (count == 0) return;
  int fill = count - 1;
  for (int column = 0; column < count; ++column)
    if (list_.Columns[static_cast<std::size_t>(column)].Fill) fill = column;
  unsigned offset = list_.CheckBoxes ? 1 : 0;
  int rest = data_->GetClientSize().x - Px(kCheckColumn) * static_cast<int>(offset);
  for (int column = 0; column < count; ++column)
    if (column != fill) rest -= data_->GetColumn(static_cast<unsigned>(column) + offset)->GetWidth();
  // The bar of a list that is taller than its window lies beside the rows.
  rest -= wxSystemSettings::GetMetric(wxSYS_VSCROLL_X, data_) + 4;
  data_->GetColumn(static_cast<unsigned>(fill) + offset)->SetWidth(std::max(rest, Px(kNarrowestFill)));
}

void ListPane::PlaceEmptyText() {
  bool show = list_.Count() == 0 && !list_.EmptyText.empty();
  if (show) {
    wxSize area = pane_->GetClientSize(), size = empty_->GetBestSize();
    size.x = std::max(1, std::min(size.x, area.x - Px(8)));
    // Below the heads, in the middle of what is left.
    int heads = Px(28);
    empty_->SetSize((area.x - size.x) / 2, heads + (area.y - heads - size.y) / 2, size.x, size.y);
  }
  if (empty_->IsShown() != show) empty_->Show(show);
}

void ListPane::SelectRow(int row) {
  wxDataViewItem item = model_->GetItem(static_cast<unsigned>(row) - 1);
  data_->SetCurrentItem(item);
  data_->Select(item);
  data_->EnsureVisible(item);
  owner_.Act(list_, [this, row] {
    if (row <= list_.Count()) owner_.GetForm()->UserSelect(list_, row);
  });
}

void ListPane::Toggle() {
  int row = SelectedRow();
  owner_.Act(list_, [this, row] {
    if (row > 0 && row <= list_.Count()) owner_.GetForm()->UserTick(list_, row, !list_.Checked(row));
  });
}

void ListPane::OpenMenu() {
  int row = SelectedRow();
  wxRect place = row > 0 ? data_->GetItemRect(model_->GetItem(static_cast<unsigned>(row) - 1)) : wxRect();
  wxPoint corner = data_->ClientToScreen(wxPoint(Px(24), place.GetBottom()));
  owner_.Act(list_, [this, row, corner] {
    if (row > list_.Count()) return;
    owner_.GetScreen().popupPlace = corner;
    owner_.GetForm()->UserMouseDown(list_, row, controls::MouseButton::Right);
    owner_.GetScreen().popupPlace.reset();
  });
}

void ListPane::OnKey(wxKeyEvent& event) {
  int key = event.GetKeyCode();
  bool plain = !event.HasAnyModifiers();
  if (key == WXK_SPACE && plain && list_.CheckBoxes &&
      (typed_.empty() || wxGetLocalTimeMillis() - typedAt_ > kTypingPause)) {
    Toggle();
  } else if ((key == WXK_RETURN || key == WXK_NUMPAD_ENTER) && plain) {
    int row = SelectedRow();
    owner_.Act(list_, [this, row] {
      if (row > 0 && row <= list_.Count()) owner_.GetForm()->UserDoubleClick(list_, row);
    });
  } else if (key == WXK_DELETE && plain && list_.DeletePresses) {
    owner_.Click(*list_.DeletePresses);
  } else if ((key == WXK_WINDOWS_MENU || key == WXK_MENU) || (key == WXK_F10 && event.ShiftDown())) {
    OpenMenu();
  } else {
    event.Skip();
  }
}

// Typing goes to the next row whose text starts so, round the end.
void ListPane::OnChar(wxKeyEvent& event) {
  wxChar letter = event.GetUnicodeKey();
  bool types =
      letter != WXK_NONE && letter >= 32 && letter != WXK_DELETE && !event.ControlDown() && !event.AltDown();
  if (!types) {
    event.Skip();
    return;
  }
  long long now = wxGetLocalTimeMillis().GetValue();
  if (now - typedAt_ > kTypingPause) typed_.clear();
  typedAt_ = now;
  typed_ += letter;
  JumpTo(typed_);
}

void ListPane::JumpTo(const wxString& typed) {
  int count = list_.Count();
  if (count == 0) return;
  wxString wanted = typed.Lower();
  int from = SelectedRow();
  // A first letter goes on from the selected row, a longer name may be that row's own.
  int start = typed.length() == 1 ? from : std::max(from - 1, 0);
  for (int step = 0; step < count; ++step) {
    int row = (start + step) % count + 1;
    std::string_view text = list_.Text(row);
    if (text.empty() || !ToWxLine(text.substr(0, 4 * typed.length() + 4)).Lower().StartsWith(wanted))
      continue;
    if (row != from) SelectRow(row);
    return;
  }
}

// The whole text of a cell that is too narrow for it.
void ListPane::OnMotion(wxMouseEvent& event) {
  event.Skip();
  wxDataViewItem item;
  wxDataViewColumn* column = nullptr;
  data_->HitTest(event.GetPosition(), item, column);
  wxString tip;
  if (item.IsOk() && column) {
    int row = static_cast<int>(model_->GetRow(item)) + 1;
    int at = model_->ColumnOf(column->GetModelColumn());
    if (at >= 0 && row <= list_.Count()) {
      wxString text = ToWxLine(list_.SubItem(row, at));
      int room = column->GetWidth() - Px(8) - (at == 0 && !list_.SmallIcons.empty() ? Px(kIcon + 4) : 0);
      wxClientDC dc(data_);
      dc.SetFont(data_->GetFont());
      if (dc.GetTextExtent(text).x > room) tip = text;
    }
  }
  if (tip == tip_) return;
  tip_ = tip;
  if (tip.empty())
    data_->UnsetToolTip();
  else
    data_->SetToolTip(tip);
}

wxRect ListPane::HotRect() {
  return data_->GetScreenRect();
}

void ListPane::ThemeChanged() {
  native::RedrawRows(*data_);
  empty_->Refresh();
}

void ListPane::Detached() {
  model_->gone = true;
}

wxRect ListPane::RowRect(int row, bool check) {
  wxDataViewColumn* column = data_->GetColumn(check ? 0 : list_.CheckBoxes ? 1 : 0);
  wxRect rect = data_->GetItemRect(model_->GetItem(static_cast<unsigned>(row) - 1), column);
  rect.SetPosition(data_->ClientToScreen(rect.GetPosition()));
  return rect;
}

unsigned long ListPane::CellsAsked() const {
  return model_->asked;
}

int ListPane::RowsKnown() const {
  return static_cast<int>(model_->GetCount());
}

}  // namespace view
