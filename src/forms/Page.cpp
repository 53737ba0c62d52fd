#include "forms/Page.h"

namespace forms {

using namespace controls;

namespace {

constexpr int kMargin = 16;

Layout BottomRow(std::vector<Layout> bottom) {
  return Row(std::move(bottom)).Expand();
}

}  // namespace

Layout HeadLine(std::string text) {
  return Text(std::move(text), LabelStyle::SubHeading);
}

Layout Page(Frame& frame, PageHead head, std::vector<Layout> content, std::vector<Layout> bottom) {
  Layout titles = Column({Text(head.Heading, LabelStyle::Heading), std::move(head.Line)}).Gap(4);
  std::vector<Layout> top{Wide(std::move(titles))};
  if (head.Home) top.push_back(*head.Home);
  std::vector<Layout> parts{Row(std::move(top)).Expand(), Rule(), Column(std::move(content)).Stretch()};
  if (!bottom.empty()) {
    parts.push_back(Rule());
    parts.push_back(BottomRow(std::move(bottom)));
  }
  return Contain(frame, Column(std::move(parts)).Padding(kMargin).Stretch());
}

Layout Band(Layout title) {
  return Row({std::move(title)}).Padding(kMargin).Min(0, 40).Skinned();
}

Layout Window(Layout title, std::vector<Layout> content, std::vector<Layout> bottom) {
  std::vector<Layout> parts{Column(std::move(content)).Stretch()};
  if (!bottom.empty()) {
    parts.push_back(Rule());
    parts.push_back(BottomRow(std::move(bottom)));
  }
  return Column({Band(std::move(title)), Column(std::move(parts)).Padding(kMargin).Stretch()}).Gap(0);
}

Layout Wide(Layout layout) {
  layout.stretch = 1;
  return layout;
}

Layout Actions(std::vector<Layout> left, std::vector<Layout> right) {
  left.push_back(Spring());
  for (Layout& layout : right) left.push_back(std::move(layout));
  return Row(std::move(left)).Expand();
}

Layout Progress(Label& status, ProgressBar& bar, Label& percent) {
  return Column({Item(status).Expand(),
                 Row({Wide(Item(bar).Reserve()), Item(percent).Min(48).Reserve()}).Expand()})
      .Gap(4)
      .Expand();
}

void Design(Control& control, std::string caption, char mnemonic, std::string toolTip) {
  control.Caption = std::move(caption);
  control.Mnemonic = mnemonic;
  control.ToolTip = std::move(toolTip);
}

void Link(Label& label, std::string caption, char mnemonic, std::string toolTip) {
  label.Style = LabelStyle::Link;
  Design(label, std::move(caption), mnemonic, std::move(toolTip));
}

void Value(Label& label, std::string caption) {
  label.Style = LabelStyle::Value;
  label.Alignment = Align::Right;
  label.Caption = std::move(caption);
}

void Status(Label& label, std::string caption) {
  label.Style = LabelStyle::Status;
  label.Caption = std::move(caption);
}

void Hide(Control& control) {
  control.Visible = false;
}

}  // namespace forms
