// Message boxes in one line.
#pragma once

#include <string>
#include <vector>

#include "platform/Desktop.h"

namespace core {

using platform::BoxIcon;

// A box with an OK button; the lines are joined by CR LF, each as core::OneLine shows it.
void Tell(BoxIcon icon, const std::string& title, const std::vector<std::string>& lines);
// What to do about settings that can't be read or written.
inline constexpr char kPermission[] =
    "Check your permission with administrator or reinstall to correct the settings";
// An operation of the registry answered `code`, which isn't 0; `cause` says which.
void TellRegistryError(const std::string& cause, long code);
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
