#include "platform/Guard.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstring>
#include <string>
#include <vector>

#include "platform/Machine.h"
#include "platform/PathText.h"
#include "platform/ProtectedFolders.h"

namespace platform {

namespace {

std::string installFolder;

bool IsOneOf(std::string_view text, std::initializer_list<std::string_view> names) {
  return std::find(names.begin(), names.end(), text) != names.end();
}

// The names that open a device in every folder, with any extension and with blanks behind them.
bool IsDeviceName(std::string_view name) {
  // Nearly every name is told by its first letter.
  if (name.empty() || !std::strchr("cCpPaAnNlL", name[0])) return false;
  name = name.substr(0, name.find('.'));
  while (name.ends_with(' ')) name.remove_suffix(1);
  if (name.size() < 3 || name.size() > 7) return false;
  std::string lower(name);
  for (char& c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  if (IsOneOf(lower, {"con", "prn", "aux", "nul", "conin$", "conout$", "clock$"})) return true;
  std::string_view port = std::string_view(lower).substr(0, 3), number = std::string_view(lower).substr(3);
  if (port != "com" && port != "lpt") return false;
  // The superscripts count as digits.
  return (number.size() == 1 && number[0] >= '0' && number[0] <= '9') ||
         IsOneOf(number, {"\u00B9", "\u00B2", "\u00B3"});
}

using Components = std::vector<std::string>;

// Folded, so that they compare without regard to case.
Components Split(std::string_view path) {
  std::string folded = CurrentMachine().GetLocale().Fold(path);
  std::string_view rest = folded;
  Components components;
  while (!rest.empty()) {
    std::string_view name = TakeComponent(rest);
    if (!name.empty()) components.emplace_back(name);
  }
  return components;
}

// "progra~1" may be the short alias of "program files", and "pr1f2e~1" as well: up to six characters of the
// long name, or two and a checksum, then a number.
bool MayBeShortNameOf(std::string_view alias, std::string_view name) {
  alias = alias.substr(0, alias.find('.'));
  std::size_t tilde = alias.find('~');
  if (tilde == alias.npos || tilde == 0 || tilde + 1 == alias.size() || alias.size() > 8) return false;
  for (char c : alias.substr(tilde + 1))
    if (c < '0' || c > '9') return false;
  std::string squeezed;
  for (char c : name)
    if (c != ' ' && c != '.') squeezed += c;
  std::string_view front = alias.substr(0, tilde);
  if (squeezed.starts_with(front)) return true;
  auto isHex = [](char c) { return std::isxdigit(static_cast<unsigned char>(c)) != 0; };
  return front.size() == 6 && squeezed.starts_with(front.substr(0, 2)) &&
         std::all_of(front.begin() + 2, front.end(), isHex);
}

bool MayBeSameName(const std::string& a, const std::string& b) {
  return a == b || MayBeShortNameOf(a, b) || MayBeShortNameOf(b, a);
}

// `path` is `folder` itself or lies above it.
bool IsAtOrAbove(const Components& path, const Components& folder) {
  return path.size() <= folder.size() && std::equal(path.begin(), path.end(), folder.begin(), MayBeSameName);
}

}  // namespace

void SetInstallFolder(std::string_view path) {
  installFolder = WithoutBackslash(path);
}
const std::string& InstallFolder() {
  return installFolder;
}

std::vector<std::string> KnownFolderPaths() {
  std::vector<std::string> paths;
  for (int i = 0; i <= static_cast<int>(KnownFolder::CommonDesktop); ++i) {
    std::string path = CurrentMachine().Folder(static_cast<KnownFolder>(i));
    if (!path.empty()) paths.push_back(std::move(path));
  }
  return paths;
}

bool MayActOn(std::string_view path) {
  if (!IsPlainPath(path) || IsDriveRoot(path)) return false;
  std::string_view rest = path.substr(3);
  if (rest.find(':') != rest.npos) return false;  // a stream of a file
  while (!rest.empty())
    if (IsDeviceName(TakeComponent(rest))) return false;
  return true;
}

bool MayClearTree(std::string_view path) {
  path = WithoutBackslash(path);
  if (!MayActOn(path)) return false;
  Machine& machine = CurrentMachine();
  Components components = Split(path);

  // Folders that stay themselves, with all above them.
  std::string programFiles = machine.Folder(KnownFolder::ProgramFiles);
  std::vector<std::string> kept = {
      machine.Folder(KnownFolder::Windows),  machine.Folder(KnownFolder::System),  programFiles,
      machine.Folder(KnownFolder::Profiles), machine.Folder(KnownFolder::Profile), installFolder};
  if (!programFiles.empty()) kept.push_back(programFiles + " (x86)");
  for (const std::string& folder : kept)
    if (!folder.empty() && IsAtOrAbove(components, Split(folder))) return false;

  // Another user's profile.
  std::string profiles = machine.Folder(KnownFolder::Profiles);
  if (!profiles.empty() && IsAtOrAbove(Split(profiles), components) &&
      components.size() == Split(profiles).size() + 1)
    return false;

  // Folders that may be cleared, but not together with what lies beside them.
  for (const std::string& folder : KnownFolderPaths()) {
    Components known = Split(folder);
    if (components.size() < known.size() && IsAtOrAbove(components, known)) return false;
  }
  return true;
}

}  // namespace platform
