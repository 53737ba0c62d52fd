#include "core/Boxes.h"

#include "core/Text.h"

namespace core {

namespace {

// A name that is told can't end its line and begin another one.
platform::Box BoxOf(BoxIcon icon, platform::BoxButtons buttons, const std::string& title,
                    std::vector<std::string> lines) {
  for (std::string& line : lines) line = OneLine(line);
  return {icon, buttons, OneLine(title), Lines(lines)};
}

}  // namespace

void Tell(BoxIcon icon, const std::string& title, const std::vector<std::string>& lines) {
  platform::CurrentDesktop().MessageBox(BoxOf(icon, platform::BoxButtons::Ok, title, lines));
}

void TellRegistryError(const std::string& cause, long code) {
  Tell(BoxIcon::Critical, "Unexpected error", {cause, kPermission, "Error code: " + std::to_string(code)});
}

bool Ask(BoxIcon icon, const std::string& title, const std::vector<std::string>& lines) {
  return platform::CurrentDesktop().MessageBox(BoxOf(icon, platform::BoxButtons::YesNo, title, lines)) ==
         platform::BoxAnswer::Yes;
}

}  // namespace core
