// The registry of the played computer.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/RegistryStore.h"
#include "platform/host/RegistryDatabase.h"

namespace platform {

// Reads are answered from an image of the whole store in memory. What other processes have written since is
// looked for before a read, at most every 20 ms, before the first read after Begin, and before each write; so
// a read outside of a transaction may be that much behind another process, never behind a write of its own,
// and a write is always made upon the newest state.
//
// The store is opened at the first use. A write that can't be made answers one of RegistryCode and changes
// nothing; within Begin and End the first such answer stands for the whole transaction: later writes answer
// the same, and End answers it too, with none of them made. The names of keys and values must not hold a NUL,
// nor do the texts of string values (87), and a key must not have an empty component (161) or more than 512
// of them (87).
class HostRegistry : public RegistryStore {
 public:
  // `file` is a native path; its folder must exist. For `waitForDisk` see RegistryDatabase.
  explicit HostRegistry(std::string file, bool waitForDisk = true)
      : file_(file), database_(std::move(file), waitForDisk) {}
  // Makes what an open transaction has written lasting.
  ~HostRegistry() override;

  RegistryValue Read(std::uint32_t root, std::string_view key, std::string_view name) override;
  long Write(std::uint32_t root, std::string_view key, std::string_view name,
             const RegistryValue& value) override;
  long RemoveValue(std::uint32_t root, std::string_view key, std::string_view name) override;
  // An empty key, which is the whole root, is refused (5).
  long RemoveKey(std::uint32_t root, std::string_view key) override;
  long RemoveAllValues(std::uint32_t root, std::string_view key) override;
  long Names(std::uint32_t root, std::string_view key, std::vector<std::string>& names) override;
  bool KeyExists(std::uint32_t root, std::string_view key) override;
  void Begin() override;
  long End() override;
  StoreState State() override;

 private:
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
  };
  struct Value {
    std::int64_t id;
    std::string name;
    RegistryValue data;
  };
  struct Key {
    std::int64_t id;
    std::map<std::int64_t, Value> values;  // by id, so in the order of making
    std::unordered_map<std::string, Value*, Hash, std::equal_to<>> byName;  // by folded name
  };
  // By root and folded path: a byte for the root, then "\" before each component.
  using Keys = std::unordered_map<std::string, std::unique_ptr<Key>, Hash, std::equal_to<>>;

  // The image, not older than the header says; raises if it can't be had.
  void Refresh();
  // The same without raising; an error code where it can't be had.
  long Renew();
  long LoadImage();
  // The same for a write, under the lock; the outcome of `change` is the outcome of the write.
  long Change(const std::function<long()>& change);
  long StartWriting();
  long Abandon(long code);

  Key* FindKey(std::uint32_t root, std::string_view key);
  Value* FindValue(Key& key, std::string_view name);
  long MakeKey(std::uint32_t root, std::string_view key, Key*& made);
  long RemoveAllValuesOf(Key& key);

  std::string file_;
  RegistryDatabase database_;
  Keys keys_;
  bool imageGood_ = false;
  std::chrono::steady_clock::time_point nextCheck_{};

  int depth_ = 0;         // of Begin
  bool writing_ = false;  // the database's transaction is open
  long failure_ = 0;      // of the transaction in progress

  std::string path_, name_;  // folded; kept for their memory
  // The key that was read last, because its values are read one after the other; forgotten where keys go.
  std::string readPath_;
  std::uint32_t readRoot_ = 0;
  Key* read_ = nullptr;
};

}  // namespace platform
