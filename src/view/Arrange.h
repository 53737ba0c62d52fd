// Makes widgets and sizers from a form's layout.
#pragma once

#include <wx/window.h>

#include "controls/Layout.h"

namespace view {

class FormWindow;

// Makes all that `layout` tells as children of `root` and gives root its sizer. Keyboard order is the
// layout's.
void Arrange(FormWindow& owner, wxWindow* root, const controls::Layout& layout);

}  // namespace view
