#include "command/OverlaidMachine.h"

namespace command {

using platform::RegistryValue;
using platform::ValueType;

namespace {

constexpr long kAccessDenied = 5;

}  // namespace

void OverlaidRegistry::Replace(std::string_view key, Values values) {
  replaced_.insert_or_assign(machine_.GetLocale().Fold(key), std::move(values));
}

const Values* OverlaidRegistry::Find(std::uint32_t root, std::string_view key) const {
  if (root != platform::kCurrentUser || replaced_.empty()) return nullptr;
  auto found = replaced_.find(machine_.GetLocale().Fold(key));
  return found == replaced_.end() ? nullptr : &found->second;
}

RegistryValue OverlaidRegistry::Read(std::uint32_t root, std::string_view key, std::string_view name) {
  const Values* values = Find(root, key);
  if (!values) return store_.Read(root, key, name);
  const std::string folded = machine_.GetLocale().Fold(name);
  for (const auto& [other, data] : *values)
    if (machine_.GetLocale().Fold(other) == folded) return {ValueType::String, data, 0};
  return {};
}

long OverlaidRegistry::Write(std::uint32_t root, std::string_view key, std::string_view name,
                             const RegistryValue& value) {
  return Find(root, key) ? kAccessDenied : store_.Write(root, key, name, value);
}

long OverlaidRegistry::RemoveValue(std::uint32_t root, std::string_view key, std::string_view name) {
  return Find(root, key) ? kAccessDenied : store_.RemoveValue(root, key, name);
}

long OverlaidRegistry::Names(std::uint32_t root, std::string_view key, std::vector<std::string>& names) {
  const Values* values = Find(root, key);
  if (!values) return store_.Names(root, key, names);
  for (const auto& [name, data] : *values) names.push_back(name);
  return 0;
}

bool OverlaidRegistry::KeyExists(std::uint32_t root, std::string_view key) {
  return Find(root, key) || store_.KeyExists(root, key);
}

}  // namespace command
