// The windows that others stand on: the header band, the menu, and groups with their frame.
#pragma once

#include <string>
#include <wx/bitmap.h>
#include <wx/panel.h>

#include "view/Look.h"

namespace view {

// A panel that draws its own ground.
class GroundPanel : public wxPanel, public Ground {
 public:
  explicit GroundPanel(wxWindow* parent, const wxString& name);
};

// The band at the top of a window, filled by the skin's picture from its left edge on.
class Band : public GroundPanel {
 public:
  explicit Band(wxWindow* parent);
  // A native path; empty for the plain colour.
  void SetPicture(const std::string& path);
  void DrawGround(wxDC& dc, const wxRect& area) override;
  wxColour Colour() const override;

 private:
  std::string path_;
  wxImage image_;
  wxBitmap bitmap_;
};

// The menu's ground: the colour of its entries at rest.
class MenuGround : public GroundPanel {
 public:
  MenuGround(wxWindow* parent, const wxString& name, wxColour colour);
  void DrawGround(wxDC& dc, const wxRect& area) override;
  wxColour Colour() const override { return colour_; }

 private:
  wxColour colour_;
};

// A caption and a light frame around what stands in Inside().
class GroupBox : public wxPanel {
 public:
  GroupBox(wxWindow* parent, const wxString& caption, int padding);
  // The sizer that takes the group's children.
  wxSizer* Inside() { return inside_; }
  void ThemeChanged();

 private:
  void OnPaint(wxPaintEvent& event);
  class LabelBox* caption_ = nullptr;
  wxSizer* inside_ = nullptr;
};

// A line of one pixel.
class RuleLine : public wxWindow {
 public:
  explicit RuleLine(wxWindow* parent);
};

}  // namespace view
