#include "controls/Form.h"

#include <algorithm>
#include <stdexcept>

namespace controls {

void Form::SetLayout(Layout layout) {
  layout_ = std::move(layout);
  Enter(layout_, nullptr, false);
}

void Form::Enter(Layout& layout, Control* parent, bool inStack) {
  Control* inside = parent;
  if (layout.type == Layout::Type::Item) {
    Control& control = *layout.control;
    if (control.form_ || !byName_.emplace(control.Name(), &control).second)
      throw std::logic_error("control " + control.Name() + " stands twice in " + name_);
    control.form_ = this;
    control.parent_ = parent;
    controls_.push_back(&control);
    if (control.Dirty()) dirty_.push_back(&control);
    if (inStack) {
      pages_.push_back(&control);
      if (!page_) page_ = dynamic_cast<Frame*>(&control);
    }
    inside = &control;
  }
  for (Layout& child : layout.children) Enter(child, inside, layout.type == Layout::Type::Stack);
}

Control* Form::Find(std::string_view name) const {
  auto found = byName_.find(name);
  return found == byName_.end() ? nullptr : found->second;
}

void Form::ShowPage(Frame& page) {
  if (page_ == &page) return;
  page_ = &page;
  pageChanged_ = true;
}

bool Form::OnFrontPage(const Control& control) const {
  for (const Control* c = &control; c; c = c->Parent())
    if (c != page_ && std::find(pages_.begin(), pages_.end(), c) != pages_.end()) return false;
  return true;
}

bool Form::Reachable(const Control& control) const {
  return control.TakesInput() && OnFrontPage(control);
}

bool Form::UserClick(Control& control) {
  if (!Reachable(control)) return false;
  switch (control.GetKind()) {
    case Kind::Label:
      static_cast<Label&>(control).Click();
      return true;
    case Kind::Button:
      static_cast<Button&>(control).Click();
      return true;
    case Kind::CheckBox: {
      auto& box = static_cast<CheckBox&>(control);
      box.Value = box.Value == 0 ? 1 : 0;
      return true;
    }
    default:
      return false;
  }
}

bool Form::UserCheck(CheckBox& box, bool checked) {
  if (!Reachable(box)) return false;
  box.Value = checked ? 1 : 0;
  return true;
}

bool Form::UserType(TextBox& box, std::string text) {
  if (!Reachable(box) || box.ReadOnly) return false;
  box.Text = std::move(text);
  box.Change();
  return true;
}

bool Form::UserPick(ComboBox& box, int index) {
  if (!Reachable(box)) return false;
  box.SetListIndex(index);
  return true;
}

bool Form::UserType(ComboBox& box, std::string text) {
  if (!Reachable(box) || !box.Editable) return false;
  box.SetText(std::move(text));
  return true;
}

bool Form::UserSpin(SpinBox& box, double value) {
  if (!Reachable(box)) return false;
  box.Value = value;
  return true;
}

bool Form::UserSelect(ListView& list, int row) {
  if (!Reachable(list)) return false;
  list.Select(row);
  list.Click();
  return true;
}

bool Form::UserTick(ListView& list, int row, bool checked) {
  if (!Reachable(list) || !list.CheckBoxes || row < 1 || row > list.Count()) return false;
  list.SetChecked(row, checked);
  list.ItemCheck(row);
  return true;
}

bool Form::UserDoubleClick(ListView& list, int row) {
  if (!Reachable(list)) return false;
  list.Select(row);
  list.DblClick();
  return true;
}

bool Form::UserMouseDown(ListView& list, int row, MouseButton button) {
  if (!Reachable(list)) return false;
  if (row > 0) list.Select(row);
  list.MouseDown(button);
  return true;
}

std::vector<Control*> Form::TakeDirty() {
  std::vector<Control*> dirty;
  dirty.swap(dirty_);
  for (Control* control : dirty) control->ClearDirty();
  return dirty;
}

}  // namespace controls
