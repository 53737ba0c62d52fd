#include "backup/MarkKey.h"

#include <random>

#include "backup/Bytes.h"
#include "core/Keys.h"
#include "platform/LibRegistry.h"
#include "platform/RegistryStore.h"
#include "platform/RuntimeError.h"

namespace backup {

namespace {

constexpr std::size_t kLength = 32;
constexpr char kName[] = "Key";

std::string KeyPath() {
  return std::string(core::keys::kBackup) + "\\Mark";
}

std::string ToHex(std::string_view bytes) {
  std::string hex;
  for (unsigned char byte : bytes) {
    hex += "0123456789ABCDEF"[byte >> 4];
    hex += "0123456789ABCDEF"[byte & 15];
  }
  return hex;
}

// Empty if it is no key.
std::string FromHex(std::string_view hex) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string bytes;
  for (std::size_t i = 0; i + 1 < hex.size(); i += 2) {
    std::size_t high = digits.find(hex[i]), low = digits.find(hex[i + 1]);
    if (high == digits.npos || low == digits.npos) return {};
    bytes += static_cast<char>(high << 4 | low);
  }
  return hex.size() == 2 * kLength ? bytes : std::string();
}

}  // namespace

std::string MarkKey(bool make) {
  platform::LibRegistry registry;
  try {
    std::string key = FromHex(registry.ReadValue(platform::kCurrentUser, KeyPath(), kName));
    if (!key.empty() || !make) return key;
    std::random_device random;
    for (std::size_t i = 0; i < kLength / 4; ++i) Put(key, random(), 4);
    if (registry.WriteValue(platform::kCurrentUser, KeyPath(), kName, ToHex(key)) != 0) return {};
    return key;
  } catch (const platform::RuntimeError&) {
    return {};
  }
}

}  // namespace backup
