// The standard page and the small parts that pages share, so that all screens are built alike.
#pragma once

#include <string>
#include <vector>

#include "controls/Form.h"

namespace forms {

struct PageHead {
  std::string Heading;
  controls::Layout Line;              // under the heading
  controls::Control* Home = nullptr;  // upper right corner
};

// The line under a heading as a fixed text.
controls::Layout HeadLine(std::string text);

// Heading and line, Home at their right, a rule, the content, a rule, and one row at the bottom: Back and
// Next at the left, a Spring, the page's other actions and last the main one. Without a bottom row its rule
// goes too.
controls::Layout Page(controls::Frame& frame, PageHead head, std::vector<controls::Layout> content,
                      std::vector<controls::Layout> bottom = {});

// The band at the top of a secondary window, with the skin behind it.
controls::Layout Band(controls::Layout title);

// A secondary window: the band, the content, and the bottom row as in Page.
controls::Layout Window(controls::Layout title, std::vector<controls::Layout> content,
                        std::vector<controls::Layout> bottom = {});

// Takes what is left along a row, and keeps its own height.
controls::Layout Wide(controls::Layout layout);

// Buttons or links side by side, those of `right` at the right end.
controls::Layout Actions(std::vector<controls::Layout> left, std::vector<controls::Layout> right = {});

// The status line with bar and percentage under it. Bar and percentage keep their place while they are
// hidden.
controls::Layout Progress(controls::Label& status, controls::ProgressBar& bar, controls::Label& percent);

// One control's texts.
void Design(controls::Control& control, std::string caption, char mnemonic = '\0', std::string toolTip = {});
// The same for a label that is clicked.
void Link(controls::Label& label, std::string caption, char mnemonic = '\0', std::string toolTip = {});
// A label that shows a number at the right of its place.
void Value(controls::Label& label, std::string caption = {});
// A label whose text tells what goes on.
void Status(controls::Label& label, std::string caption = {});
void Hide(controls::Control& control);

}  // namespace forms
