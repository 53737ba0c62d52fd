#include "program/Program.h"

#include "app/MainWindow.h"
#include "app/m_SubMain.h"
#include "core/OpenForms.h"
#include "view/Application.h"
#include "view/WxDesktop.h"

namespace program {

namespace {

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
  computer::GuardProcess();
  const std::string& share = options.computer.shareFolder;
  computer::Computer computer = computer::MakeComputer(options.computer);
  view::WxDesktop desktop(
      {.pictures = share + "/pictures",
       .toNative = computer.toNative,
       .fromNative = computer.fromNative,
       .browseRoot = computer.browseRoot,
       .closeRequest = [](controls::Form& form, int mode) { core::CloseForm(form, mode); }});
  Current current(*computer.machine, desktop);

  computer::FollowMovedFolder(computer);

  m_SubMain::Startup startup;
  startup.firstTimeSettings = computer::FirstTimeSettings(share);
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
