// The computer that a Linux machine plays.
#ifndef _WIN32

#include <filesystem>
#include <system_error>

#include "computer/Computer.h"
#include "computer/ProgramFiles.h"
#include "platform/host/HostMachine.h"
#include "platform/host/HostPrivacy.h"

namespace computer {

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

// A folder of the program's own and the files in it, from before new ones were private.
void MakePrivate(platform::HostMachine& machine, const std::string& folder) {
  struct Private : platform::TreeVisitor {
    explicit Private(platform::HostMachine& m) : machine(m) {}
    bool Folder(std::string_view path) override {
      within = path;
      return true;
    }
    bool Entry(std::string_view name, platform::EntryKind kind, std::uint64_t) override {
      if (kind == platform::EntryKind::File) machine.MakePrivate(within + std::string(name));
      return true;
    }
    platform::HostMachine& machine;
    std::string within;
  } visitor(machine);
  machine.MakePrivate(folder);
  machine.Files().Walk(folder, {.recursive = false}, visitor);
}

}  // namespace

void GuardProcess() {
  platform::MakeNewFilesPrivate();
}

std::string ShareFolder() {
  return platform::HostMachine::ShareFolder();
}

Computer MakeComputer(const Options& options) {
  auto host =
      std::make_unique<platform::HostMachine>(platform::HostOptions{.dataFolder = options.dataFolder,
                                                                    .programs = options.shareFolder + "/bin",
                                                                    .userName = options.userName});
  platform::HostMachine* machine = host.get();
  Computer computer;
  computer.machine = std::move(host);
  computer.toNative = [machine](const std::string& path) { return ToNative(*machine, path); };
  computer.fromNative = [machine](const std::string& path) { return machine->FromNative(path); };
  computer.browseRoot = machine->DrivesFolder();
  computer.installDirectory = kInstallDirectory;
  computer.installFiles = [machine, share = options.shareFolder](const std::string& folder, bool firstTime) {
    InstallProgramFiles(share, folder, firstTime);
    for (const char* own : {"Reports", "Backup", "Temp"}) MakePrivate(*machine, folder + own);
  };
  return computer;
}

}  // namespace computer

#endif
