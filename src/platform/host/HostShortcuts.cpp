#include "platform/host/HostShortcuts.h"

#include "platform/ShellLink.h"

namespace platform {

std::string HostShortcuts::Target(std::string_view path) {
  auto bytes = ReadShellLinkFile(machine_.Files(), path);
  if (!bytes) return {};
  ShellLinkTarget target =
      ReadShellLink(*bytes, [this](std::string_view ansi) { return machine_.GetLocale().FromAnsi(ansi); });
  return target.localPath.empty() ? Expand(target.environmentPath) : target.localPath;
}

std::string HostShortcuts::Expand(const std::string& path) {
  std::string expanded;
  std::size_t position = 0;
  while (true) {
    std::size_t start = path.find('%', position);
    expanded.append(path, position, start - position);
    if (start == std::string::npos) return expanded;
    std::size_t end = path.find('%', start + 1);
    if (end == std::string::npos) return expanded.append(path, start);
    std::string value = Variable(std::string_view(path).substr(start + 1, end - start - 1));
    if (value.empty()) return {};
    expanded += value;
    position = end + 1;
  }
}

std::string HostShortcuts::Variable(std::string_view name) {
  auto below = [&](KnownFolder folder, const char* more) {
    std::string path = machine_.Folder(folder);
    return path.empty() ? path : path + more;
  };
  std::string folded = machine_.GetLocale().Fold(name);
  if (folded == "windir" || folded == "systemroot") return machine_.Folder(KnownFolder::Windows);
  if (folded == "systemdrive") return machine_.Folder(KnownFolder::Windows).substr(0, 2);
  if (folded == "programfiles" || folded == "programw6432") return machine_.Folder(KnownFolder::ProgramFiles);
  if (folded == "programdata" || folded == "allusersprofile") {
    std::string drive = machine_.Folder(KnownFolder::Windows).substr(0, 2);
    return drive.empty() ? drive : drive + "\\ProgramData";
  }
  if (folded == "public") return below(KnownFolder::Profiles, "\\Public");
  if (folded == "userprofile") return machine_.Folder(KnownFolder::Profile);
  if (folded == "appdata") return machine_.Folder(KnownFolder::AppData);
  if (folded == "localappdata") return below(KnownFolder::Profile, "\\AppData\\Local");
  if (folded == "temp" || folded == "tmp") return machine_.Folder(KnownFolder::Temp);
  return {};
}

}  // namespace platform
