#include "program/Program.h"

#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "app/MainWindow.h"
#include "app/m_SubMain.h"
#include "core/Keys.h"
#include "core/OpenForms.h"
#include "platform/LibPath.h"
#include "platform/LibRegistry.h"
#include "program/Computer.h"
#include "settings/Seed.h"
#include "view/Application.h"
#include "view/WxDesktop.h"

namespace program {

namespace fs = std::filesystem;

namespace {

std::string FileText(const std::string& path) {
  std::ifstream in(fs::path(std::u8string(path.begin(), path.end())), std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// Lets the settings tell the folder that the program lies in, if it no longer lies in the one that they tell.
void FollowMovedFolder(const std::string& folder) {
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

// The current machine and desktop for the length of a scope.
struct Current {
  Current(platform::Machine& machine, platform::Desktop& desktop) {
    platform::SetCurrentMachine(&machine);
    platform::SetCurrentDesktop(&desktop);
  }
  ~Current() {
    core::DropAllForms();
    platform::SetCurrentDesktop(nullptr);
    platform::SetCurrentMachine(nullptr);
  }
};

}  // namespace

int Run(const Options& options, int argc, char** argv) {
  GuardProcess();
  Computer computer = MakeComputer(options);
  view::WxDesktop desktop(
      {.pictures = options.shareFolder + "/pictures",
       .toNative = computer.toNative,
       .fromNative = computer.fromNative,
       .browseRoot = computer.browseRoot,
       .closeRequest = [](controls::Form& form, int mode) { core::CloseForm(form, mode); }});
  Current current(*computer.machine, desktop);

  if (computer.liesInstalled) FollowMovedFolder(computer.installDirectory);

  m_SubMain::Startup startup;
  startup.firstTimeSettings = FileText(options.shareFolder + "/first-time-settings.txt");
  startup.installDirectory = computer.installDirectory;
  startup.installFiles = computer.installFiles;
  int exitCode = 0;
  const int shown = view::RunApplication(
      argc, argv,
      [&] {
        if (options.starting) options.starting();
        exitCode = m_SubMain::Main(startup);
        if (core::OpenForms().empty()) return false;
        if (options.started) options.started();
        return true;
      },
      app::EndSession);
  return shown != 0 ? shown : exitCode;
}

}  // namespace program
