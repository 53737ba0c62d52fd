#include "program/Program.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include "app/MainWindow.h"
#include "app/m_SubMain.h"
#include "core/OpenForms.h"
#include "platform/host/HostMachine.h"
#include "program/ProgramFiles.h"
#include "view/Application.h"
#include "view/WxDesktop.h"

namespace program {

namespace fs = std::filesystem;

namespace {

constexpr char kInstallDirectory[] = "C:\\Program Files\\Tidorra\\";

std::string FileText(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// Nothing on this machine shows a compiled help file, so its pages are opened instead.
std::string ToNative(platform::HostMachine& machine, const std::string& path) {
  fs::path native = machine.ToNative(path);
  if (native.extension() == ".chm") {
    fs::path pages = native.parent_path() / "html/index.html";
    std::error_code error;
    if (fs::exists(native, error) && fs::exists(pages, error)) return pages;
  }
  return native;
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

std::string ShareFolder() {
  std::error_code error;
  fs::path folder = fs::read_symlink("/proc/self/exe", error).parent_path();
  for (const fs::path& share : {folder / "share", folder.parent_path() / "share"})
    if (fs::is_directory(share, error)) return share;
  return folder / "share";
}

int Run(const Options& options, int argc, char** argv) {
  platform::HostMachine machine({.dataFolder = options.dataFolder, .userName = options.userName});
  view::WxDesktop desktop(
      {.pictures = options.shareFolder + "/pictures",
       .toNative = [&](const std::string& path) { return ToNative(machine, path); },
       .fromNative = [&](const std::string& path) { return machine.FromNative(path); },
       .browseRoot = machine.DrivesFolder(),
       .closeRequest = [](controls::Form& form, int mode) { core::CloseForm(form, mode); }});
  Current current(machine, desktop);

  m_SubMain::Startup startup;
  startup.firstTimeSettings = FileText(options.shareFolder + "/first-time-settings.txt");
  startup.installDirectory = kInstallDirectory;
  startup.installFiles = [&](const std::string& folder, bool firstTime) {
    InstallProgramFiles(options.shareFolder, machine.ToNative(folder.substr(0, folder.size() - 1)),
                        firstTime);
  };
  return view::RunApplication(
      argc, argv,
      [&] {
        m_SubMain::Main(startup);
        if (core::OpenForms().empty()) return false;
        if (options.started) options.started();
        return true;
      },
      app::EndSession);
}

}  // namespace program
