// Where nothing may come to lie that isn't from the user's own backups. For the ZIP control alone.
#pragma once

#include <string_view>

namespace backup {

// True for what lies in the program's own folder, or in any user's or the computer's start-up folder.
bool IsForbidden(std::string_view path);

}  // namespace backup
