#include "controls/Control.h"

#include "controls/Form.h"

namespace controls {

void NoteChange(Control& control) {
  control.Touch();
}

void Control::Touch() {
  if (dirty_) return;
  dirty_ = true;
  if (form_) form_->NoteDirty(*this);
}

bool Control::TakesInput() const {
  for (const Control* control = this; control; control = control->parent_) {
    if (!control->Enabled) return false;
    if (!control->Visible) return false;
  }
  return true;
}

}  // namespace controls
