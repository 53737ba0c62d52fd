// Text tests and text building that the whole program shares.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace core {

// Case is ignored in every script. An empty part is found in any non-empty text; nothing is found in an empty
// text.
bool Contains(std::string_view text, std::string_view part);
bool Equals(std::string_view a, std::string_view b);

// A part that is looked for in many texts: folded once. Same rule as Contains.
class Part {
 public:
  explicit Part(std::string_view part);
  bool In(std::string_view text) const;
  bool Empty() const { return folded_.empty(); }

 private:
  std::string folded_;
  bool ascii_;
};

// The text with letters folded, so that equal texts but for case become equal bytes.
std::string Fold(std::string_view text);
bool IsAscii(std::string_view text);

// Lines joined by CR LF.
std::string Lines(const std::vector<std::string>& lines);
// The text as one line in which nothing hides: each line's end, control character, sign that turns the
// direction of writing, and byte that is no UTF-8 stands as a replacement sign (U+FFFD). For names in boxes,
// reports and logs.
std::string OneLine(std::string_view text);
// Without blanks at both ends.
std::string_view Trim(std::string_view text);

}  // namespace core
