// A bar chart that draws itself.
#pragma once

#include <string>
#include <vector>
#include <wx/dc.h>
#include <wx/window.h>

#include "controls/Controls.h"

namespace view {

class ChartBox : public wxWindow {
 public:
  ChartBox(wxWindow* parent, const wxString& name);
  void Set(const std::string& rowLabel, const std::string& axisTitle,
           const std::vector<controls::Chart::Column>& columns);
  bool AcceptsFocus() const override { return false; }

 private:
  // The value axis: so many steps of this size, from 0.
  struct Axis {
    double step = 1;
    int steps = 5;
    bool hasValues = false;
  };
  Axis MakeAxis() const;
  wxRect PlotArea(wxDC& dc, const Axis& axis) const;
  void PaintScale(wxDC& dc, const wxRect& plot, const Axis& axis) const;
  void PaintBars(wxDC& dc, const wxRect& plot, const Axis& axis) const;
  void OnPaint(wxPaintEvent& event);

  wxString rowLabel_, axisTitle_;
  std::vector<controls::Chart::Column> columns_;
};

// The ticks of a value axis from 0: a step of 1, 2 or 5 times a power of ten, so that at most `most` steps
// reach `top`.
double AxisStep(double top, int most);
// A value with at most two decimals, thousands apart: "1 234.5".
wxString ReadableValue(double value);

}  // namespace view
