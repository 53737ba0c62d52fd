// The computer with some keys of the registry in other words, for the length of a command.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/Machine.h"

namespace command {

// Names and data.
using Values = std::vector<std::pair<std::string, std::string>>;

// Passes everything on to the real store, but for the keys of the current user that are given other values:
// these are read from here, and nothing is written to them.
class OverlaidRegistry : public platform::RegistryStore {
 public:
  explicit OverlaidRegistry(platform::Machine& machine) : machine_(machine), store_(machine.Registry()) {}

  void Replace(std::string_view key, Values values);

  platform::RegistryValue Read(std::uint32_t root, std::string_view key, std::string_view name) override;
  long Write(std::uint32_t root, std::string_view key, std::string_view name,
             const platform::RegistryValue& value) override;
  long RemoveValue(std::uint32_t root, std::string_view key, std::string_view name) override;
  long RemoveKey(std::uint32_t root, std::string_view key) override { return store_.RemoveKey(root, key); }
  long RemoveAllValues(std::uint32_t root, std::string_view key) override {
    return store_.RemoveAllValues(root, key);
  }
  long Names(std::uint32_t root, std::string_view key, std::vector<std::string>& names) override;
  bool KeyExists(std::uint32_t root, std::string_view key) override;
  void Begin() override { store_.Begin(); }
  long End() override { return store_.End(); }
  platform::StoreState State() override { return store_.State(); }

 private:
  // Null for a key that is the store's own.
  const Values* Find(std::uint32_t root, std::string_view key) const;
  platform::Machine& machine_;
  platform::RegistryStore& store_;
  std::map<std::string, Values, std::less<>> replaced_;
};

// While it lives it is the current machine; afterwards the real one is again.
class OverlaidMachine : public platform::Machine {
 public:
  explicit OverlaidMachine(platform::Machine& machine) : registry(machine), machine_(machine) {
    platform::SetCurrentMachine(this);
  }
  ~OverlaidMachine() override { platform::SetCurrentMachine(&machine_); }
  OverlaidMachine(const OverlaidMachine&) = delete;
  OverlaidMachine& operator=(const OverlaidMachine&) = delete;

  OverlaidRegistry registry;

  platform::FileSystem& Files() override { return machine_.Files(); }
  platform::RegistryStore& Registry() override { return registry; }
  platform::Drives& GetDrives() override { return machine_.GetDrives(); }
  platform::RecycleBin& Bin() override { return machine_.Bin(); }
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

}  // namespace command
