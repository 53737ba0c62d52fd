#include "platform/LibRegistry.h"

#include <charconv>
#include <optional>

#include "platform/Machine.h"

namespace platform {

namespace {

// The system's error numbers.
constexpr long kAccessDenied = 5, kInvalidParameter = 87;

std::string_view Trimmed(std::string_view key) {
  while (key.ends_with('\\')) key.remove_suffix(1);
  return key;
}

// A key whose removal takes no more than one program's settings along: at least two components, all of them
// named.
bool MayRemove(std::string_view key) {
  return key.find('\\') != key.npos && !key.starts_with('\\') && key.find("\\\\") == key.npos;
}

std::optional<std::int64_t> WholeNumber(std::string_view text) {
  while (text.starts_with(' ')) text.remove_prefix(1);
  while (text.ends_with(' ')) text.remove_suffix(1);
  if (text.starts_with('+') && text.substr(1, 1) != "-") text.remove_prefix(1);
  std::int64_t number = 0;
  auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

RegistryStore& Store() {
  return CurrentMachine().Registry();
}

}  // namespace

std::string LibRegistry::ReadValue(std::uint32_t root, std::string_view key, std::string_view name) const {
  RegistryValue value = Store().Read(root, Trimmed(key), name);
  if (value.type == ValueType::Absent) return {};
  return value.type == ValueType::DWord ? std::to_string(value.number) : value.text;
}

long LibRegistry::WriteValue(std::uint32_t root, std::string_view key, std::string_view name,
                             std::string_view data) const {
  return Store().Write(root, Trimmed(key), name, {ValueType::String, std::string(data), 0});
}

long LibRegistry::DeleteValue(std::uint32_t root, std::string_view key, std::string_view name) const {
  return Store().RemoveValue(root, Trimmed(key), name);
}

long LibRegistry::DeleteKey(std::uint32_t root, std::string_view key) const {
  key = Trimmed(key);
  return MayRemove(key) ? Store().RemoveKey(root, key) : kAccessDenied;
}

long LibRegistry::DeleteAllValues(std::uint32_t root, std::string_view key) const {
  key = Trimmed(key);
  return MayRemove(key) ? Store().RemoveAllValues(root, key) : kAccessDenied;
}

long LibRegistry::EnumValues(std::uint32_t root, std::string_view key, CountedList& names) const {
  std::vector<std::string> found;
  long code = Store().Names(root, Trimmed(key), found);
  if (code != 0) return code;
  for (const std::string& name : found) names.Add(name);
  return 0;
}

long LibRegistry::ReadTypedValue(std::uint32_t root, std::string_view key, std::string_view name) const {
  RegistryValue value = Store().Read(root, Trimmed(key), name);
  if (value.type == ValueType::DWord) return static_cast<std::int32_t>(value.number);
  if (value.type != ValueType::String) return 0;
  auto number = WholeNumber(value.text);
  return number && *number >= INT32_MIN && *number <= INT32_MAX ? static_cast<long>(*number) : 0;
}

long LibRegistry::WriteTypedValue(std::uint32_t root, std::string_view key, std::string_view name,
                                  std::string_view data, std::string_view type) const {
  if (type == "REG_SZ") return WriteValue(root, key, name, data);
  if (type != "REG_DWORD") return kInvalidParameter;
  auto number = WholeNumber(data);
  if (!number || *number < INT32_MIN || *number > UINT32_MAX) return kInvalidParameter;
  return Store().Write(root, Trimmed(key), name, {ValueType::DWord, {}, static_cast<std::uint32_t>(*number)});
}

RegistryTransaction::RegistryTransaction() {
  Store().Begin();
}

RegistryTransaction::~RegistryTransaction() {
  if (open_) Store().End();
}

long RegistryTransaction::Commit() {
  if (!open_) return 0;
  open_ = false;
  return Store().End();
}

}  // namespace platform
