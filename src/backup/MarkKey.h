// The key that the user's own archives are marked with.
#pragma once

#include <string>

namespace backup {

// 32 bytes at random, made the first time and kept in the user's registry. With `make` False it is only
// looked for. Empty if it isn't there or the registry can't be read or written.
std::string MarkKey(bool make);

}  // namespace backup
