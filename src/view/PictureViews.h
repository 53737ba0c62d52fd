// The widgets of the controls that only show something.
#pragma once

#include <memory>

#include "view/ControlView.h"

namespace view {

std::unique_ptr<ControlView> MakePictureView(FormWindow& owner, wxWindow* parent, controls::Picture& picture);
std::unique_ptr<ControlView> MakeAnimationView(FormWindow& owner, wxWindow* parent,
                                               controls::Animation& animation);
std::unique_ptr<ControlView> MakeChartView(FormWindow& owner, wxWindow* parent, controls::Chart& chart);

}  // namespace view
