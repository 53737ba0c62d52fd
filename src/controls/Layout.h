// How the controls of a form stand to each other, told as data. Distances are at 96 dpi, from one scale.
#pragma once

#include <initializer_list>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "controls/Controls.h"
#include "controls/ListView.h"

namespace controls {

// A tree: leaves are controls, fixed texts, rules and spaces; inner nodes place their children.
struct Layout {
  enum class Type {
    Item,    // one control; for a Frame or Panel, `children` is what lies in it
    Column,  // children from top to bottom
    Row,     // children from left to right, centred on one line
    Grid,    // children row by row in `columns` columns
    Group,   // a caption and a light frame around one column; never inside another group
    Stack,   // the children lie on top of each other; the form's current page is in front
    Text,    // a fixed text that no handler names
    Image,   // a fixed picture that no handler names
    Rule,    // a thin horizontal line
    Space,   // `size` pixels, or what is left where `stretch` is set
  };

  Type type = Type::Space;
  Control* control = nullptr;
  std::vector<Layout> children;
  std::string text;  // Text: what it says. Group: its caption. Image: the picture's name
  LabelStyle style = LabelStyle::Plain;
  int columns = 0;
  std::vector<int> growing;  // Grid: columns, from 0, that take what is left
  int size = 0;              // Space, Image: pixels
  int gap = 8;               // between children
  int padding = 0;           // around all children
  int stretch = 0;           // share of what is left, along the parent's direction
  bool expand = false;       // fills the parent across its direction
  int minWidth = 0, minHeight = 0;
  bool wrap = false;          // Text, Label: the text is broken to the width that the place has
  bool reserve = false;       // Item: the place stays empty while the control is hidden
  bool skin = false;          // Row: the picture of the form's skin is drawn behind it, over its width
  Align align = Align::Left;  // across a Column, along a Grid cell

  Layout() = default;
  Layout(Control& item) : type(Type::Item), control(&item) {}  // NOLINT: a control stands for itself
  explicit Layout(Type t) : type(t) {}

  // Modifiers, to be chained: Layout(list).Stretch().Expand().
  Layout Stretch(int share = 1) && { return stretch = share, expand = true, std::move(*this); }
  Layout Expand() && { return expand = true, std::move(*this); }
  Layout Gap(int pixels) && { return gap = pixels, std::move(*this); }
  Layout Padding(int pixels) && { return padding = pixels, std::move(*this); }
  Layout Min(int width, int height = 0) && { return minWidth = width, minHeight = height, std::move(*this); }
  Layout At(Align where) && { return align = where, std::move(*this); }
  Layout Growing(std::vector<int> which) && { return growing = std::move(which), std::move(*this); }
  Layout Wrap() && { return wrap = true, expand = true, std::move(*this); }
  Layout Reserve() && { return reserve = true, std::move(*this); }
  Layout Skinned() && { return skin = true, expand = true, std::move(*this); }
};

Layout Item(Control& control);
Layout Contain(Control& frameOrPanel, Layout content);
Layout Column(std::vector<Layout> children);
Layout Row(std::vector<Layout> children);
Layout Grid(int columns, std::vector<Layout> children);
Layout Group(std::string caption, std::vector<Layout> children);
Layout Stack(std::vector<Layout> children);
Layout Text(std::string text, LabelStyle style = LabelStyle::Plain);
Layout Image(std::string picture, int size);
Layout Rule();
Layout Space(int pixels);
Layout Spring();  // takes what is left

}  // namespace controls
