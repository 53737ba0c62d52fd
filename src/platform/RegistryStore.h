// The primitives of the registry that a backend implements.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

// The predefined root keys.
enum : std::uint32_t {
  kClassesRoot = 0x80000000u,
  kCurrentUser = 0x80000001u,
  kLocalMachine = 0x80000002u,
  kUsers = 0x80000003u,
  kPerformanceData = 0x80000004u,
  kCurrentConfig = 0x80000005u,
  kDynData = 0x80000006u,
};

enum class ValueType { Absent, String, DWord, Other };

struct RegistryValue {
  ValueType type = ValueType::Absent;
  std::string text;          // String; otherwise what reads well as text
  std::uint32_t number = 0;  // DWord
};

// How the store is as a whole.
enum class StoreHealth {
  Good,
  ReadOnly,     // it can be read, and nothing can be written to it
  Refused,      // it isn't read, because somebody else may have made it what it is
  Damaged,      // it can't be read
  Unreachable,  // it can't be opened
};
inline bool IsReadable(StoreHealth health) {
  return health == StoreHealth::Good || health == StoreHealth::ReadOnly;
}
struct StoreState {
  StoreHealth health = StoreHealth::Good;
  // Where it lies, in the words of the system that the program runs on: a file's path, or a key's.
  std::string place;
  // What is wrong and what to do about it, a sentence each, for a person; empty where all is good.
  std::string fault, advice;
};

// Keys are paths below a root, without leading or trailing backslashes (the operations above see to that).
// Keys and names compare without regard to case and are kept as first written. Codes are 0 for done and an
// error code of the system otherwise. Reading raises platform::RuntimeError where the store itself can't be
// read (damaged, or not to be opened); writing never raises.
class RegistryStore {
 public:
  virtual ~RegistryStore() = default;
  virtual RegistryValue Read(std::uint32_t root, std::string_view key, std::string_view name) = 0;
  // Makes the key and those above it where they are missing.
  virtual long Write(std::uint32_t root, std::string_view key, std::string_view name,
                     const RegistryValue& value) = 0;
  // 0 also where there is nothing to remove.
  virtual long RemoveValue(std::uint32_t root, std::string_view key, std::string_view name) = 0;
  // With all sub-keys.
  virtual long RemoveKey(std::uint32_t root, std::string_view key) = 0;
  virtual long RemoveAllValues(std::uint32_t root, std::string_view key) = 0;
  // The value names in the store's order (that of their making, where the store has one). 0 and nothing for a
  // key that isn't there.
  virtual long Names(std::uint32_t root, std::string_view key, std::vector<std::string>& names) = 0;
  virtual bool KeyExists(std::uint32_t root, std::string_view key) = 0;

  // All writes between Begin and the End that matches it become lasting together. They nest; only the
  // outermost counts. End answers a failure of the commit as an error code (then none of them has happened);
  // a store without transactions writes at once and answers 0.
  virtual void Begin() = 0;
  virtual long End() = 0;

  // Looks at the store anew, and tries a write that changes nothing. Never raises.
  virtual StoreState State() { return {}; }
};

}  // namespace platform
