// Message boxes in one line.
#pragma once

#include <string>
#include <vector>

#include "platform/Desktop.h"

namespace core {

using platform::BoxIcon;

// A box with an OK button; the lines are joined by CR LF.
void Tell(BoxIcon icon, const std::string& title, const std::vector<std::string>& lines);
// A box with Yes and No. True only on Yes.
bool Ask(BoxIcon icon, const std::string& title, const std::vector<std::string>& lines);

// The hourglass for the length of a scope.
class Hourglass {
 public:
  Hourglass() { platform::CurrentDesktop().SetPointer(platform::Pointer::Hourglass); }
  ~Hourglass() { platform::CurrentDesktop().SetPointer(platform::Pointer::Default); }
  Hourglass(const Hourglass&) = delete;
  Hourglass& operator=(const Hourglass&) = delete;
};

}  // namespace core
