// The plain controls: label, button, check box, text box, combo box, spin box, progress bar, picture,
// animation, chart, frame and panel. The list has a header of its own.
#pragma once

#include <initializer_list>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "controls/Control.h"

namespace controls {

// How a label is drawn. Link and MenuEntry take the focus and answer Enter and Space.
enum class LabelStyle {
  Plain,
  Quiet,
  Heading,
  SubHeading,
  GroupHeading,
  Link,
  MenuEntry,
  Value,
  Status,
  TopStrip
};

enum class Align { Left, Center, Right };

class Label : public Control {
 public:
  explicit Label(std::string name) : Control(Kind::Label, std::move(name)) {}

  Property<LabelStyle> Style{*this, LabelStyle::Plain};
  Property<Align> Alignment{*this, Align::Left};
  // 0 is the ordinary text colour of the system's theme, whatever that is.
  Property<Color> ForeColor{*this, 0};
  // Only menu entries are drawn with their background and border.
  Property<Color> BackColor{*this, 0};
  Property<bool> Border{*this, false};
  // File name of an icon (without size and extension) that stands before the text; empty for none.
  Property<std::string> Picture{*this};

  Event<> Click;
  Event<> MouseMove;
};

class Button : public Control {
 public:
  explicit Button(std::string name) : Control(Kind::Button, std::move(name)) {}

  // The page's main action: drawn as such, at the right of the bottom row.
  Property<bool> Primary{*this, false};
  // Pressing Enter on the page presses it. Never set for a button that removes something.
  Property<bool> Default{*this, false};
  // Escape presses it.
  Property<bool> Cancel{*this, false};
  Property<std::string> Picture{*this};

  Event<> Click;
};

class CheckBox : public Control {
 public:
  explicit CheckBox(std::string name) : Control(Kind::CheckBox, std::move(name)) {}

  // 0 or 1. A change raises Click, whoever made it; assigning the value that it has raises nothing.
  class ValueProperty {
   public:
    explicit ValueProperty(CheckBox& owner) : owner_(owner) {}
    ValueProperty(const ValueProperty&) = delete;
    ValueProperty& operator=(const ValueProperty& other) { return *this = other.value_; }
    ValueProperty& operator=(int value);
    int Get() const { return value_; }
    operator int() const { return value_; }

   private:
    friend class CheckBox;
    CheckBox& owner_;
    int value_ = 0;
  };

  ValueProperty Value{*this};
  Event<> Click;

  // Whether the value stands for something: True once a fill has said so or the value has changed since, by
  // the user or by the program; False for a control that still holds what the form's design gave it.
  bool Assigned() const { return assigned_; }
  void SetAssigned(bool assigned) { assigned_ = assigned; }

 private:
  friend class ValueProperty;
  bool assigned_ = false;
};

class TextBox : public Control {
 public:
  explicit TextBox(std::string name) : Control(Kind::TextBox, std::move(name)) {}

  Property<std::string> Text{*this};
  // What stands in the empty box in a quiet colour.
  Property<std::string> Hint{*this};
  bool MultiLine = false;
  bool ReadOnly = false;
  // Enter in the box presses this control of the same form (a Button or a Label); null for none.
  Control* EnterPresses = nullptr;

  Event<> Change;
};

class ComboBox : public Control {
 public:
  explicit ComboBox(std::string name) : Control(Kind::ComboBox, std::move(name)) {}

  // The user may type a text that isn't among the items.
  bool Editable = false;

  void Clear();
  void AddItem(std::string item);
  const std::vector<std::string>& Items() const { return items_; }

  // Zero-based; -1 while the text is none of the items. Assigning an index that exists sets the text and
  // raises Click, also where it is the present one.
  int ListIndex() const { return index_; }
  void SetListIndex(int index);

  // Assigning a text selects the item of that text, if there is one, without raising Click.
  const std::string& Text() const { return text_; }
  void SetText(std::string text);

  Event<> Click;

 private:
  std::vector<std::string> items_;
  std::string text_;
  int index_ = -1;
};

class SpinBox : public Control {
 public:
  explicit SpinBox(std::string name) : Control(Kind::SpinBox, std::move(name)) {}

  double Min = 1;
  double Max = 35;
  // Clamped to Min and Max. Starts as 1.
  class ValueProperty {
   public:
    explicit ValueProperty(SpinBox& owner) : owner_(owner) {}
    ValueProperty(const ValueProperty&) = delete;
    ValueProperty& operator=(const ValueProperty& other) { return *this = other.value_; }
    ValueProperty& operator=(double value);
    double Get() const { return value_; }
    operator double() const { return value_; }

   private:
    SpinBox& owner_;
    double value_ = 1;
  };
  ValueProperty Value{*this};
  // As for a check box.
  bool Assigned() const { return assigned_; }
  void SetAssigned(bool assigned) { assigned_ = assigned; }

 private:
  friend class ValueProperty;
  bool assigned_ = false;
};

class ProgressBar : public Control {
 public:
  explicit ProgressBar(std::string name) : Control(Kind::ProgressBar, std::move(name)) {}

  Property<double> Max{*this, 100};
  Property<double> Value{*this, 0};
};

class Picture : public Control {
 public:
  explicit Picture(std::string name) : Control(Kind::Picture, std::move(name)) {}

  // File name of an icon, without size and extension.
  Property<std::string> Image{*this};
  Property<int> Size{*this, 16};
};

class Animation : public Control {
 public:
  explicit Animation(std::string name) : Control(Kind::Animation, std::move(name)) {}

  // Full path of the file, in the program's own path form.
  Property<std::string> File{*this};
  Property<bool> Playing{*this, false};
  void Open(std::string path) { File = std::move(path); }
  void Play() { Playing = true; }
  void Stop() { Playing = false; }
};

// A bar chart of one data row.
class Chart : public Control {
 public:
  explicit Chart(std::string name) : Control(Kind::Chart, std::move(name)) {}

  Property<std::string> RowLabel{*this};
  Property<std::string> AxisTitle{*this};
  struct Column {
    std::string Label;
    // A number as text, as the form hands it over; empty while nothing is shown.
    std::string Data;
    bool operator==(const Column&) const = default;
  };
  Property<std::vector<Column>> Columns{*this};
  // Column counts from 1.
  void SetData(int column, std::string data);
};

// A page, or a group of controls that is shown and hidden as one.
class Frame : public Control {
 public:
  explicit Frame(std::string name) : Control(Kind::Frame, std::move(name)) {}
};

// A region of the window; its Enabled holds for all that lies in it.
class Panel : public Control {
 public:
  explicit Panel(std::string name) : Control(Kind::Panel, std::move(name)) {}
  Event<> MouseMove;
};

// The skin of a window: the picture of its header band.
struct Skin {
  std::string Picture;
  bool Enabled = true;
};

// A timer that ticks in the message loop.
struct Timer {
  int Interval = 0;
  bool Enabled = false;
  Event<> Tick;
};

// Controls of one kind under one name, told apart by an index that need not be without gaps.
template <class T>
class ControlArray {
 public:
  ControlArray(const std::string& name, std::initializer_list<int> indices) {
    for (int index : indices) {
      indices_.push_back(index);
      controls_.push_back(std::make_unique<T>(name + "(" + std::to_string(index) + ")"));
    }
  }
  // `index` must be one that the array was made with.
  T& operator[](int index) { return *controls_[Position(index)]; }
  const T& operator[](int index) const { return *controls_[Position(index)]; }
  const std::vector<int>& Indices() const { return indices_; }

 private:
  std::size_t Position(int index) const {
    for (std::size_t i = 0; i < indices_.size(); ++i)
      if (indices_[i] == index) return i;
    throw std::out_of_range("no control of index " + std::to_string(index));
  }
  std::vector<int> indices_;
  std::vector<std::unique_ptr<T>> controls_;
};

// Declares a control as a member under its own name, so that the two can't differ.
#define CONTROL(Type, name) \
  ::controls::Type name {   \
#name                   \
  }

// The same for a control array: CONTROL_ARRAY(Label, lblMainMenu, 0, 1, 2, 3, 4).
#define CONTROL_ARRAY(Type, name, ...)              \
  ::controls::ControlArray<::controls::Type> name { \
#name, {                                        \
      __VA_ARGS__                                   \
    }                                               \
  }

}  // namespace controls
