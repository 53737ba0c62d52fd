#include "program/Program.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include "app/MainWindow.h"
#include "app/m_SubMain.h"
#include "core/OpenForms.h"
#include "program/Computer.h"
#include "view/Application.h"
#include "view/WxDesktop.h"

namespace program {

namespace fs = std::filesystem;

namespace {

std::string FileText(const std::string& path) {
  std::ifstream in(fs::path(std::u8string(path.begin(), path.end())), std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
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
  Computer computer = MakeComputer(options);
  view::WxDesktop desktop(
      {.pictures = options.shareFolder + "/pictures",
       .toNative = computer.toNative,
       .fromNative = computer.fromNative,
       .browseRoot = computer.browseRoot,
       .closeRequest = [](controls::Form& form, int mode) { core::CloseForm(form, mode); }});
  Current current(*computer.machine, desktop);

  m_SubMain::Startup startup;
  startup.firstTimeSettings = FileText(options.shareFolder + "/first-time-settings.txt");
  startup.installDirectory = computer.installDirectory;
  startup.installFiles = computer.installFiles;
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
