#include "computer/Computer.h"

#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "core/Keys.h"
#include "platform/LibPath.h"
#include "platform/LibRegistry.h"
#include "settings/Seed.h"

namespace computer {

std::string FirstTimeSettings(const std::string& shareFolder) {
  std::u8string path(shareFolder.begin(), shareFolder.end());
  std::ifstream in(std::filesystem::path(path) / "first-time-settings.txt", std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void FollowMovedFolder(const Computer& computer) {
  if (!computer.liesInstalled) return;
  const std::string& folder = computer.installDirectory;
  try {
    platform::Machine& machine = platform::CurrentMachine();
    if (!settings::HasSettings() || machine.GetProcesses().InstanceRuns("Brasmir")) return;
    platform::LibRegistry registry;
    constexpr auto kUser = platform::kCurrentUser;
    std::string told = registry.ReadValue(kUser, core::keys::kTidorra, "Install Directory");
    if (machine.GetLocale().Fold(told) == machine.GetLocale().Fold(folder)) return;
    std::string there = platform::LibPath().AddBackslash(told) + "Brasmir.exe";
    if (!told.empty() && machine.Files().Look(there).kind == platform::EntryKind::File) return;
    registry.WriteValue(kUser, core::keys::kTidorra, "Install Directory", folder);
    registry.WriteValue(kUser, core::keys::kExcludedDirectories, folder,
                        "Holds this program and its backups");
  } catch (const std::exception&) {
    // Settings that can't be read are told by the start.
  }
}

}  // namespace computer
