// The registry of the computer.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/RegistryStore.h"

namespace platform {

// The codes are the system's own. It has no transactions that last: every write is made at once. A key with
// an empty component is refused (161), a zero in a name or text too (87), and a root by itself (5) where a
// key is removed. A value of another type than the two is told as text: one with variables with their values
// put in, several texts parted by blanks, anything else in hexadecimal digits.
class WindowsRegistry : public RegistryStore {
 public:
  // With a key below HKEY_CURRENT_USER its sub-keys "80000000", "80000001", ... are taken for the roots.
  explicit WindowsRegistry(std::wstring playedKey = {}) : playedKey_(std::move(playedKey)) {}

  RegistryValue Read(std::uint32_t root, std::string_view key, std::string_view name) override;
  long Write(std::uint32_t root, std::string_view key, std::string_view name,
             const RegistryValue& value) override;
  long RemoveValue(std::uint32_t root, std::string_view key, std::string_view name) override;
  long RemoveKey(std::uint32_t root, std::string_view key) override;
  long RemoveAllValues(std::uint32_t root, std::string_view key) override;
  long Names(std::uint32_t root, std::string_view key, std::vector<std::string>& names) override;
  bool KeyExists(std::uint32_t root, std::string_view key) override;
  void Begin() override {}
  long End() override { return 0; }
  StoreState State() override;

 private:
  struct Place;
  long Find(std::uint32_t root, std::string_view key, Place& place) const;
  std::wstring playedKey_;
};

}  // namespace platform
