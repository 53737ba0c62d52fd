#include "controls/Controls.h"

#include <algorithm>

namespace controls {

CheckBox::ValueProperty& CheckBox::ValueProperty::operator=(int value) {
  if (value_ == value) return *this;
  value_ = value;
  owner_.assigned_ = true;
  owner_.Touch();
  owner_.Click();
  return *this;
}

void ComboBox::Clear() {
  items_.clear();
  text_.clear();
  index_ = -1;
  Touch();
}

void ComboBox::AddItem(std::string item) {
  items_.push_back(std::move(item));
  Touch();
}

void ComboBox::SetListIndex(int index) {
  if (index < 0 || index >= static_cast<int>(items_.size())) return;
  index_ = index;
  text_ = items_[index];
  Touch();
  Click();
}

void ComboBox::SetText(std::string text) {
  auto found = std::find(items_.begin(), items_.end(), text);
  index_ = found == items_.end() ? -1 : static_cast<int>(found - items_.begin());
  if (text_ == text) return;
  text_ = std::move(text);
  Touch();
}

SpinBox::ValueProperty& SpinBox::ValueProperty::operator=(double value) {
  value = std::clamp(value, owner_.Min, owner_.Max);
  if (value_ == value) return *this;
  value_ = value;
  owner_.assigned_ = true;
  owner_.Touch();
  return *this;
}

void Chart::SetData(int column, std::string data) {
  auto columns = Columns.Get();
  columns.at(static_cast<std::size_t>(column) - 1).Data = std::move(data);
  Columns = std::move(columns);
}

}  // namespace controls
