#include "core/Boxes.h"

#include "core/Text.h"

namespace core {

void Tell(BoxIcon icon, const std::string& title, const std::vector<std::string>& lines) {
  platform::CurrentDesktop().MessageBox({icon, platform::BoxButtons::Ok, title, Lines(lines)});
}

bool Ask(BoxIcon icon, const std::string& title, const std::vector<std::string>& lines) {
  return platform::CurrentDesktop().MessageBox({icon, platform::BoxButtons::YesNo, title, Lines(lines)}) ==
         platform::BoxAnswer::Yes;
}

}  // namespace core
