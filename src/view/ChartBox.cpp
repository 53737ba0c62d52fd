#include "view/ChartBox.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <wx/control.h>
#include <wx/dcbuffer.h>
#include <wx/dcclient.h>
#include <wx/graphics.h>

#include "view/Look.h"
#include "view/Text.h"

namespace view {

namespace {

std::optional<double> Number(const std::string& text) {
  double value = 0;
  auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value)) return std::nullopt;
  return std::max(value, 0.0);
}

}  // namespace

double AxisStep(double top, int most) {
  double power = std::pow(10, std::floor(std::log10(std::max(top, 1e-9) / most)));
  for (double factor : {1.0, 2.0, 5.0, 10.0})
    if (factor * power * most >= top) return factor * power;
  return 10 * power;
}

wxString ReadableValue(double value) {
  wxString text = wxString::FromCDouble(value, 2);
  if (text.Contains(".")) {
    while (text.EndsWith("0")) text.RemoveLast();
    if (text.EndsWith(".")) text.RemoveLast();
  }
  std::size_t point = text.find('.');
  std::size_t whole = point == wxString::npos ? text.length() : point;
  for (std::size_t at = whole; at > 3; at -= 3) text.insert(at - 3, wxUniChar(0x00A0));
  return text;
}

ChartBox::ChartBox(wxWindow* parent, const wxString& name) {
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  Create(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE | wxFULL_REPAINT_ON_RESIZE, name);
  SetMinSize(wxSize(Px(320), Px(200)));
  Bind(wxEVT_PAINT, &ChartBox::OnPaint, this);
}

void ChartBox::Set(const std::string& rowLabel, const std::string& axisTitle,
                   const std::vector<controls::Chart::Column>& columns) {
  rowLabel_ = ToWx(rowLabel);
  axisTitle_ = ToWx(axisTitle);
  columns_ = columns;
  Refresh();
}

ChartBox::Axis ChartBox::MakeAxis() const {
  Axis axis;
  double top = 0;
  for (const auto& column : columns_)
    if (auto value = Number(column.Data)) {
      top = std::max(top, *value);
      axis.hasValues = true;
    }
  axis.step = AxisStep(top > 0 ? top : 1, 5);
  if (axis.hasValues) axis.steps = std::max(1, static_cast<int>(std::ceil(top / axis.step - 1e-9)));
  return axis;
}

wxRect ChartBox::PlotArea(wxDC& dc, const Axis& axis) const {
  int line = dc.GetCharHeight(), scaleWidth = 0;
  if (axis.hasValues)
    for (int i = 0; i <= axis.steps; ++i)
      scaleWidth = std::max(scaleWidth, dc.GetTextExtent(ReadableValue(i * axis.step)).x);
  // Title of the axis above its numbers, values above the bars, labels and the row's label below them.
  wxSize size = GetClientSize();
  wxRect plot(Px(8) + scaleWidth + Px(8), line + Px(8) + line + Px(4), 0, 0);
  plot.width = size.x - plot.x - Px(8);
  plot.height = size.y - plot.y - 2 * (line + Px(4)) - Px(4);
  return plot;
}

void ChartBox::PaintScale(wxDC& dc, const wxRect& plot, const Axis& axis) const {
  dc.SetTextForeground(QuietColour());
  dc.DrawText(axisTitle_, Px(8), 0);
  for (int i = 0; i <= axis.steps; ++i) {
    double share = static_cast<double>(i) / axis.steps;
    int y = plot.GetBottom() - static_cast<int>(std::lround(plot.height * share));
    dc.SetPen(FrameColour());
    dc.DrawLine(plot.x, y, plot.x + plot.width, y);
    if (!axis.hasValues) continue;
    wxString number = ReadableValue(i * axis.step);
    wxSize extent = dc.GetTextExtent(number);
    dc.DrawText(number, plot.x - Px(8) - extent.x, y - extent.y / 2);
  }
}

void ChartBox::PaintBars(wxDC& dc, const wxRect& plot, const Axis& axis) const {
  // The bars differ in shade, share an outline that stands out from the ground, and carry their labels:
  // colour isn't the only sign.
  wxColour accent = Readable(AccentColour(), GroundColour());
  const wxColour shades[] = {accent, Mix(accent, TextColour(), 0.6), Mix(accent, GroundColour(), 0.45)};
  int slot = plot.width / static_cast<int>(columns_.size());
  int width = std::min(slot / 2, Px(96));
  dc.SetTextForeground(TextColour());
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    int middle = plot.x + static_cast<int>(i) * slot + slot / 2;
    if (auto value = Number(columns_[i].Data)) {
      int height = static_cast<int>(std::lround(plot.height * *value / (axis.step * axis.steps)));
      if (*value > 0) height = std::max(height, 2);
      wxRect bar(middle - width / 2, plot.GetBottom() - height + 1, width, height);
      dc.SetPen(accent);
      dc.SetBrush(shades[i % std::size(shades)]);
      dc.DrawRectangle(bar);
      wxString text = ReadableValue(*value) + (axisTitle_.empty() ? wxString() : " " + axisTitle_);
      dc.DrawText(text, middle - dc.GetTextExtent(text).x / 2, bar.y - dc.GetCharHeight() - Px(2));
    }
    wxString label = wxControl::Ellipsize(ToWx(columns_[i].Label), dc, wxELLIPSIZE_END, slot - Px(8));
    dc.DrawText(label, middle - dc.GetTextExtent(label).x / 2, plot.GetBottom() + Px(6));
  }
}

void ChartBox::OnPaint(wxPaintEvent&) {
  wxAutoBufferedPaintDC dc(this);
  PaintGround(*this, dc);
  dc.SetFont(FontOf(controls::LabelStyle::Plain));
  Axis axis = MakeAxis();
  wxRect plot = PlotArea(dc, axis);
  if (plot.width < Px(40) || plot.height < Px(40)) return;
  PaintScale(dc, plot, axis);
  if (columns_.empty()) return;
  PaintBars(dc, plot, axis);
  dc.SetTextForeground(QuietColour());
  dc.DrawText(rowLabel_, plot.x + (plot.width - dc.GetTextExtent(rowLabel_).x) / 2,
              plot.GetBottom() + dc.GetCharHeight() + Px(8));
}

}  // namespace view
