// Sizes, fonts and colours: everything that the windows take from the system's theme, in one place.
#pragma once

#include <wx/colour.h>
#include <wx/dc.h>
#include <wx/font.h>
#include <wx/window.h>

#include "controls/Controls.h"

namespace view {

// Pixels for a distance given at 96 dpi. Grows with the system's text size, so that spaces, pictures and
// texts keep their proportions at 100 to 200 %.
int Px(int at96);

wxFont FontOf(controls::LabelStyle style);
wxFont Semibold(const wxFont& font);
wxFont Monospaced();

wxColour GroundColour();
wxColour TextColour();
wxColour QuietColour();  // still readable: never under 4.5 to 1
wxColour LinkColour();
wxColour DisabledColour();
wxColour FrameColour();   // light frames and rules
wxColour AccentColour();  // the bars of a chart, focus
bool DarkTheme();
// The theme or the text size has changed: everything is asked for anew.
void ForgetLook();

wxColour ToWx(controls::Color color);
// `share` of the first colour, the rest of the second.
wxColour Mix(const wxColour& a, const wxColour& b, double share);
double Contrast(const wxColour& a, const wxColour& b);
// `colour`, or the nearest shade of it that can be read on `ground`.
wxColour Readable(const wxColour& colour, const wxColour& ground);

// A window that its children see behind themselves.
class Ground {
 public:
  virtual ~Ground() = default;
  // Draws the part of the ground that lies under `area` (in the ground's own coordinates), with that area's
  // corner at 0, 0.
  virtual void DrawGround(wxDC& dc, const wxRect& area) = 0;
  // The colour that texts on it are chosen against.
  virtual wxColour Colour() const = 0;
};

// Fills the client area of a self-drawn window with what lies behind it.
void PaintGround(wxWindow& window, wxDC& dc);
wxColour GroundBehind(wxWindow& window);

}  // namespace view
