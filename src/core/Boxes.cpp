#include "core/Boxes.h"

#include "core/Text.h"

namespace core {

void Tell(BoxIcon icon, const std::string& title, const std::vector<std::string>& lines) {
  platform::CurrentDesktop().MessageBox({icon, platform::BoxButtons::Ok, title, Lines(lines)});
}

void TellRegistryError(const std::string& cause, long code) {
  Tell(BoxIcon::Critical, "Unexpected error", {cause, kPermission, "Error code: " + std::to_string(code)});
}

bool Ask(BoxIcon icon, const std::string& title, const std::vector<std::string>& lines) {
  return platform::CurrentDesktop().MessageBox({icon, platform::BoxButtons::YesNo, title, Lines(lines)}) ==
         platform::BoxAnswer::Yes;
}

}  // namespace core
