// A value of a control that notices when it changes.
#pragma once

#include <string>
#include <type_traits>
#include <utility>

namespace controls {

class Control;

// Tells `control` that one of its properties has a new value. Marks it for the view; never paints.
void NoteChange(Control& control);

// A plain property. Assigning an equal value is no change. Reads convert to T by themselves; where a template
// stands in the way, Get() gives the value.
template <class T>
class Property {
 public:
  explicit Property(Control& owner, T value = T()) : owner_(owner), value_(std::move(value)) {}
  Property(const Property&) = delete;
  Property& operator=(const Property& other) { return *this = other.value_; }

  Property& operator=(T value) {
    if (!(value_ == value)) {
      value_ = std::move(value);
      NoteChange(owner_);
    }
    return *this;
  }

  const T& Get() const { return value_; }
  operator const T&() const { return value_; }

  friend bool operator==(const Property& a, const T& b) { return a.value_ == b; }
  friend bool operator==(const Property& a, const Property& b) { return a.value_ == b.value_; }

 private:
  Control& owner_;
  T value_;
};

inline std::string operator+(const Property<std::string>& a, const std::string& b) {
  return a.Get() + b;
}
inline std::string operator+(const std::string& a, const Property<std::string>& b) {
  return a + b.Get();
}

}  // namespace controls
