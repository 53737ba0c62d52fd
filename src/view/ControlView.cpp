#include "view/ControlView.h"

#include <wx/tooltip.h>

#include "view/FormWindow.h"
#include "view/LabelBox.h"
#include "view/Native.h"
#include "view/Text.h"

namespace view {

ControlView::ControlView(FormWindow& owner, controls::Control& control) : owner_(owner), control_(control) {}

std::string ControlView::SpokenName() const {
  if (!control_.AccessibleName.empty()) return control_.AccessibleName;
  return control_.Caption.Get().empty() ? control_.ToolTip.Get() : control_.Caption.Get();
}

void ControlView::SyncName() {
  native::SetAccessibleName(*Focus(), ToWx(SpokenName()));
}

wxRect ControlView::HotRect() {
  return Focus()->GetScreenRect();
}

void ControlView::Sync() {
  wxWindow* window = Window();
  bool shown = owner_.Shown(control_);
  if (window->IsShown() != shown) {
    window->Show(shown);
    owner_.RequestLayout(window);
  }
  // A stop that was taken shows it: the button can't be pressed a second time.
  bool enabled = control_.Enabled && !owner_.GetScreen().StopTaken(control_);
  if (window->IsThisEnabled() != enabled) {
    window->Enable(enabled);
    // What draws itself on a disabled panel looks disabled too.
    window->Refresh();
  }
  SyncContent();
  wxString tip = ToWx(control_.ToolTip.Get());
  if (tip != toolTip_) {
    toolTip_ = tip;
    if (tip.empty())
      window->UnsetToolTip();
    else
      window->SetToolTip(tip);
  }
  SyncName();
}

}  // namespace view
