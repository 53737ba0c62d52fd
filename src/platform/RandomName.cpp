#include "platform/RandomName.h"

#include <random>

namespace platform {

std::string RandomName(std::size_t length) {
  static std::mt19937_64 random{(std::uint64_t{std::random_device{}()} << 32) | std::random_device{}()};
  std::uniform_int_distribution<std::size_t> place(0, 35);
  std::string name;
  for (std::size_t i = 0; i < length; ++i) name += "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"[place(random)];
  return name;
}

}  // namespace platform
