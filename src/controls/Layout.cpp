#include "controls/Layout.h"

namespace controls {

namespace {

Layout Box(Layout::Type type, std::vector<Layout> children) {
  Layout layout(type);
  layout.children = std::move(children);
  return layout;
}

}  // namespace

Layout Item(Control& control) {
  return Layout(control);
}

Layout Contain(Control& frameOrPanel, Layout content) {
  Layout layout(frameOrPanel);
  layout.children.push_back(std::move(content));
  return layout;
}

Layout Column(std::vector<Layout> children) {
  return Box(Layout::Type::Column, std::move(children));
}
Layout Row(std::vector<Layout> children) {
  return Box(Layout::Type::Row, std::move(children));
}
Layout Stack(std::vector<Layout> children) {
  return Box(Layout::Type::Stack, std::move(children));
}

Layout Grid(int columns, std::vector<Layout> children) {
  Layout layout = Box(Layout::Type::Grid, std::move(children));
  layout.columns = columns;
  return layout;
}

Layout Group(std::string caption, std::vector<Layout> children) {
  Layout layout = Box(Layout::Type::Group, std::move(children));
  layout.text = std::move(caption);
  layout.padding = 12;
  layout.expand = true;
  return layout;
}

Layout Text(std::string text, LabelStyle style) {
  Layout layout(Layout::Type::Text);
  layout.text = std::move(text);
  layout.style = style;
  return layout;
}

Layout Image(std::string picture, int size) {
  Layout layout(Layout::Type::Image);
  layout.text = std::move(picture);
  layout.size = size;
  return layout;
}

Layout Rule() {
  Layout layout(Layout::Type::Rule);
  layout.expand = true;
  return layout;
}

Layout Space(int pixels) {
  Layout layout(Layout::Type::Space);
  layout.size = pixels;
  return layout;
}

Layout Spring() {
  Layout layout(Layout::Type::Space);
  layout.stretch = 1;
  return layout;
}

}  // namespace controls
