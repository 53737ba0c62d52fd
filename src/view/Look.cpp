#include "view/Look.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <wx/settings.h>

#include "view/Native.h"

namespace view {

namespace {

struct Cache {
  double scale = 1;
  bool dark = false;
  wxColour ground, text, quiet, link, disabled, frame, accent;
};
std::optional<Cache> cache;

double Luminance(const wxColour& colour) {
  auto part = [](int value) {
    double v = value / 255.0;
    return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * part(colour.Red()) + 0.7152 * part(colour.Green()) + 0.0722 * part(colour.Blue());
}

bool IsGrey(const wxColour& colour) {
  auto [least, most] = std::minmax({colour.Red(), colour.Green(), colour.Blue()});
  return most - least < 40;
}

const Cache& Look() {
  if (cache) return *cache;
  Cache look;
  look.scale = native::TextScale();
  look.ground = native::WindowColour();
  look.text = wxSystemSettings::GetColour(wxSYS_COLOUR_BTNTEXT);
  look.dark = Luminance(look.ground) < Luminance(look.text);
  look.quiet = Mix(look.text, look.ground, 0.72);
  while (Contrast(look.quiet, look.ground) < 4.5 && Contrast(look.text, look.ground) > 4.6)
    look.quiet = Mix(look.text, look.quiet, 0.2);
  look.link = wxSystemSettings::GetColour(wxSYS_COLOUR_HOTLIGHT);
  // Some themes' links are as grey as what can't be clicked.
  if (IsGrey(look.link)) look.link = wxColour(0, 102, 204);
  look.link = Readable(look.link, look.ground);
  look.disabled = Mix(look.text, look.ground, 0.42);
  look.frame = Mix(look.text, look.ground, look.dark ? 0.22 : 0.18);
  look.accent = wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT);
  cache = look;
  return *cache;
}

}  // namespace

int Px(int at96) {
  return static_cast<int>(std::lround(at96 * Look().scale));
}

wxFont Semibold(const wxFont& font) {
  wxFont result = font;
  result.SetNumericWeight(wxFONTWEIGHT_SEMIBOLD);
  return result;
}

wxFont FontOf(controls::LabelStyle style) {
  using controls::LabelStyle;
  wxFont font = wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT);
  // 16 points beside an ordinary text of 10; larger where the user has made the system's font larger.
  double points = font.GetFractionalPointSize();
  switch (style) {
    case LabelStyle::Heading:
      font.SetFractionalPointSize(std::max(16.0, points * 1.5));
      return Semibold(font);
    case LabelStyle::GroupHeading:
      return Semibold(font);
    case LabelStyle::TopStrip:
      font.SetFractionalPointSize(points * 1.1);
      return font;
    default:
      return font;
  }
}

wxFont Monospaced() {
  wxFont font(wxFontInfo(wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT).GetFractionalPointSize())
                  .Family(wxFONTFAMILY_TELETYPE));
  return font;
}

wxColour GroundColour() {
  return Look().ground;
}
wxColour TextColour() {
  return Look().text;
}
wxColour QuietColour() {
  return Look().quiet;
}
wxColour LinkColour() {
  return Look().link;
}
wxColour DisabledColour() {
  return Look().disabled;
}
wxColour FrameColour() {
  return Look().frame;
}
wxColour AccentColour() {
  return Look().accent;
}
bool DarkTheme() {
  return Look().dark;
}
void ForgetLook() {
  cache.reset();
}

wxColour ToWx(controls::Color color) {
  return wxColour(color & 0xFF, color >> 8 & 0xFF, color >> 16 & 0xFF);
}

wxColour Mix(const wxColour& a, const wxColour& b, double share) {
  auto one = [share](int x, int y) {
    return static_cast<unsigned char>(std::lround(x * share + y * (1 - share)));
  };
  return wxColour(one(a.Red(), b.Red()), one(a.Green(), b.Green()), one(a.Blue(), b.Blue()));
}

double Contrast(const wxColour& a, const wxColour& b) {
  double x = Luminance(a) + 0.05, y = Luminance(b) + 0.05;
  return x > y ? x / y : y / x;
}

wxColour Readable(const wxColour& colour, const wxColour& ground) {
  const wxColour& end = Luminance(ground) < 0.18 ? *wxWHITE : *wxBLACK;
  wxColour result = colour;
  for (int step = 0; step < 10 && Contrast(result, ground) < 4.5; ++step) result = Mix(end, result, 0.2);
  return result;
}

namespace {

// The nearest ground behind `window` and the window's place on it.
Ground* FindGround(wxWindow& window, wxPoint& place) {
  for (wxWindow* each = &window; each && !each->IsTopLevel(); each = each->GetParent()) {
    if (each != &window)
      if (auto* ground = dynamic_cast<Ground*>(each)) return ground;
    place += each->GetPosition();
  }
  return nullptr;
}

}  // namespace

void PaintGround(wxWindow& window, wxDC& dc) {
  wxPoint place;
  if (Ground* ground = FindGround(window, place)) {
    ground->DrawGround(dc, wxRect(place, window.GetClientSize()));
    return;
  }
  if (native::ShinesThrough()) return;
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(GroundColour());
  dc.DrawRectangle(window.GetClientSize());
}

wxColour GroundBehind(wxWindow& window) {
  wxPoint place;
  Ground* ground = FindGround(window, place);
  return ground ? ground->Colour() : GroundColour();
}

}  // namespace view
