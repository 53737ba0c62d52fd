// The test computer's machine with a registry that fails where a test wants it to: what a real store does
// only on a broken disk or for a user without rights.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Machine.h"
#include "platform/RuntimeError.h"

namespace test {

// Passes everything on to a real store, but for what it is told to refuse.
class FaultyRegistry : public platform::RegistryStore {
 public:
  explicit FaultyRegistry(platform::RegistryStore& store) : store_(store) {}

  // A code other than 0 refuses a write of this key and name; nothing is written then.
  std::function<long(std::string_view key, std::string_view name)> refuseWrite;
  // The answer to the removal of a value, which then stays, where it isn't 0.
  long removalCode = 0;
  // A code other than 0 is the answer to the reading of a key's names.
  std::function<long(std::string_view key)> refuseNames;
  // True makes a read of this value raise.
  std::function<bool(std::string_view key, std::string_view name)> raiseOnRead;
  // The answer to the commit of a transaction, of which nothing then lasts.
  long commitCode = 0;
  // What the store is told to be; its own state otherwise.
  std::optional<platform::StoreState> state;
  // "key|name" of each write that was asked for, and how many transactions were ended.
  std::vector<std::string> writes;
  int transactions = 0;

  platform::RegistryValue Read(std::uint32_t root, std::string_view key, std::string_view name) override {
    if (raiseOnRead && raiseOnRead(key, name)) throw platform::DeviceIoError();
    return store_.Read(root, key, name);
  }
  long Write(std::uint32_t root, std::string_view key, std::string_view name,
             const platform::RegistryValue& value) override {
    writes.push_back(std::string(key) + "|" + std::string(name));
    if (refuseWrite)
      if (long code = refuseWrite(key, name)) return code;
    if (commitCode != 0) return 0;
    return store_.Write(root, key, name, value);
  }
  long RemoveValue(std::uint32_t root, std::string_view key, std::string_view name) override {
    return removalCode != 0 ? removalCode : store_.RemoveValue(root, key, name);
  }
  long RemoveKey(std::uint32_t root, std::string_view key) override { return store_.RemoveKey(root, key); }
  long RemoveAllValues(std::uint32_t root, std::string_view key) override {
    return store_.RemoveAllValues(root, key);
  }
  long Names(std::uint32_t root, std::string_view key, std::vector<std::string>& names) override {
    if (refuseNames)
      if (long code = refuseNames(key)) return code;
    return store_.Names(root, key, names);
  }
  bool KeyExists(std::uint32_t root, std::string_view key) override {
    if (raiseOnRead && raiseOnRead(key, "")) throw platform::DeviceIoError();
    return store_.KeyExists(root, key);
  }
  void Begin() override { store_.Begin(); }
  long End() override {
    ++transactions;
    long code = store_.End();
    return commitCode != 0 ? commitCode : code;
  }
  platform::StoreState State() override { return state ? *state : store_.State(); }

 private:
  platform::RegistryStore& store_;
};

// While it lives it is the current machine; afterwards the real one is again.
class FaultyMachine : public platform::Machine {
 public:
  explicit FaultyMachine(platform::Machine& machine) : registry(machine.Registry()), machine_(machine) {
    platform::SetCurrentMachine(this);
  }
  ~FaultyMachine() override { platform::SetCurrentMachine(&machine_); }

  // A drive that has no bin.
  class NoBin : public platform::RecycleBin {
   public:
    platform::Status Move(std::string_view) override { return platform::Status::Refused; }
    bool IsThereFor(std::string_view) override { return false; }
    platform::Status Empty(const std::function<bool()>&) override { return platform::Status::Done; }
  };

  FaultyRegistry registry;
  std::optional<NoBin> noBin;

  platform::FileSystem& Files() override { return machine_.Files(); }
  platform::RegistryStore& Registry() override { return registry; }
  platform::Drives& GetDrives() override { return machine_.GetDrives(); }
  platform::RecycleBin& Bin() override { return noBin ? *noBin : machine_.Bin(); }
  platform::BrowserCache& Cache() override { return machine_.Cache(); }
  platform::Shortcuts& GetShortcuts() override { return machine_.GetShortcuts(); }
  platform::Processes& GetProcesses() override { return machine_.GetProcesses(); }
  platform::Power& GetPower() override { return machine_.GetPower(); }
  platform::Clock& GetClock() override { return machine_.GetClock(); }
  platform::Locale& GetLocale() override { return machine_.GetLocale(); }
  std::string Folder(platform::KnownFolder folder) override { return machine_.Folder(folder); }
  std::vector<std::string> ProfileFolders() override { return machine_.ProfileFolders(); }
  std::vector<std::string> UsersOwnFolders() override { return machine_.UsersOwnFolders(); }
  std::vector<platform::StartEntry> StartOnceEntries(std::string_view program) override {
    return machine_.StartOnceEntries(program);
  }

 private:
  platform::Machine& machine_;
};

}  // namespace test
