// Names for files that need one of no meaning.
#pragma once

#include <cstddef>
#include <string>

namespace platform {

// `length` characters of 0-9 and A-Z.
std::string RandomName(std::size_t length);

}  // namespace platform
