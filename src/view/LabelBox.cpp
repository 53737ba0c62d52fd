#include "view/LabelBox.h"

#include <algorithm>
#include <wx/control.h>
#include <wx/dcbuffer.h>
#include <wx/dcclient.h>
#include <wx/settings.h>

#include "view/Icons.h"
#include "view/Look.h"

namespace view {

using controls::Align;
using controls::LabelStyle;

namespace {

constexpr int kEntryHeight = 40, kEntryPicture = 24, kEntryPadding = 12;
constexpr int kWidestUnasked = 480;
constexpr int kNarrowest = 48;
constexpr int kLabelPicture = 16;

std::vector<wxString> SplitLines(const wxString& text) {
  std::vector<wxString> lines(1);
  for (wxUniChar c : text) {
    if (c == '\n')
      lines.emplace_back();
    else if (c != '\r')
      lines.back() += c;
  }
  return lines;
}

// How many characters from `start` fit; at least one.
std::size_t Fitting(const wxArrayInt& ends, std::size_t start, int width) {
  int before = start ? ends[start - 1] : 0;
  std::size_t count = 0;
  while (start + count < ends.size() && ends[start + count] - before <= width) ++count;
  return std::max<std::size_t>(count, 1);
}

// Breaks at blanks, and inside a word (a path) only where it is wider than the line.
void Wrap(wxDC& dc, const wxString& line, int width, std::vector<wxString>& lines) {
  wxArrayInt ends;
  dc.GetPartialTextExtents(line, ends);
  if (ends.empty() || ends.back() <= width) {
    lines.push_back(line);
    return;
  }
  for (std::size_t start = 0; start < line.length();) {
    std::size_t count = Fitting(ends, start, width);
    if (start + count < line.length()) {
      std::size_t blank = line.rfind(' ', start + count);
      if (blank != wxString::npos && blank > start) count = blank - start;
    }
    lines.push_back(line.Mid(start, count));
    start += count;
    while (start < line.length() && line[start] == ' ') ++start;
  }
}

}  // namespace

LabelBox::LabelBox(wxWindow* parent, bool fills, const wxString& name) : fills_(fills) {
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  Create(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
         wxBORDER_NONE | wxWANTS_CHARS | wxFULL_REPAINT_ON_RESIZE, name);
  Bind(wxEVT_PAINT, &LabelBox::OnPaint, this);
  Bind(wxEVT_SIZE, &LabelBox::OnSize, this);
  for (auto type : {wxEVT_ENTER_WINDOW, wxEVT_LEAVE_WINDOW, wxEVT_LEFT_DOWN, wxEVT_LEFT_UP, wxEVT_LEFT_DCLICK,
                    wxEVT_MOTION})
    Bind(type, &LabelBox::OnMouse, this);
  Bind(wxEVT_KEY_DOWN, &LabelBox::OnKey, this);
  for (auto type : {wxEVT_SET_FOCUS, wxEVT_KILL_FOCUS})
    Bind(type, [this](wxFocusEvent& event) {
      Refresh();
      event.Skip();
    });
}

bool LabelBox::Set(const Content& content) {
  if (content == content_) return false;
  bool style = content.style != content_.style || content.border != content_.border || brokenFor_ == -1;
  bool text = content.text != content_.text;
  bool picture = content.picture != content_.picture;
  content_ = content;
  if (style) {
    wxFont font = FontOf(content.style);
    if (IsEntry() && content.border) font = Semibold(font);
    SetFont(font);
  }
  if (picture || style) {
    bool onDark = content.style == LabelStyle::TopStrip || (DarkTheme() && !IsEntry());
    bitmap_ = PictureBundle(content.picture, IsEntry() ? kEntryPicture : kLabelPicture, onDark);
  }
  Refresh();
  if (!text && !style && !picture) return false;
  wxSize before = GetEffectiveMinSize();
  InvalidateBestSize();
  brokenFor_ = -2;
  Break(GetClientSize().x);
  return GetEffectiveMinSize() != before;
}

void LabelBox::SetClickable(bool clickable) {
  if (clickable == clickable_) return;
  clickable_ = clickable;
  SetCursor(clickable ? wxCursor(wxCURSOR_HAND) : wxNullCursor);
  SetCanFocus(clickable);
  Refresh();
}

void LabelBox::ThemeChanged() {
  Content content = content_;
  content_ = Content();
  brokenFor_ = -1;
  widest_ = 0;
  Set(content);
}

bool LabelBox::Wraps() const {
  switch (content_.style) {
    case LabelStyle::Value:
    case LabelStyle::Status:
    case LabelStyle::TopStrip:
    case LabelStyle::MenuEntry:
      return false;
    default:
      return true;
  }
}

int LabelBox::HeightFor(int lines) const {
  int height = lines * lineHeight_;
  if (bitmap_.IsOk()) height = std::max(height, Px(IsEntry() ? kEntryPicture : kLabelPicture));
  return IsEntry() ? std::max(height + Px(8), Px(kEntryHeight)) : height;
}

// Makes lines_ for this width.
void LabelBox::Break(int width) {
  wxClientDC dc(this);
  dc.SetFont(GetFont());
  lineHeight_ = dc.GetCharHeight();
  lines_.clear();
  brokenFor_ = width;
  if (SingleLine()) {
    lines_.push_back(content_.text);
    return;
  }
  int room = width - (bitmap_.IsOk() ? Px(kLabelPicture + 8) : 0);
  for (const wxString& line : SplitLines(content_.text)) {
    if (width <= 0)
      lines_.push_back(line);
    else
      Wrap(dc, line, std::max(room, Px(kNarrowest)), lines_);
  }
}

wxSize LabelBox::DoGetBestClientSize() const {
  auto* self = const_cast<LabelBox*>(this);
  wxClientDC dc(self);
  dc.SetFont(GetFont());
  self->lineHeight_ = dc.GetCharHeight();
  int natural = 0, lines = 0;
  for (const wxString& line : SplitLines(content_.text)) {
    natural = std::max(natural, dc.GetTextExtent(line).x);
    ++lines;
  }
  int extra = bitmap_.IsOk() ? Px(kLabelPicture + 8) : 0;
  switch (content_.style) {
    case LabelStyle::MenuEntry:
      return wxSize(natural + Px(2 * kEntryPadding + kEntryPicture + 8), HeightFor(1));
    case LabelStyle::Value:
    case LabelStyle::Status:
      // Wide enough for the longest text so far, so that neighbours stay where they are.
      self->widest_ = std::max(widest_, std::min(natural + extra, Px(kWidestUnasked)));
      return wxSize(fills_ ? std::min(widest_, Px(kNarrowest)) : widest_, HeightFor(1));
    case LabelStyle::TopStrip:
      return wxSize(natural + extra, HeightFor(1));
    default:
      break;
  }
  if (fills_) {
    int width = std::min(natural + extra, Px(2 * kNarrowest));
    // Until it has been given a width there is nothing to wrap to.
    bool broken = brokenFor_ > 0;
    return wxSize(width, HeightFor(broken ? static_cast<int>(lines_.size()) : lines));
  }
  if (natural + extra <= Px(kWidestUnasked)) return wxSize(natural + extra, HeightFor(lines));
  std::vector<wxString> wrapped;
  for (const wxString& line : SplitLines(content_.text)) Wrap(dc, line, Px(kWidestUnasked) - extra, wrapped);
  return wxSize(Px(kWidestUnasked), HeightFor(static_cast<int>(wrapped.size())));
}

void LabelBox::OnSize(wxSizeEvent& event) {
  event.Skip();
  int width = GetClientSize().x;
  if (width == brokenFor_) return;
  wxSize before = GetEffectiveMinSize();
  Break(width);
  Refresh();
  if (!fills_ || !Wraps()) return;
  InvalidateBestSize();
  if (GetEffectiveMinSize() != before && onGrow) onGrow();
}

wxColour LabelBox::TextColourNow(const wxColour& ground) const {
  if (!IsEnabled())
    return IsEntry()                                ? wxColour(150, 150, 150)
           : content_.style == LabelStyle::TopStrip ? *wxWHITE
                                                    : DisabledColour();
  if (content_.style == LabelStyle::TopStrip) return *wxWHITE;
  if (content_.foreColor != 0)
    return IsEntry() ? ToWx(content_.foreColor) : Readable(ToWx(content_.foreColor), ground);
  switch (content_.style) {
    case LabelStyle::Quiet:
    case LabelStyle::SubHeading:
      return QuietColour();
    case LabelStyle::Link:
      return LinkColour();
    case LabelStyle::MenuEntry:
      return *wxBLACK;
    default:
      return clickable_ ? LinkColour() : TextColour();
  }
}

wxRect LabelBox::HotArea() const {
  wxRect area(GetClientSize());
  if (IsEntry() || !clickable_) return area;
  wxClientDC dc(const_cast<LabelBox*>(this));
  dc.SetFont(GetFont());
  int width = 0;
  for (const wxString& line : lines_) width = std::max(width, dc.GetTextExtent(line).x);
  width += bitmap_.IsOk() ? Px(kLabelPicture + 8) : 0;
  width = std::min(width, area.width);
  if (content_.align == Align::Right) area.x = area.width - width;
  if (content_.align == Align::Center) area.x = (area.width - width) / 2;
  area.width = width;
  return area;
}

wxColour LabelBox::PaintBehind(wxDC& dc) {
  if (!IsEntry()) {
    PaintGround(*this, dc);
    return GroundBehind(*this);
  }
  wxColour ground = ToWx(content_.backColor);
  dc.SetBrush(ground);
  dc.SetPen(content_.border ? wxPen(wxColour(150, 158, 176)) : wxPen(ground));
  dc.DrawRectangle(wxRect(GetClientSize()));
  return ground;
}

int LabelBox::PaintPicture(wxDC& dc, int left) {
  if (!bitmap_.IsOk()) return left;
  int size = Px(IsEntry() ? kEntryPicture : kLabelPicture);
  wxBitmap bitmap = bitmap_.GetBitmapFor(this);
  if (!IsEnabled()) bitmap = bitmap.ConvertToDisabled(230);
  int room = SingleLine() ? GetClientSize().y : std::max(lineHeight_, size);
  dc.DrawBitmap(bitmap, left, (room - size) / 2, true);
  return left + size + Px(8);
}

wxString LabelBox::PaintLines(wxDC& dc, int left, int room, bool underlined, int thickness) {
  int height = GetClientSize().y;
  int top = SingleLine() ? (height - lineHeight_) / 2 : 0;
  // A wrapped text in a taller row stands in the middle, as its neighbours do.
  int needed = static_cast<int>(lines_.size()) * lineHeight_;
  if (!SingleLine() && !atTop_ && needed < height) top = (height - needed) / 2;
  wxString cut;
  for (const wxString& line : lines_) {
    wxString shown = line;
    int width = dc.GetTextExtent(shown).x;
    if (SingleLine() && width > room) {
      // Of a path the end matters, so it is cut in its middle.
      auto mode = line.Find('\\') != wxNOT_FOUND ? wxELLIPSIZE_MIDDLE : wxELLIPSIZE_END;
      shown = wxControl::Ellipsize(line, dc, mode, room, wxELLIPSIZE_FLAGS_NONE);
      width = dc.GetTextExtent(shown).x;
      cut = line;
    }
    int x = left;
    if (content_.align == Align::Right) x += room - width;
    if (content_.align == Align::Center) x += (room - width) / 2;
    dc.DrawText(shown, x, top);
    if (underlined) {
      dc.SetPen(wxPen(dc.GetTextForeground(), thickness));
      int y = top + lineHeight_ - Px(2);
      dc.DrawLine(x, y, x + width, y);
    }
    top += lineHeight_;
  }
  return cut;
}

void LabelBox::OnPaint(wxPaintEvent&) {
  wxAutoBufferedPaintDC dc(this);
  wxColour ground = PaintBehind(dc);
  dc.SetFont(GetFont());
  dc.SetTextForeground(TextColourNow(ground));
  bool focused = clickable_ && HasFocus();
  if (focused && !IsEntry() && content_.style != LabelStyle::TopStrip) {
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(Mix(AccentColour(), ground, 0.18));
    dc.DrawRoundedRectangle(HotArea(), Px(2));
  }
  int margin = IsEntry() ? Px(kEntryPadding) : 0;
  int left = PaintPicture(dc, margin);
  wxRect area(GetClientSize());
  bool underlined = clickable_ && IsEnabled() && (hot_ || focused) && !IsEntry();
  wxString cut =
      PaintLines(dc, left, std::max(0, area.width - left - margin), underlined, focused ? Px(2) : 1);
  if (onCut) onCut(cut);

  if (focused && IsEntry()) {
    dc.SetPen(wxPen(wxColour(47, 125, 225), std::max(1, Px(1))));
    dc.SetBrush(*wxTRANSPARENT_BRUSH);
    dc.DrawRoundedRectangle(wxRect(area).Deflate(Px(3)), Px(3));
  }
}

void LabelBox::OnMouse(wxMouseEvent& event) {
  event.Skip();
  if (!clickable_) return;
  bool inside = HotArea().Contains(event.GetPosition()) && event.GetEventType() != wxEVT_LEAVE_WINDOW;
  if (inside != hot_) {
    hot_ = inside;
    if (!IsEntry()) SetCursor(inside ? wxCursor(wxCURSOR_HAND) : wxNullCursor);
    Refresh();
    if (inside ? onEnter != nullptr : onLeave != nullptr) (inside ? onEnter : onLeave)();
  }
  if (event.GetEventType() == wxEVT_LEFT_DOWN || event.GetEventType() == wxEVT_LEFT_DCLICK) {
    pressed_ = inside;
    if (inside) SetFocus();
    event.Skip(false);
  } else if (event.GetEventType() == wxEVT_LEFT_UP) {
    if (pressed_ && inside && onClick) onClick();
    pressed_ = false;
  }
}

void LabelBox::OnKey(wxKeyEvent& event) {
  switch (event.GetKeyCode()) {
    case WXK_SPACE:
    case WXK_RETURN:
    case WXK_NUMPAD_ENTER:
      if (clickable_ && onClick && !event.HasAnyModifiers()) {
        onClick();
        return;
      }
      break;
    case WXK_UP:
    case WXK_DOWN:
      if (IsEntry()) {
        MoveAmongEntries(event.GetKeyCode() == WXK_DOWN);
        return;
      }
      break;
    case WXK_TAB:
      Navigate(event.ShiftDown() ? wxNavigationKeyEvent::IsBackward : wxNavigationKeyEvent::IsForward);
      return;
    default:
      break;
  }
  event.Skip();
}

void LabelBox::MoveAmongEntries(bool forward) {
  std::vector<LabelBox*> entries;
  for (wxWindow* each : GetParent()->GetChildren())
    if (auto* box = dynamic_cast<LabelBox*>(each); box && box->IsEntry() && box->CanAcceptFocus())
      entries.push_back(box);
  auto here = std::find(entries.begin(), entries.end(), this);
  if (here == entries.end()) return;
  auto at = static_cast<std::size_t>(here - entries.begin());
  entries[(at + (forward ? 1 : entries.size() - 1)) % entries.size()]->SetFocus();
}

}  // namespace view
