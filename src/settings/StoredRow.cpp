#include "settings/StoredRow.h"

#include "core/Text.h"
#include "core/c_Registry.h"
#include "platform/LibRegistry.h"

namespace settings {

long RenameRow(const std::string& old, const std::string& name, const std::vector<RowValue>& values) {
  platform::LibRegistry registry;
  platform::RegistryTransaction transaction;
  const bool same = core::Equals(old, name);
  auto removeAll = [&](const std::string& which) {
    for (const RowValue& value : values)
      registry.DeleteValue(c_Registry::HKEY_CURRENT_USER, value.key, which);
  };
  for (const RowValue& value : values) {
    long code = registry.WriteValue(c_Registry::HKEY_CURRENT_USER, value.key, name, value.data);
    if (code == 0) continue;
    if (!same) removeAll(name);
    return code;
  }
  if (!same) removeAll(old);
  return transaction.Commit();
}

}  // namespace settings
