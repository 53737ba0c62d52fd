#include "platform/host/HostRecycleBin.h"

#include <chrono>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "platform/Desktop.h"
#include "platform/PathText.h"
#include "platform/RandomName.h"
#include "platform/Utf.h"
#include "platform/host/HostAttributes.h"
#include "platform/host/HostFile.h"
#include "platform/host/HostStatus.h"

namespace platform {

namespace {

constexpr std::string_view kBin = "$Recycle.Bin";
// 100 ns steps from 1601 to 1970.
constexpr std::int64_t kEpoch = 116'444'736'000'000'000;

std::string UserFolder() {
  return "S-1-22-1-" + std::to_string(getuid());
}

// A byte that belongs to no character becomes half of a surrogate pair.
std::u16string ToUtf16(std::string_view text) {
  std::u16string units;
  while (!text.empty()) {
    Character character = DecodeUtf8(text);
    if (character.length == 0) character = {0xDC00u + static_cast<unsigned char>(text[0]), 1};
    AppendUtf16(character.value, units);
    text.remove_prefix(character.length);
  }
  return units;
}

void Put(std::vector<std::byte>& bytes, std::uint64_t number, int count) {
  for (int i = 0; i < count; ++i) bytes.push_back(static_cast<std::byte>(number >> (8 * i)));
}

std::vector<std::byte> InfoOf(std::string_view path, std::uint64_t size) {
  auto now = std::chrono::system_clock::now().time_since_epoch();
  std::int64_t removed = std::chrono::duration_cast<std::chrono::nanoseconds>(now).count() / 100 + kEpoch;
  std::u16string units = ToUtf16(path);
  std::vector<std::byte> bytes;
  Put(bytes, 2, 8);
  Put(bytes, size, 8);
  Put(bytes, static_cast<std::uint64_t>(removed), 8);
  Put(bytes, units.size() + 1, 4);
  for (char16_t unit : units) Put(bytes, unit, 2);
  Put(bytes, 0, 2);
  return bytes;
}

std::string ExtensionOf(std::string_view path) {
  std::string_view name = path.substr(path.rfind('\\') + 1);
  std::size_t dot = name.rfind('.');
  // A name may be as long as a name can be, and its extension nearly so.
  return dot == name.npos || name.size() - dot > 100 ? std::string() : std::string(name.substr(dot));
}

bool LiesInBin(std::string_view path) {
  std::string_view first = path.substr(3, kBin.size() + 1);
  if (first.size() <= kBin.size() || first.back() != '\\') return false;
  for (std::size_t i = 0; i < kBin.size(); ++i)
    if ((first[i] | 0x20) != (kBin[i] | 0x20)) return false;
  return true;
}

class Names : public TreeVisitor {
 public:
  bool Folder(std::string_view) override { return true; }
  bool Entry(std::string_view name, EntryKind kind, std::uint64_t) override {
    bool isPair = name.size() >= 8 && (name.starts_with("$I") || name.starts_with("$R"));
    if (isPair && (kind == EntryKind::File || IsLink(kind))) found.emplace_back(name);
    return true;
  }
  std::vector<std::string> found;
};

}  // namespace

UniqueFd HostRecycleBin::OpenFolder(const std::string& root, bool make, Status& status) {
  UniqueFd drive = files_.OpenOrMakeFolder(root, {}, status);
  struct stat found;
  if (!drive) return {};
  if (fstat(drive.Get(), &found) != 0) {
    status = StatusOf(errno);
    return {};
  }
  // Where everybody may make files, everybody may have a bin.
  mode_t rights = found.st_mode & S_IWOTH ? 01777 : 0755;
  std::string path = root + std::string(kBin);
  UniqueFd bin = files_.OpenOrMakeFolder(path, {}, status);
  if (!bin && status == Status::Missing && make) {
    bin = files_.OpenOrMakeFolder(path, rights, status);
    if (bin && fstat(bin.Get(), &found) == 0) WriteAttributes(bin.Get(), found, kHidden | kSystem);
  }
  if (!bin) return {};
  auto keepsOthersOut = [](const struct stat& bin) {
    return (bin.st_mode & (S_IWGRP | S_IWOTH)) == 0 || (bin.st_mode & S_ISVTX);
  };
  auto isOwn = [&found](uid_t other) { return found.st_uid == geteuid() || found.st_uid == other; };
  if (fstat(bin.Get(), &found) != 0 || !isOwn(0)) status = Status::Refused;
  if (status == Status::Done && !keepsOthersOut(found)) {
    bool narrowed = fchmod(bin.Get(), rights) == 0 && fstat(bin.Get(), &found) == 0 && keepsOthersOut(found);
    if (!narrowed) status = Status::Refused;
  }
  if (status != Status::Done) return {};
  std::string name = UserFolder();
  if (make && mkdirat(bin.Get(), name.c_str(), 0700) != 0 && errno != EEXIST) {
    status = StatusOf(errno);
    return {};
  }
  UniqueFd folder(openat(bin.Get(), name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  if (!folder || fstat(folder.Get(), &found) != 0)
    status = errno == ENOENT ? Status::Missing : Status::Refused;
  else if (!isOwn(geteuid()))
    status = Status::Refused;
  else if ((found.st_mode & 07777) != 0700 &&
           (fchmod(folder.Get(), 0700) != 0 || fstat(folder.Get(), &found) != 0 || (found.st_mode & 077)))
    status = Status::Refused;
  return status == Status::Done ? std::move(folder) : UniqueFd();
}

Status HostRecycleBin::Move(std::string_view path) {
  if (!IsPlainPath(path) || IsDriveRoot(path) || LiesInBin(path)) return Status::Refused;
  EntryInfo info = files_.Look(path);
  if (info.kind == EntryKind::Missing) return Status::Missing;
  if (info.kind != EntryKind::File && !IsLink(info.kind)) return Status::Refused;
  Status status = files_.TestLock(path);
  if (status != Status::Done) return status;
  UniqueFd folder = OpenFolder(std::string(path.substr(0, 3)), true, status);
  return folder ? MoveInto(folder.Get(), path, info) : status;
}

bool HostRecycleBin::IsThereFor(std::string_view path) {
  if (!IsPlainPath(path) || IsDriveRoot(path) || LiesInBin(path)) return false;
  Status status;
  UniqueFd bin = OpenFolder(std::string(path.substr(0, 3)), true, status);
  struct stat found;
  if (!bin || fstat(bin.Get(), &found) != 0) return false;
  std::optional<Identity> file = files_.Look(path).identity;
  return !file || file->volume == found.st_dev;
}

Status HostRecycleBin::MoveInto(int folder, std::string_view path, const EntryInfo& info) {
  Status status = Status::Exists;
  for (int attempt = 0; attempt < 16 && status == Status::Exists; ++attempt) {
    std::string ending = RandomName(6) + ExtensionOf(path), infoName = "$I" + ending;
    UniqueFd opened(
        openat(folder, infoName.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
    status = opened ? Status::Done : StatusOf(errno);
    if (!opened) continue;
    // The file is never in the bin without the knowledge of where it was.
    HostFile file(std::move(opened));
    status = file.Write(0, InfoOf(path, info.size));
    if (status == Status::Done) status = file.Flush();
    if (status == Status::Done) status = files_.MoveInto(path, folder, "$R" + ending);
    if (status != Status::Done) unlinkat(folder, infoName.c_str(), 0);
  }
  return status;
}

Status HostRecycleBin::EmptyFolder(const std::string& folder, const std::function<bool()>& stop) {
  Names names;
  Status result = files_.Walk(folder, {.recursive = false}, names);
  if (result == Status::Missing) return Status::Done;
  auto note = [&result](Status status) {
    if (result == Status::Done && status != Status::Missing) result = status;
    return status == Status::Done || status == Status::Missing;
  };
  auto remove = [&](const std::string& path) { return note(files_.RemoveFile(path, true)); };
  // The file first: as long as it is there, so is the knowledge of where it was.
  for (const std::string& name : names.found) {
    CurrentDesktop().Breathe();
    if (stop && stop()) return result;
    if (name[1] == 'R' && remove(folder + name)) remove(folder + "$I" + name.substr(2));
  }
  for (const std::string& name : names.found)
    if (name[1] == 'I' && files_.Look(folder + "$R" + name.substr(2)).kind == EntryKind::Missing)
      remove(folder + name);
  return result;
}

Status HostRecycleBin::Empty(const std::function<bool()>& stop) {
  Status result = Status::Done;
  for (char letter : files_.DriveLetters()) {
    std::string root = std::string(1, letter) + ":\\";
    Status status;
    if (OpenFolder(root, false, status))
      status = EmptyFolder(root + std::string(kBin) + '\\' + UserFolder() + '\\', stop);
    if (result == Status::Done && status != Status::Missing) result = status;
  }
  return result;
}

}  // namespace platform
