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

using Components = std::vector<std::string>;

// Folded, so that they compare without regard to case, and without the dots and blanks at a name's end that
// many functions of Windows pass over.
Components Split(std::string_view path) {
  std::string folded = CurrentMachine().GetLocale().Fold(path);
  std::string_view rest = folded;
  Components components;
  while (!rest.empty()) {
    std::string_view name = TakeComponent(rest);
    std::size_t last = name.find_last_not_of(". ");
    if (last != name.npos) components.emplace_back(name.substr(0, last + 1));
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

bool MayActOn(std::string_view path) {
  if (!IsPlainPath(path) || IsDriveRoot(path)) return false;
  if (!CurrentMachine().Files().HasSpecialNames()) return true;
  std::string_view rest = path.substr(3);
  if (rest.find(':') != rest.npos) return false;  // a stream of a file
  while (!rest.empty())
    if (IsDeviceName(TakeComponent(rest))) return false;
  return true;
}

namespace {

constexpr std::string_view kNoPath = "it is no folder's full path, or a whole drive";
constexpr std::string_view kWindows = "Windows doesn't start without it";
constexpr std::string_view kPrograms = "programs are installed there";
constexpr std::string_view kProfile = "it is a user's whole profile, or holds profiles";
constexpr std::string_view kItself = "the program itself lies there";
constexpr std::string_view kBackups = "the backups lie there";
constexpr std::string_view kHoldsOthers = "it holds folders that the system or its users need";
constexpr std::string_view kUsersOwn = "users keep their own files there";

constexpr std::string_view kOwnNames[] = {"Desktop", "Documents", "Downloads", "Pictures", "Music", "Videos"};
// In the Windows folder, where Windows documents them to lie.
constexpr std::string_view kSystemNames[] = {"System32",
                                             "System32\\drivers",
                                             "System32\\DriverStore",
                                             "System32\\config",
                                             "SysWOW64",
                                             "WinSxS",
                                             "Boot",
                                             "Fonts",
                                             "assembly"};

// A folder that isn't cleared, nor any above it.
struct Kept {
  std::string path;
  ClearingAnswer answer;
  bool itself = true;  // False: only those above it aren't
};

class KeptList {
 public:
  KeptList() {
    Machine& machine = CurrentMachine();
    for (KnownFolder folder : {KnownFolder::Windows, KnownFolder::System}) {
      std::string path = machine.Folder(folder);
      Refuse(path, kWindows);
      for (std::string_view name : kSystemNames) Refuse(Below(path, name), kWindows);
      if (!path.empty()) Refuse(path.substr(0, 3) + "Boot", kWindows);
    }
    std::string programFiles = machine.Folder(KnownFolder::ProgramFiles);
    Refuse(programFiles, kPrograms);
    if (!programFiles.empty()) Refuse(programFiles + " (x86)", kPrograms);
    Refuse(installFolder, kItself);
    Refuse(Below(installFolder, "Backup"), kBackups);
    std::string profiles = machine.Folder(KnownFolder::Profiles);
    Refuse(profiles, kProfile);
    AddProfile(machine.Folder(KnownFolder::Profile));
    AddProfile(Below(profiles, "Public"));
    for (const std::string& profile : machine.ProfileFolders()) AddProfile(profile);
    for (const std::string& folder : machine.UsersOwnFolders()) AddOwn(folder);
    for (KnownFolder folder : {KnownFolder::Desktop, KnownFolder::CommonDesktop})
      AddOwn(machine.Folder(folder));
    // May be cleared, but not together with what lies beside them.
    for (std::string& folder : KnownFolderPaths())
      all_.push_back({std::move(folder), {Clearing::Refused, kHoldsOthers}, false});
  }

  const std::vector<Kept>& All() const { return all_; }

 private:
  static std::string Below(const std::string& folder, std::string_view name) {
    if (folder.empty()) return {};
    std::string path(WithoutBackslash(folder));
    if (!path.ends_with('\\')) path += '\\';
    return path.append(name);
  }
  void Refuse(std::string path, std::string_view reason) {
    if (!path.empty()) all_.push_back({std::move(path), {Clearing::Refused, reason}});
  }
  void AddOwn(std::string path) {
    if (!path.empty()) all_.push_back({std::move(path), {Clearing::UsersOwn, kUsersOwn}});
  }
  void AddProfile(const std::string& profile) {
    Refuse(profile, kProfile);
    for (std::string_view name : kOwnNames) AddOwn(Below(profile, name));
  }

  std::vector<Kept> all_;
};

// The stricter of two answers; of two that are equally strict the first.
void Tighten(ClearingAnswer& answer, const ClearingAnswer& other) {
  if (other.clearing > answer.clearing) answer = other;
}

bool IsKeptByName(const Components& path, const Kept& kept) {
  Components folder = Split(kept.path);
  return (kept.itself || path.size() < folder.size()) && IsAtOrAbove(path, folder);
}

bool IsKeptByIdentity(const Identity& folder, const Kept& kept) {
  std::vector<Identity> way = CurrentMachine().Files().Ancestry(kept.path);
  std::size_t first = kept.itself ? 0 : 1;
  return way.size() > first &&
         std::find(way.begin() + static_cast<std::ptrdiff_t>(first), way.end(), folder) != way.end();
}

// By what lies in it, or beside it: another user's, or one of another Windows on this computer.
ClearingAnswer JudgeByNeighbours(std::string_view path, const std::vector<Identity>& way) {
  Machine& machine = CurrentMachine();
  std::string profiles = machine.Folder(KnownFolder::Profiles);
  std::vector<Identity> all = profiles.empty() ? std::vector<Identity>() : machine.Files().Ancestry(profiles);
  bool isProfile = way.size() > 1 && !all.empty() && way[1] == all[0];
  if (!isProfile && !profiles.empty()) {
    Components components = Split(path), above = Split(profiles);
    isProfile = components.size() == above.size() + 1 && IsAtOrAbove(above, components);
  }
  auto holds = [&](std::string_view name) {
    return machine.Files().LookBriefly(std::string(path).append(name)).kind == EntryKind::File;
  };
  if (isProfile || holds("\\NTUSER.DAT")) return {Clearing::Refused, kProfile};
  if (holds("\\System32\\config\\SYSTEM")) return {Clearing::Refused, kWindows};
  std::string_view parent = path.substr(0, path.rfind('\\'));
  Components name = Split(path);
  bool isOwnName = std::any_of(std::begin(kOwnNames), std::end(kOwnNames),
                               [&](std::string_view own) { return Split(own) == Components{name.back()}; });
  bool inProfile = way.size() > 2 && !all.empty() && way[2] == all[0];
  if (!isOwnName) return {};
  if (!inProfile && parent.size() > 3)
    inProfile = machine.Files().LookBriefly(std::string(parent) + "\\NTUSER.DAT").kind == EntryKind::File;
  return inProfile ? ClearingAnswer{Clearing::UsersOwn, kUsersOwn} : ClearingAnswer();
}

}  // namespace

std::vector<Identity> KeptFolders() {
  std::vector<Identity> folders;
  const KeptList list;
  for (const Kept& kept : list.All()) {
    if (!kept.itself || kept.answer.clearing != Clearing::Refused) continue;
    std::vector<Identity> way = CurrentMachine().Files().Ancestry(kept.path);
    if (!way.empty()) folders.push_back(way[0]);
  }
  return folders;
}

ClearingAnswer MayClear(std::string_view path) {
  path = WithoutBackslash(path);
  if (!MayActOn(path)) return {Clearing::Refused, kNoPath};
  Components components = Split(path);
  std::vector<Identity> way = CurrentMachine().Files().Ancestry(path);
  ClearingAnswer answer;
  const KeptList list;
  for (const Kept& kept : list.All()) {
    if (answer.clearing >= kept.answer.clearing) continue;
    if (IsKeptByName(components, kept) || (!way.empty() && IsKeptByIdentity(way[0], kept)))
      answer = kept.answer;
  }
  if (answer.clearing != Clearing::Refused) Tighten(answer, JudgeByNeighbours(path, way));
  return answer;
}

bool MayClearTree(std::string_view path) {
  return MayClear(path).clearing != Clearing::Refused;
}

}  // namespace platform
