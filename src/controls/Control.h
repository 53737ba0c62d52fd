// The base of all controls: a name, what every control has, and the mark that tells the view of a change.
#pragma once

#include <cstdint>
#include <string>

#include "controls/Event.h"
#include "controls/Property.h"

namespace controls {

class Form;

enum class Kind {
  Label,
  Button,
  CheckBox,
  TextBox,
  ComboBox,
  SpinBox,
  ProgressBar,
  Picture,
  ListView,
  Animation,
  Chart,
  Frame,
  Panel,
};

// A colour as the forms write it: 0x00BBGGRR, blue in the high byte.
using Color = std::uint32_t;
constexpr Color Rgb(unsigned red, unsigned green, unsigned blue) {
  return red | green << 8 | blue << 16;
}

// Controls belong to one form, under a name that is unique there, and are neither copied nor moved. Property
// writes are cheap: they set a mark once, and the view brings marked controls to the screen when a frame is
// due.
class Control {
 public:
  Control(Kind kind, std::string name) : kind_(kind), name_(std::move(name)) {}
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;

  Kind GetKind() const { return kind_; }
  // The name as handlers are named by it; an element of a control array is "lblMainMenu(2)".
  const std::string& Name() const { return name_; }
  Form* Owner() const { return form_; }

  // The text on the control. It is written and never asked: what it says is noted elsewhere. A mnemonic
  // stands in `Mnemonic`, never as an "&".
  Property<std::string> Caption{*this};
  Property<std::string> ToolTip{*this};
  Property<bool> Visible{*this, true};
  Property<bool> Enabled{*this, true};
  // The letter that reaches the control with Alt, as it stands in the caption; 0 for none.
  Property<char> Mnemonic{*this, '\0'};
  // What a screen reader says where neither caption nor tool tip does.
  std::string AccessibleName;

  // The control that this one lies in (a Frame or Panel), set when the form's layout is given; null at the
  // top.
  Control* Parent() const { return parent_; }
  // Visible and enabled, and so are all that it lies in but for the page's being in front.
  bool TakesInput() const;

  // The view's marks. Touch marks the control and enters it in its form's list of changes, once.
  void Touch();
  bool Dirty() const { return dirty_; }
  void ClearDirty() { dirty_ = false; }

  // The view's own object for this control, opaque to everybody else.
  void* ViewData = nullptr;

 private:
  friend class Form;
  Kind kind_;
  bool dirty_ = false;
  std::string name_;
  Form* form_ = nullptr;
  Control* parent_ = nullptr;
};

}  // namespace controls
