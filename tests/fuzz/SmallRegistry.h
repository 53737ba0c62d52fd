// A registry for programs that are fuzzed.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/Fuzz.h"
#include "platform/RegistryStore.h"

namespace fuzz {

// In memory; keys and names to the letter.
class SmallRegistry : public platform::RegistryStore {
 public:
  std::map<std::string, std::map<std::string, platform::RegistryValue>> keys;
  platform::RegistryValue Read(std::uint32_t, std::string_view key, std::string_view name) override {
    auto& values = keys[std::string(key)];
    auto found = values.find(std::string(name));
    return found == values.end() ? platform::RegistryValue() : found->second;
  }
  long Write(std::uint32_t, std::string_view key, std::string_view name,
             const platform::RegistryValue& value) override {
    keys[std::string(key)][std::string(name)] = value;
    return 0;
  }
  long RemoveValue(std::uint32_t, std::string_view key, std::string_view name) override {
    keys[std::string(key)].erase(std::string(name));
    return 0;
  }
  long RemoveKey(std::uint32_t, std::string_view) override { Fail("a key was removed"); }
  long RemoveAllValues(std::uint32_t, std::string_view) override { Fail("all values were removed"); }
  long Names(std::uint32_t, std::string_view key, std::vector<std::string>& names) override {
    for (const auto& [name, value] : keys[std::string(key)]) names.push_back(name);
    return 0;
  }
  bool KeyExists(std::uint32_t, std::string_view key) override { return keys.contains(std::string(key)); }
  void Begin() override {}
  long End() override { return 0; }
};

}  // namespace fuzz
