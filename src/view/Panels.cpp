#include "view/Panels.h"

#include <algorithm>
#include <wx/dcbuffer.h>
#include <wx/dcclient.h>
#include <wx/image.h>
#include <wx/log.h>
#include <wx/sizer.h>

#include "view/LabelBox.h"
#include "view/Native.h"
#include "view/Text.h"

namespace view {

GroundPanel::GroundPanel(wxWindow* parent, const wxString& name) {
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  Create(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
         wxTAB_TRAVERSAL | wxBORDER_NONE | wxFULL_REPAINT_ON_RESIZE, name);
  Bind(wxEVT_PAINT, [this](wxPaintEvent&) {
    wxAutoBufferedPaintDC dc(this);
    DrawGround(dc, wxRect(GetClientSize()));
  });
}

namespace {
const wxColour& PlainBand() {
  static const wxColour colour(37, 66, 117);
  return colour;
}
}  // namespace

Band::Band(wxWindow* parent) : GroundPanel(parent, "band") {}

void Band::SetPicture(const std::string& path) {
  if (path == path_) return;
  path_ = path;
  image_ = wxImage();
  bitmap_ = wxBitmap();
  if (!path.empty()) {
    wxLogNull quiet;
    image_.LoadFile(ToWx(path));
  }
  Refresh();
  for (wxWindow* child : GetChildren()) child->Refresh();
}

void Band::DrawGround(wxDC& dc, const wxRect& area) {
  int height = std::max(GetClientSize().y, 1);
  if (image_.IsOk() && (!bitmap_.IsOk() || bitmap_.GetHeight() != height)) {
    int width = std::max(1, image_.GetWidth() * height / image_.GetHeight());
    bitmap_ = wxBitmap(image_.Scale(width, height, wxIMAGE_QUALITY_HIGH));
  }
  dc.SetPen(*wxTRANSPARENT_PEN);
  wxColour rest = PlainBand();
  if (image_.IsOk()) {
    // Where the window is wider than the picture its last colour goes on.
    int x = image_.GetWidth() - 1, y = image_.GetHeight() / 2;
    rest = wxColour(image_.GetRed(x, y), image_.GetGreen(x, y), image_.GetBlue(x, y));
  }
  dc.SetBrush(rest);
  dc.DrawRectangle(0, 0, area.width, area.height);
  if (bitmap_.IsOk()) dc.DrawBitmap(bitmap_, -area.x, -area.y);
}

wxColour Band::Colour() const {
  return PlainBand();
}

MenuGround::MenuGround(wxWindow* parent, const wxString& name, wxColour colour)
    : GroundPanel(parent, name), colour_(std::move(colour)) {}

void MenuGround::DrawGround(wxDC& dc, const wxRect& area) {
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(colour_);
  dc.DrawRectangle(0, 0, area.width, area.height);
  dc.SetPen(FrameColour());
  int edge = GetClientSize().x - 1 - area.x;
  dc.DrawLine(edge, 0, edge, area.height);
}

GroupBox::GroupBox(wxWindow* parent, const wxString& caption, int padding)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
              wxTAB_TRAVERSAL | wxFULL_REPAINT_ON_RESIZE) {
  native::SetAccessible(*this, native::Role::Group, caption);
  auto* all = new wxBoxSizer(wxVERTICAL);
  if (!caption.empty()) {
    caption_ = new LabelBox(this, true, wxEmptyString);
    LabelBox::Content content;
    content.text = caption;
    content.style = controls::LabelStyle::GroupHeading;
    caption_->Set(content);
    native::SetAccessible(*caption_, native::Role::Text, caption);
    all->Add(caption_, wxSizerFlags().Expand().Border(wxBOTTOM, Px(4)));
  }
  inside_ = new wxBoxSizer(wxVERTICAL);
  all->Add(inside_, wxSizerFlags(1).Expand().Border(wxALL, Px(padding)));
  SetSizer(all);
  Bind(wxEVT_PAINT, &GroupBox::OnPaint, this);
}

void GroupBox::ThemeChanged() {
  if (caption_) caption_->ThemeChanged();
  Refresh();
}

void GroupBox::OnPaint(wxPaintEvent&) {
  wxPaintDC dc(this);
  wxRect frame(GetClientSize());
  if (caption_) {
    int top = caption_->GetSize().y + Px(4);
    frame.y += top;
    frame.height -= top;
  }
  dc.SetPen(FrameColour());
  dc.SetBrush(*wxTRANSPARENT_BRUSH);
  dc.DrawRoundedRectangle(frame, Px(4));
}

RuleLine::RuleLine(wxWindow* parent) {
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  Create(parent, wxID_ANY, wxDefaultPosition, wxSize(-1, 1));
  SetMinSize(wxSize(1, 1));
  Bind(wxEVT_PAINT, [this](wxPaintEvent&) {
    wxPaintDC dc(this);
    dc.SetPen(FrameColour());
    dc.DrawLine(0, 0, GetClientSize().x, 0);
  });
}

}  // namespace view
