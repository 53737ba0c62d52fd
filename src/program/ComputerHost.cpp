// The computer that a Linux machine plays.
#ifndef _WIN32

#include <filesystem>
#include <system_error>

#include "platform/host/HostMachine.h"
#include "program/Computer.h"
#include "program/ProgramFiles.h"

namespace program {

namespace fs = std::filesystem;

namespace {

constexpr char kInstallDirectory[] = "C:\\Program Files\\Tidorra\\";

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

}  // namespace

std::string ShareFolder() {
  std::error_code error;
  fs::path folder = fs::read_symlink("/proc/self/exe", error).parent_path();
  for (const fs::path& share : {folder / "share", folder.parent_path() / "share"})
    if (fs::is_directory(share, error)) return share;
  return folder / "share";
}

Computer MakeComputer(const Options& options) {
  auto host = std::make_unique<platform::HostMachine>(
      platform::HostOptions{.dataFolder = options.dataFolder, .userName = options.userName});
  platform::HostMachine* machine = host.get();
  Computer computer;
  computer.machine = std::move(host);
  computer.toNative = [machine](const std::string& path) { return ToNative(*machine, path); };
  computer.fromNative = [machine](const std::string& path) { return machine->FromNative(path); };
  computer.browseRoot = machine->DrivesFolder();
  computer.installDirectory = kInstallDirectory;
  computer.installFiles = [machine, share = options.shareFolder](const std::string& folder, bool firstTime) {
    InstallProgramFiles(share, machine->ToNative(folder.substr(0, folder.size() - 1)), firstTime);
  };
  return computer;
}

}  // namespace program

#endif
