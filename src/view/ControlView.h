// The widget of one control.
#pragma once

#include <memory>
#include <string>
#include <wx/window.h>

#include "controls/Form.h"

namespace view {

class FormWindow;

class ControlView {
 public:
  ControlView(FormWindow& owner, controls::Control& control);
  virtual ~ControlView() = default;
  ControlView(const ControlView&) = delete;
  ControlView& operator=(const ControlView&) = delete;

  // What stands in the layout, and what the keyboard reaches.
  virtual wxWindow* Window() = 0;
  virtual wxWindow* Focus() { return Window(); }
  // Brings the control's data to the widget; raises nothing.
  void Sync();

  // True while Enter means something to the widget itself.
  virtual bool TakesEnter() const { return false; }
  // Single-line widgets keep their own height in a row.
  virtual bool KeepsHeight() const { return true; }
  // Where a click of the mouse takes effect, on the screen.
  virtual wxRect HotRect();
  virtual void ThemeChanged() {}
  // The control goes; what the widget still does must not touch it.
  virtual void Detached() {}

  controls::Control& GetControl() { return control_; }

 protected:
  virtual void SyncContent() = 0;
  // What a screen reader says: caption, tool tip, or the accessible name.
  std::string SpokenName() const;
  virtual void SyncName();

  FormWindow& owner_;

 private:
  controls::Control& control_;
  wxString toolTip_;
};

// `layout` is the control's node. `fills`: the layout gives it what width there is. `page`: a frame in a
// stack.
std::unique_ptr<ControlView> MakeControlView(FormWindow& owner, wxWindow* parent, controls::Control& control,
                                             const controls::Layout& layout, bool fills, bool page);

}  // namespace view
