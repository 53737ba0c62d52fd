// The computer itself. The program's folder is the one that it lies in.
#ifdef _WIN32

#include <filesystem>
#include <string>
#include <windows.h>

#include "computer/Computer.h"
#include "platform/windows/WindowsLibraries.h"
#include "platform/windows/WindowsMachine.h"

namespace computer {

namespace {

std::filesystem::path ProgramFolder() {
  std::wstring path(32768, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return std::filesystem::path(path).parent_path();
}

std::string Utf8(const std::filesystem::path& path) {
  std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

}  // namespace

// A profile is its user's alone there; what could be foreign are the libraries.
void GuardProcess() {
  platform::LoadLibrariesOfTheSystemAlone();
}

std::string ShareFolder() {
  return Utf8(ProgramFolder() / "share");
}

Computer MakeComputer(const Options&) {
  Computer computer;
  computer.machine = std::make_unique<platform::WindowsMachine>();
  computer.toNative = computer.fromNative = [](const std::string& path) { return path; };
  computer.installDirectory = Utf8(ProgramFolder());
  if (!computer.installDirectory.ends_with('\\')) computer.installDirectory += '\\';
  computer.liesInstalled = true;
  return computer;
}

}  // namespace computer

#endif
