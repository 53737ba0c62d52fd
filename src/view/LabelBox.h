// Text that draws itself: labels of every style, links and menu entries.
#pragma once

#include <functional>
#include <vector>
#include <wx/bmpbndl.h>
#include <wx/window.h>

#include "controls/Controls.h"

namespace view {

class LabelBox : public wxWindow {
 public:
  struct Content {
    wxString text;
    controls::LabelStyle style = controls::LabelStyle::Plain;
    controls::Align align = controls::Align::Left;
    controls::Color foreColor = 0, backColor = 0;
    bool border = false;
    std::string picture;
    char mnemonic = '\0';
    bool operator==(const Content&) const = default;
  };

  // `fills`: the layout gives it what width there is, so that a long text wraps or is cut; otherwise it is as
  // wide as its text.
  LabelBox(wxWindow* parent, bool fills, const wxString& name);

  // Gives True if the layout must be made anew.
  bool Set(const Content& content);
  const Content& Get() const { return content_; }
  void SetClickable(bool clickable);
  // In a place taller than the text: at its top, not in its middle.
  void StandAtTop() { atTop_ = true; }
  bool Clickable() const { return clickable_; }
  void ThemeChanged();

  // The part that answers the mouse, in client coordinates: the text of a link, all of a menu entry.
  wxRect HotArea() const;

  std::function<void()> onClick;
  std::function<void()> onEnter;
  std::function<void()> onLeave;
  // Asks for a new layout of what it stands in.
  std::function<void()> onGrow;
  // The whole text where it is cut, or an empty text.
  std::function<void(const wxString&)> onCut;

  bool AcceptsFocus() const override { return clickable_ && wxWindow::AcceptsFocus(); }
  bool AcceptsFocusFromKeyboard() const override {
    return clickable_ && wxWindow::AcceptsFocusFromKeyboard();
  }

 protected:
  wxSize DoGetBestClientSize() const override;

 private:
  bool IsEntry() const { return content_.style == controls::LabelStyle::MenuEntry; }
  bool Wraps() const;
  bool SingleLine() const { return !Wraps(); }
  void Break(int width);
  int HeightFor(int lines) const;
  // Gives the colour of the ground.
  wxColour PaintBehind(wxDC& dc);
  // Gives where the text begins.
  int PaintPicture(wxDC& dc, int left);
  // Gives the whole text where it was cut, or an empty text.
  wxString PaintLines(wxDC& dc, int left, int room, bool underlined, int thickness);
  void OnPaint(wxPaintEvent& event);
  void OnSize(wxSizeEvent& event);
  void OnMouse(wxMouseEvent& event);
  void OnKey(wxKeyEvent& event);
  void MoveAmongEntries(bool forward);
  wxColour TextColourNow(const wxColour& ground) const;

  Content content_;
  bool fills_;
  bool clickable_ = false, atTop_ = false;
  bool hot_ = false, pressed_ = false;
  int widest_ = 0;      // of the texts so far, for what must not jump
  int brokenFor_ = -1;  // width that lines_ were made for
  int lineHeight_ = 0;
  std::vector<wxString> lines_;
  wxBitmapBundle bitmap_;
};

}  // namespace view
