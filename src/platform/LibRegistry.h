// The registry, as the program uses it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/CountedList.h"
#include "platform/RegistryStore.h"

namespace platform {

// Keys are paths below `root`, without a leading backslash; a trailing backslash means the same key. Keys and
// value names compare without regard to case. The reads raise RuntimeError where the store itself can't be
// read; the writes answer a code and never raise.
class LibRegistry {
 public:
  // The value's data as text (a DWORD in decimal); an empty string where value or key is absent.
  std::string ReadValue(std::uint32_t root, std::string_view key, std::string_view name) const;
  // Stores `data` as a string value and makes the key where it is missing. 0 done, else an error code.
  long WriteValue(std::uint32_t root, std::string_view key, std::string_view name,
                  std::string_view data) const;
  // 0 done, also for an absent value; else an error code.
  long DeleteValue(std::uint32_t root, std::string_view key, std::string_view name) const;
  // The key with its sub-keys. Refuses (an error code) an empty key and one of a single component. 0 done.
  long DeleteKey(std::uint32_t root, std::string_view key) const;
  // All values of a key, which stays. Refuses as DeleteKey does. 0 done.
  long DeleteAllValues(std::uint32_t root, std::string_view key) const;
  // Appends the key's value names in the store's order. 0 done, also for an absent key, which has none.
  long EnumValues(std::uint32_t root, std::string_view key, CountedList& names) const;
  // A DWORD as a number; 0 for an absent value; a string value that holds a number gives that.
  long ReadTypedValue(std::uint32_t root, std::string_view key, std::string_view name) const;
  // `type` is "REG_SZ" or "REG_DWORD"; text that is no number is refused for a DWORD. 0 done, else an error
  // code.
  long WriteTypedValue(std::uint32_t root, std::string_view key, std::string_view name, std::string_view data,
                       std::string_view type) const;
};

// Makes all writes of one saving procedure lasting together. Commit tells how that went; leaving the scope
// without it commits as well and tells nobody.
class RegistryTransaction {
 public:
  RegistryTransaction();
  ~RegistryTransaction();
  RegistryTransaction(const RegistryTransaction&) = delete;
  RegistryTransaction& operator=(const RegistryTransaction&) = delete;
  // 0 done; otherwise an error code, and none of the writes has happened.
  long Commit();

 private:
  bool open_ = true;
};

}  // namespace platform
