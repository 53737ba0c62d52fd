#include "platform/host/HostPaths.h"

#include <algorithm>
#include <cctype>
#include <climits>
#include <fcntl.h>
#include <filesystem>
#include <linux/openat2.h>
#include <sys/syscall.h>
#include <time.h>
#include <unistd.h>

#include "platform/PathText.h"
#include "platform/host/HostDirectory.h"
#include "platform/host/HostStatus.h"

namespace platform {

namespace {

constexpr std::int64_t kMillisecond = 1'000'000;
// For how long the folder used last is taken for the one of its path: as short as one operation, so that a
// folder that is moved away is noticed, and long enough for hundreds of neighbours.
constexpr std::int64_t kCacheLife = 2 * kMillisecond;
constexpr std::int64_t kIndexLife = 2000 * kMillisecond;
// File systems may tell two changes apart only if a clock tick lies between them.
constexpr std::int64_t kTick = 20 * kMillisecond;
constexpr std::size_t kIndexes = 8;

// The listing of a folder that other processes keep changing is made anew half of the time at most.
constexpr std::int64_t kCostlyIndex = 2 * kMillisecond;

constexpr int kStepFlags = O_PATH | O_DIRECTORY | O_CLOEXEC;

UniqueFd OpenWithin(int folder, const std::string& path, std::uint64_t resolve) {
  open_how how{};
  how.flags = kStepFlags;
  how.resolve = resolve;
  return UniqueFd(static_cast<int>(syscall(SYS_openat2, folder, path.c_str(), &how, sizeof how)));
}

std::int64_t TimeBy(clockid_t clock) {
  timespec time;
  clock_gettime(clock, &time);
  return time.tv_sec * 1'000'000'000LL + time.tv_nsec;
}

std::int64_t Now() {
  return TimeBy(CLOCK_MONOTONIC);
}

std::int64_t Nanoseconds(const timespec& time) {
  return time.tv_sec * 1'000'000'000LL + time.tv_nsec;
}

bool IsPlainName(std::string_view name) {
  return !name.empty() && name != "." && name != ".." && name.find('/') == name.npos &&
         name.find('\0') == name.npos;
}

std::uint64_t Hash(std::string_view text) {
  return std::hash<std::string_view>()(text);
}

}  // namespace

HostPaths::HostPaths(std::string drivesFolder, Locale& locale,
                     std::function<std::vector<std::string>()> knownFolders)
    : drivesFolder_(std::move(drivesFolder)), locale_(locale), knownFolders_(std::move(knownFolders)) {
  while (drivesFolder_.size() > 1 && drivesFolder_.ends_with('/')) drivesFolder_.pop_back();
  dataFolder_ = drivesFolder_.substr(0, drivesFolder_.rfind('/'));
}

UniqueFd HostPaths::OpenDrive(char letter) const {
  // A relative one would lie wherever the program was started.
  if (!drivesFolder_.starts_with('/') || dataFolder_.empty()) {
    errno = ENOENT;
    return {};
  }
  std::string path = drivesFolder_ + '/' + static_cast<char>(std::tolower(letter)) + ':';
  UniqueFd drive(open(path.c_str(), kStepFlags));
  if (!drive && errno == ENOENT) {
    path[path.size() - 2] = static_cast<char>(std::toupper(letter));
    drive = UniqueFd(open(path.c_str(), kStepFlags));
  }
  return drive;
}

// `link` is the beginning of `path` that ends at the link. The path must lead to a known folder and not only
// begin as the way to one does: what lies beside the folder, behind the same link, isn't meant.
bool HostPaths::MayPassLink(std::string_view link, std::string_view path, Reach reach) const {
  auto isAtOrAbove = [](std::string_view folder, std::string_view other) {
    return other.starts_with(folder) && (other.size() == folder.size() || other[folder.size()] == '\\');
  };
  std::string foldedLink = locale_.Fold(link), foldedPath = locale_.Fold(path);
  for (const std::string& folder : knownFolders_()) {
    std::string known = locale_.Fold(WithoutBackslash(folder));
    if (!isAtOrAbove(foldedLink, known)) continue;
    if (isAtOrAbove(known, foldedPath)) return true;
    if (reach == Reach::ToOrFromKnownFolder && isAtOrAbove(foldedPath, known)) return true;
  }
  return false;
}

bool HostPaths::StillHolds(std::int64_t found) {
  return Now() - found < kCacheLife;
}

// From `folder` into the component of the way's path that ends at `end`.
UniqueFd HostPaths::Step(int folder, Way& way, std::size_t end, Status& status) {
  std::size_t begin = way.path.rfind('\\', end - 1) + 1;
  std::string name(way.path.substr(begin, end - begin));
  UniqueFd next;
  for (bool otherCase = false;; otherCase = true) {
    next = UniqueFd(openat(folder, name.c_str(), kStepFlags | O_NOFOLLOW));
    if (next || errno != ENOENT || otherCase || !FindOtherCase(folder, name, name)) break;
  }
  int error = next ? 0 : errno;
  if (!way.names.empty()) way.names += '/';
  way.names += name;
  if (next) return next;
  status = StatusOf(error);
  if (error != ENOTDIR && error != ELOOP) return {};
  struct stat found;
  if (fstatat(folder, name.c_str(), &found, AT_SYMLINK_NOFOLLOW) != 0 || !S_ISLNK(found.st_mode)) return {};
  if (!way.throughLinks && !MayPassLink(way.path.substr(0, end), way.path, Reach::ToOrFromKnownFolder)) {
    status = Status::Refused;
    return {};
  }
  way.links.push_back(end);
  next = OpenWithin(way.drive, way.names, RESOLVE_IN_ROOT | RESOLVE_NO_MAGICLINKS);
  if (!next) status = errno == ELOOP ? Status::Missing : StatusOf(errno);
  return next;
}

// The whole way in one call, which refuses links; nothing where it isn't as simple as that: a link, a name in
// other capitals, a path beyond the system's limit.
UniqueFd HostPaths::OpenStraight(const Way& way) {
  if (way.end <= 3) return {};
  std::string relative(way.path.substr(3, way.end - 3));
  std::replace(relative.begin(), relative.end(), '\\', '/');
  return OpenWithin(way.drive, relative, RESOLVE_NO_SYMLINKS | RESOLVE_BENEATH);
}

UniqueFd HostPaths::OpenListed(std::string_view path, OpenedDrive& drive) const {
  path = WithoutBackslash(path);
  if (!IsPlainPath(path)) return {};
  if (IsDriveRoot(path)) return OpenDrive(path[0]);
  if (drive.letter != path[0]) drive = {path[0], OpenDrive(path[0])};
  return drive.folder ? OpenStraight(Way{.path = path, .end = path.size(), .drive = drive.folder.Get()})
                      : UniqueFd();
}

UniqueFd HostPaths::TakeShared(Way& way, std::size_t& begin) {
  LongWay kept = std::move(longWay_);
  longWay_ = {};
  std::string_view path = way.path.substr(0, way.end);
  if (!kept.folder || Now() - kept.at >= kept.life) return {};
  auto isShared = [&](std::size_t end) {
    return end <= path.size() && (end == path.size() || path[end] == '\\') &&
           path.compare(0, end, kept.path, 0, end) == 0;
  };
  struct stat found;
  while (!kept.components.empty() && !isShared(kept.components.back().end)) {
    kept.components.pop_back();
    kept.folder = UniqueFd(openat(kept.folder.Get(), "..", kStepFlags));
    if (kept.components.empty() || !kept.folder || fstat(kept.folder.Get(), &found) != 0 ||
        IdentityOf(found) != kept.components.back().identity)
      return {};
  }
  if (kept.components.empty()) return {};
  begin = kept.components.back().end + 1;
  way.names = kept.names.substr(0, kept.components.back().namesEnd);
  way.shared = true;
  longWay_ = std::move(kept);
  return std::move(longWay_.folder);
}

void HostPaths::Keep(const Way& way, int folder, std::int64_t since) {
  std::int64_t now = Now();
  longWay_.path = way.path.substr(0, way.end);
  longWay_.names = way.names;
  longWay_.folder = UniqueFd(openat(folder, ".", kStepFlags));
  // What was taken from the kept way is no younger than it was.
  if (longWay_.at == 0) {
    longWay_.at = since;
    longWay_.life = std::max(kCacheLife, 2 * (now - since));
  }
}

UniqueFd HostPaths::Follow(Way& way, Status& status) {
  UniqueFd drive = OpenDrive(way.path[0]);
  if (!drive) {
    status = StatusOf(errno);
    return {};
  }
  way.drive = drive.Get();
  status = Status::Done;
  bool isLong = way.end >= PATH_MAX;
  if (!isLong)
    if (UniqueFd straight = OpenStraight(way); straight) return straight;
  std::int64_t since = Now();
  std::size_t begin = 3;
  UniqueFd folder = isLong ? TakeShared(way, begin) : UniqueFd();
  if (!folder) {
    longWay_ = {};
    folder = UniqueFd(openat(drive.Get(), ".", kStepFlags));
  }
  while (begin < way.end && folder) {
    std::size_t end = std::min(way.path.find('\\', begin), way.end);
    folder = Step(folder.Get(), way, end, status);
    begin = end + 1;
    struct stat found;
    if (isLong && folder && fstat(folder.Get(), &found) == 0)
      longWay_.components.push_back({end, way.names.size(), IdentityOf(found)});
  }
  if (folder && isLong && way.links.empty())
    Keep(way, folder.Get(), since);
  else
    longWay_ = {};
  return folder;
}

HostPlace HostPaths::Find(std::string_view path) {
  HostPlace place;
  std::int64_t now = askedAt_ = Now();
  std::size_t last = path.rfind('\\');
  if (cached_ && last != path.npos && path.substr(0, last) == cachedPath_ && now - cachedAt_ < kCacheLife &&
      IsPlainName(path.substr(last + 1))) {
    place.status = Status::Done;
    place.folder = cached_;
    place.fromCache = true;
    place.name = path.substr(last + 1);
    return place;
  }
  if (!IsPlainPath(path)) {
    place.malformed = true;
    return place;
  }
  place.isRoot = IsDriveRoot(path);
  std::string_view parent = path.substr(0, last);
  auto folder = std::make_shared<HostFolder>();
  Way way{.path = path, .end = parent.size()};
  folder->fd = Follow(way, place.status);
  place.fromCache = way.shared;
  if (!folder->fd) return place;
  struct stat found, own;
  if (fstat(folder->fd.Get(), &found) != 0) {
    place.status = StatusOf(errno);
    return place;
  }
  folder->device = found.st_dev;
  folder->inode = found.st_ino;
  folder->isOwn =
      stat(dataFolder_.c_str(), &own) == 0 && own.st_dev == found.st_dev && own.st_ino == found.st_ino;
  place.name = place.isRoot ? "." : path.substr(last + 1);
  place.folder = folder;
  place.status = Status::Done;
  // A link that this path may pass isn't open to each of its neighbours, unless they all lie in the known
  // folder.
  for (std::size_t end : way.links)
    if (!MayPassLink(path.substr(0, end), parent, Reach::FromKnownFolder)) return place;
  cached_ = std::move(folder);
  cachedPath_ = parent;
  cachedAt_ = now;
  return place;
}

UniqueFd HostPaths::OpenFolder(std::string_view path, bool throughLinks, Status& status) {
  status = Status::Refused;
  if (!IsPlainPath(path)) return {};
  if (throughLinks || IsDriveRoot(path)) {
    Way way{.path = path, .end = path.size(), .throughLinks = throughLinks};
    return Follow(way, status);
  }
  // The way may lead through the links of a known folder; the last step may not.
  HostPlace place = Find(path);
  status = place.status;
  if (status != Status::Done) return {};
  do {
    UniqueFd folder(openat(place.Fd(), place.name.c_str(), kStepFlags | O_NOFOLLOW));
    if (folder) return folder;
    status = StatusOf(errno);
  } while (errno == ENOENT && TakeOtherCase(place));
  struct stat found;
  if (status == Status::Missing &&
      fstatat(place.Fd(), place.name.c_str(), &found, AT_SYMLINK_NOFOLLOW) == 0 && S_ISLNK(found.st_mode))
    status = Status::Refused;
  return {};
}

bool HostPaths::TakeOtherCase(HostPlace& place) {
  std::string found;
  if (place.isRoot || !FindOtherCase(place.Fd(), place.name, found) || found == place.name) return false;
  place.name = std::move(found);
  return true;
}

bool HostPaths::FindOtherCase(int folder, std::string_view name, std::string& found) {
  Index* index = IndexOf(folder);
  if (!index) return false;
  std::string folded = locale_.Fold(name);
  std::uint32_t first = UINT32_MAX;
  auto [begin, end] = index->places.equal_range(Hash(folded));
  for (auto it = begin; it != end; ++it) {
    const char* candidate = index->names.c_str() + it->second;
    struct stat there;
    if (it->second < first && locale_.Fold(candidate) == folded &&
        fstatat(folder, candidate, &there, AT_SYMLINK_NOFOLLOW) == 0)
      first = it->second;
  }
  if (first == UINT32_MAX) return false;
  found = index->names.c_str() + first;
  return true;
}

bool HostPaths::StampOf(int folder, Stamp& stamp) {
  struct stat found;
  if (fstat(folder, &found) != 0) return false;
  stamp = {found.st_dev, found.st_ino, Nanoseconds(found.st_mtim), Nanoseconds(found.st_ctim)};
  return true;
}

void HostPaths::AddTo(Index& index, std::string_view name) {
  index.places.emplace(Hash(locale_.Fold(name)), static_cast<std::uint32_t>(index.names.size()));
  index.names.append(name).push_back('\0');
}

// Listing a folder for each name that isn't in it would take forever in a folder of a hundred thousand, so
// the listing is kept as long as the folder's times tell that it hasn't changed.
HostPaths::Index* HostPaths::IndexOf(int folder) {
  Stamp stamp;
  if (!StampOf(folder, stamp)) return nullptr;
  std::int64_t now = Now();
  std::unique_ptr<Index>* slot = nullptr;
  for (auto& index : indexes_) {
    if (index->stamp.device != stamp.device || index->stamp.inode != stamp.inode) continue;
    if (index->settled && index->stamp == stamp && now - index->built < kIndexLife) return index.get();
    if (index->cost > kCostlyIndex && now - index->built < 2 * index->cost) return index.get();
    slot = &index;
  }
  if (!slot && indexes_.size() < kIndexes) slot = &indexes_.emplace_back();
  if (!slot) slot = &indexes_[nextIndex_++ % kIndexes];

  std::int64_t worked = TimeBy(CLOCK_THREAD_CPUTIME_ID);
  *slot = std::make_unique<Index>();
  Index& index = **slot;
  index.stamp = stamp;
  index.built = now;
  index.settled =
      stamp == ownStamp_ || TimeBy(CLOCK_REALTIME) - std::max(stamp.modified, stamp.changed) > kTick;
  UniqueFd readable(openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (readable) {
    std::vector<std::uint64_t> buffer(4096);
    DirectoryReader reader(readable.Get(), reinterpret_cast<char*>(buffer.data()), buffer.size() * 8);
    while (const char* name = reader.Next()) AddTo(index, name);
  }
  index.cost = TimeBy(CLOCK_THREAD_CPUTIME_ID) - worked;
  return &index;
}

void HostPaths::Changed(const HostFolder& folder, std::string_view made) {
  for (auto& index : indexes_) {
    if (index->stamp.device != folder.device || index->stamp.inode != folder.inode) continue;
    // A name that is gone does no harm: what the listing offers is looked at before it is taken.
    if (!made.empty()) AddTo(*index, made);
    if (StampOf(folder.fd.Get(), index->stamp)) ownStamp_ = index->stamp;
  }
}

std::string HostPaths::DriveLetters() {
  std::string letters;
  for (char letter = 'A'; letter <= 'Z'; ++letter)
    if (OpenDrive(letter)) letters += letter;
  return letters;
}

std::string HostPaths::ToNative(std::string_view path) {
  path = WithoutBackslash(path);
  if (!IsPlainPath(path)) return {};
  UniqueFd folder = OpenDrive(path[0]);
  if (!folder) return {};
  std::string native = drivesFolder_ + '/' + static_cast<char>(std::tolower(path[0])) + ':';
  if (faccessat(AT_FDCWD, native.c_str(), F_OK, AT_SYMLINK_NOFOLLOW) != 0)
    native[native.size() - 2] = static_cast<char>(std::toupper(path[0]));
  for (std::string_view rest = path.substr(3); !rest.empty();) {
    std::string name(TakeComponent(rest));
    struct stat found;
    if (folder && fstatat(folder.Get(), name.c_str(), &found, AT_SYMLINK_NOFOLLOW) != 0 && errno == ENOENT)
      FindOtherCase(folder.Get(), name, name);
    native += '/' + name;
    if (folder && !rest.empty()) folder = UniqueFd(openat(folder.Get(), name.c_str(), kStepFlags));
  }
  return native;
}

std::string HostPaths::FromNative(std::string_view native) {
  if (!native.starts_with('/') || native.find('\\') != native.npos) return {};
  auto clean = [](std::filesystem::path path) {
    std::string text = path.lexically_normal().string();
    while (text.size() > 1 && text.ends_with('/')) text.pop_back();
    return text;
  };
  auto real = [](const std::string& path) {
    std::error_code error;
    auto resolved = std::filesystem::canonical(path, error);
    return error ? std::string() : resolved.string();
  };
  std::string plain = clean(std::filesystem::path(native));
  // A picker may give the path by the drive's own name, or by the place that the drive is a link to.
  std::string best;
  std::size_t bestLength = 0;
  for (char letter : DriveLetters()) {
    std::string entry = drivesFolder_ + '/' + static_cast<char>(std::tolower(letter)) + ':';
    for (const std::string& root : {entry, real(entry)}) {
      if (root.empty() || root.size() < bestLength || !plain.starts_with(root)) continue;
      bool whole = root == "/";
      if (!whole && plain.size() > root.size() && plain[root.size()] != '/') continue;
      std::string rest =
          plain.size() > root.size() ? plain.substr(root.size() + (whole ? 0 : 1)) : std::string();
      for (char& c : rest)
        if (c == '/') c = '\\';
      best = std::string(1, letter) + ":\\" + rest;
      bestLength = root.size();
    }
  }
  return best;
}

}  // namespace platform
