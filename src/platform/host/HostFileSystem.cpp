#include "platform/host/HostFileSystem.h"

#include <cctype>
#include <cstdio>
#include <fcntl.h>
#include <set>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include "platform/PathText.h"
#include "platform/host/HostAttributes.h"
#include "platform/host/HostDirectory.h"
#include "platform/host/HostFile.h"
#include "platform/host/HostHeldFile.h"
#include "platform/host/HostLocks.h"
#include "platform/host/HostPrivacy.h"
#include "platform/host/HostSizesAhead.h"
#include "platform/host/HostStatus.h"
#include "platform/host/HostWalk.h"

namespace platform {

namespace {

constexpr int kLookFlags = AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT;
// O_NONBLOCK, so that nothing waits for the other end of a pipe or for the holder of a lease.
constexpr int kOpenFlags = O_NOFOLLOW | O_CLOEXEC | O_NOCTTY | O_NONBLOCK;

Moment MomentOf(const statx_timestamp& time) {
  return time.tv_sec * 1'000'000'000LL + time.tv_nsec;
}

timespec TimeOf(std::optional<Moment> moment) {
  if (!moment) return {0, UTIME_OMIT};
  Moment seconds = *moment / 1'000'000'000, rest = *moment % 1'000'000'000;
  if (rest < 0) {
    --seconds;
    rest += 1'000'000'000;
  }
  return {static_cast<time_t>(seconds), static_cast<long>(rest)};
}

bool LeadsToFolder(const HostPlace& place) {
  return platform::LeadsToFolder(place.Fd(), place.name.c_str());
}

EntryKind KindOf(const HostPlace& place, mode_t mode) {
  if (S_ISREG(mode)) return EntryKind::File;
  if (S_ISDIR(mode)) return EntryKind::Folder;
  if (!S_ISLNK(mode)) return EntryKind::Unreadable;
  return LeadsToFolder(place) ? EntryKind::FolderLink : EntryKind::FileLink;
}

bool IsSame(const struct stat& a, const struct stat& b) {
  return a.st_ino == b.st_ino && a.st_dev == b.st_dev;
}

// What `found` tells of still has the place's name.
bool StillThere(const HostPlace& place, const struct stat& found) {
  struct stat now;
  return fstatat(place.Fd(), place.name.c_str(), &now, kLookFlags) == 0 && IsSame(now, found);
}

// Done, Locked, or Failed where something else has taken the place since `found` was.
Status TestLockOf(const HostPlace& place, const struct stat& found) {
  if (place.folder->isOwn) return Status::Locked;
  UniqueFd file(openat(place.Fd(), place.name.c_str(), O_RDONLY | kOpenFlags));
  if (!file) {
    bool locked = errno == EWOULDBLOCK || IsListedAsLocked(found.st_dev, found.st_ino);
    if (locked) return Status::Locked;
    return StillThere(place, found) ? Status::Done : Status::Failed;
  }
  struct stat opened;
  if (fstat(file.Get(), &opened) != 0 || !IsSame(opened, found)) return Status::Failed;
  return IsLockedByAnother(std::move(file)) ? Status::Locked : Status::Done;
}

}  // namespace

HostFileSystem::HostFileSystem(std::string drivesFolder, Locale& locale,
                               std::function<std::vector<std::string>()> knownFolders)
    : paths_(std::move(drivesFolder), locale, std::move(knownFolders)) {}

template <typename Stat>
Status HostFileSystem::Locate(std::string_view path, HostPlace& place, Stat&& stat) {
  for (;;) {
    place = paths_.Find(path);
    if (place.status != Status::Done) return place.status;
    if (stat() == 0) return Status::Done;
    if (errno != ENOENT || !place.fromCache) break;
    // The folder may have been removed and made anew since it was found.
    paths_.ForgetFolders();
  }
  while (errno == ENOENT) {
    if (!paths_.TakeOtherCase(place)) return Status::Missing;
    if (stat() == 0) return Status::Done;
  }
  return StatusOf(errno);
}

Status HostFileSystem::Find(std::string_view path, HostPlace& place, struct stat& found) {
  return Locate(path, place, [&] { return fstatat(place.Fd(), place.name.c_str(), &found, kLookFlags); });
}

EntryInfo HostFileSystem::NothingSeen(const HostPlace& place, Status status) {
  EntryInfo info;
  // What lies behind a link may be there; all else that is refused can't be.
  if (status != Status::Missing && !place.malformed) info.kind = EntryKind::Unreadable;
  return info;
}

EntryInfo HostFileSystem::Look(std::string_view path) {
  HostPlace place;
  struct statx found;
  Status status = Locate(path, place, [&] {
    return statx(place.Fd(), place.name.c_str(), kLookFlags, STATX_BASIC_STATS | STATX_BTIME, &found);
  });
  if (status != Status::Done) return NothingSeen(place, status);
  EntryInfo info;
  info.names = found.stx_nlink;
  info.accessed = MomentOf(found.stx_atime);
  info.modified = MomentOf(found.stx_mtime);
  info.created = found.stx_mask & STATX_BTIME ? MomentOf(found.stx_btime) : info.modified;
  info.kind = KindOf(place, found.stx_mode);
  info.identity = Identity{makedev(found.stx_dev_major, found.stx_dev_minor), {found.stx_ino, 0}};
  if (info.kind == EntryKind::File) info.size = found.stx_size;
  info.permissions = found.stx_mode & 0777;
  if (info.kind == EntryKind::FolderLink) info.attributes = kFolder;
  if (info.kind == EntryKind::File || info.kind == EntryKind::Folder)
    info.attributes = ReadAttributes(place, found.stx_mode);
  return info;
}

EntryInfo HostFileSystem::LookBriefly(std::string_view path) {
  seen_.path.clear();
  Status status = Find(path, seen_.place, seen_.found);
  if (status != Status::Done) return NothingSeen(seen_.place, status);
  EntryInfo info;
  info.names = static_cast<std::uint32_t>(seen_.found.st_nlink);
  info.kind = KindOf(seen_.place, seen_.found.st_mode);
  if (info.kind == EntryKind::FolderLink) info.attributes = kFolder;
  if ((info.kind == EntryKind::File || info.kind == EntryKind::Folder) && IsReadOnly(seen_.found.st_mode))
    info.attributes = kReadOnly;
  if (info.kind != EntryKind::File) return info;
  info.size = static_cast<std::uint64_t>(seen_.found.st_size);
  seen_.path = path;
  seen_.at = paths_.AskedAt();
  return info;
}

Status HostFileSystem::RemoveFile(std::string_view path, bool readOnlyToo) {
  bool isSeen = !path.empty() && path == seen_.path && paths_.StillHolds(seen_.at);
  seen_.path.clear();
  if (isSeen) {
    Status status = RemoveFileAt(seen_.place, seen_.found, readOnlyToo);
    if (status != Status::Missing && status != Status::Failed) return status;
    // Something else may have come to the path since.
    paths_.ForgetFolders();
  }
  HostPlace place;
  struct stat found;
  Status status = Find(path, place, found);
  return status == Status::Done ? RemoveFileAt(place, found, readOnlyToo) : status;
}

// The system removes names, not files: what is looked at last, right before, is still the file that was
// meant.
Status HostFileSystem::RemoveFileAt(const HostPlace& place, const struct stat& found, bool readOnlyToo) {
  if (!S_ISREG(found.st_mode) && !S_ISLNK(found.st_mode)) return Status::Refused;
  if (S_ISREG(found.st_mode)) {
    Status status = TestLockOf(place, found);
    // Gone by now: a lock is told by the file's number, which another file may have got.
    if ((status == Status::Failed || status == Status::Locked) && !StillThere(place, found))
      return Status::Missing;
    if (status != Status::Done) return status;
    if (IsReadOnly(found.st_mode) && !readOnlyToo) return Status::Denied;
  }
  if (unlinkat(place.Fd(), place.name.c_str(), 0) != 0) return StatusOf(errno);
  paths_.Changed(*place.folder, {});
  return Status::Done;
}

Status HostFileSystem::RemoveFolder(std::string_view path, bool readOnlyToo) {
  seen_.path.clear();
  HostPlace place;
  struct stat found;
  Status status = Find(path, place, found);
  if (status != Status::Done) return status;
  if (place.isRoot) return Status::Refused;
  bool isLink = S_ISLNK(found.st_mode) && LeadsToFolder(place);
  if (!isLink && !S_ISDIR(found.st_mode)) return Status::Refused;
  if (!isLink && IsReadOnly(found.st_mode) && !readOnlyToo) return Status::Denied;
  if (unlinkat(place.Fd(), place.name.c_str(), isLink ? 0 : AT_REMOVEDIR) != 0) return StatusOf(errno);
  paths_.Changed(*place.folder, {});
  paths_.ForgetFolder(found.st_dev, found.st_ino);
  return Status::Done;
}

UniqueFd HostFileSystem::OpenEntry(std::string_view path, HostPlace& place, struct stat& found,
                                   Status& status) {
  seen_.path.clear();
  if ((status = Find(path, place, found)) != Status::Done) return {};
  UniqueFd entry(openat(place.Fd(), place.name.c_str(), O_PATH | O_NOFOLLOW | O_CLOEXEC));
  if (!entry || fstat(entry.Get(), &found) != 0) status = StatusOf(errno);
  if (status == Status::Done && !S_ISREG(found.st_mode) && !S_ISDIR(found.st_mode)) status = Status::Refused;
  return status == Status::Done ? std::move(entry) : UniqueFd();
}

Status HostFileSystem::SetAttributes(std::string_view path, std::uint32_t attributes,
                                     std::optional<Identity> only) {
  HostPlace place;
  struct stat found;
  Status status;
  UniqueFd entry = OpenEntry(path, place, found, status);
  if (!entry) return status;
  if (place.folder->isOwn) return Status::Locked;
  if (only && *only != IdentityOf(found)) return Status::Refused;
  return WriteAttributes(entry.Get(), found, attributes);
}

Status HostFileSystem::SetTimes(std::string_view path, std::optional<Moment> /*created*/,
                                std::optional<Moment> accessed, std::optional<Moment> modified) {
  HostPlace place;
  struct stat found;
  Status status;
  UniqueFd entry = OpenEntry(path, place, found, status);
  if (!entry) return status;
  timespec times[2] = {TimeOf(accessed), TimeOf(modified)};
  return utimensat(AT_FDCWD, ProcPath(entry.Get()).c_str(), times, 0) == 0 ? Status::Done : StatusOf(errno);
}

Status HostFileSystem::Rename(std::string_view from, std::string_view to, bool replace) {
  seen_.path.clear();
  HostPlace source, target;
  struct stat moved, there;
  Status status = Find(from, source, moved);
  if (status != Status::Done) return status;
  bool isFile = S_ISREG(moved.st_mode);
  if (source.isRoot || (!isFile && !S_ISLNK(moved.st_mode) && !S_ISDIR(moved.st_mode)))
    return Status::Refused;
  if (isFile && (status = TestLockOf(source, moved)) != Status::Done) return status;

  status = Find(to, target, there);
  if (target.isRoot || std::toupper(to.empty() ? 0 : to[0]) != std::toupper(from[0])) return Status::Refused;
  bool exists = status == Status::Done;
  if (!exists && (status != Status::Missing || !target.folder)) return status;
  std::string name(to.substr(to.rfind('\\') + 1));
  bool sameEntry = exists && there.st_dev == moved.st_dev && there.st_ino == moved.st_ino &&
                   source.name == target.name && source.folder->inode == target.folder->inode;
  if (sameEntry) {
    if (name == source.name) return Status::Done;
    target.name = name;  // the name in other capitals
  } else if (exists) {
    if (!replace) return Status::Exists;
    if (!S_ISREG(there.st_mode) || S_ISDIR(moved.st_mode)) return Status::Refused;
    if ((status = TestLockOf(target, there)) != Status::Done) return status;
    if (IsReadOnly(there.st_mode)) return Status::Denied;
  }

  int error = exists && !sameEntry
                  ? (renameat(source.Fd(), source.name.c_str(), target.Fd(), target.name.c_str()) ? errno : 0)
                  : RenameNew(source.Fd(), source.name, target.Fd(), target.name);
  if (error != 0) return StatusOf(error);
  paths_.Changed(*source.folder, {});
  paths_.Changed(*target.folder, target.name);
  if (!StillThere(target, moved)) {
    // Something else had taken the name just before; it goes back.
    RenameNew(target.Fd(), target.name, source.Fd(), source.name);
    paths_.ForgetFolders();
    return Status::Failed;
  }
  if (S_ISDIR(moved.st_mode)) paths_.ForgetFolders();
  return Status::Done;
}

Status HostFileSystem::RenameExactly(std::string_view from, std::string_view to) {
  seen_.path.clear();
  HostPlace source;
  struct stat moved, there;
  Status status = Find(from, source, moved);
  if (status != Status::Done) return status;
  if (source.isRoot || !S_ISREG(moved.st_mode)) return Status::Refused;
  if ((status = TestLockOf(source, moved)) != Status::Done) return status;
  HostPlace target = paths_.Find(to);
  if (target.status != Status::Done) return target.status;
  if (target.isRoot || std::toupper(to.empty() ? 0 : to[0]) != std::toupper(from[0])) return Status::Refused;
  int result =
      renameat2(source.Fd(), source.name.c_str(), target.Fd(), target.name.c_str(), RENAME_NOREPLACE);
  if (result != 0 && (errno == EINVAL || errno == ENOSYS)) {  // not every file system knows the flag
    if (fstatat(target.Fd(), target.name.c_str(), &there, kLookFlags) == 0) return Status::Exists;
    result = renameat(source.Fd(), source.name.c_str(), target.Fd(), target.name.c_str());
  }
  if (result != 0) return StatusOf(errno);
  paths_.Changed(*source.folder, {});
  paths_.Changed(*target.folder, target.name);
  return Status::Done;
}

Status HostFileSystem::Link(std::string_view path, std::string_view name) {
  seen_.path.clear();
  HostPlace source, target;
  struct stat found, there;
  Status status = Find(path, source, found);
  if (status != Status::Done) return status;
  if (!S_ISREG(found.st_mode)) return Status::Refused;
  status = Find(name, target, there);
  if (status == Status::Done) return Status::Exists;
  if (status != Status::Missing || !target.folder) return status;
  if (linkat(source.Fd(), source.name.c_str(), target.Fd(), target.name.c_str(), 0) != 0)
    return StatusOf(errno);
  paths_.Changed(*target.folder, target.name);
  return Status::Done;
}

Status HostFileSystem::CreateFolder(std::string_view path) {
  seen_.path.clear();
  HostPlace place;
  struct stat found;
  Status status = Find(path, place, found);
  if (status == Status::Done) return Status::Exists;
  if (status != Status::Missing || !place.folder) return status;
  if (mkdirat(place.Fd(), place.name.c_str(), 0777) != 0) return StatusOf(errno);
  paths_.Changed(*place.folder, place.name);
  paths_.ForgetFolders();
  return Status::Done;
}

UniqueFd HostFileSystem::OpenOrMakeFolder(std::string_view path, std::optional<mode_t> make, Status& status) {
  seen_.path.clear();
  HostPlace place;
  struct stat found;
  status = Find(path, place, found);
  bool made = status == Status::Missing && place.folder && make;
  if (made) {
    status = mkdirat(place.Fd(), place.name.c_str(), *make) == 0 || errno == EEXIST ? Status::Done
                                                                                    : StatusOf(errno);
    paths_.Changed(*place.folder, place.name);
    paths_.ForgetFolders();
  }
  if (status != Status::Done) return {};
  UniqueFd folder(openat(place.Fd(), place.name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  // The process's own mask may have taken some rights away.
  if (!folder || (made && fchmod(folder.Get(), *make) != 0))
    status = errno == ENOTDIR || errno == ELOOP ? Status::Refused : StatusOf(errno);
  return status == Status::Done ? std::move(folder) : UniqueFd();
}

Status HostFileSystem::MoveInto(std::string_view path, int folder, const std::string& name) {
  seen_.path.clear();
  HostPlace source;
  struct stat moved, there;
  Status status = Find(path, source, moved);
  if (status != Status::Done) return status;
  if (!S_ISREG(moved.st_mode) && !S_ISLNK(moved.st_mode)) return Status::Refused;
  if (S_ISREG(moved.st_mode) && (status = TestLockOf(source, moved)) != Status::Done) return status;
  if (int error = RenameNew(source.Fd(), source.name, folder, name)) return StatusOf(error);
  paths_.Changed(*source.folder, {});
  if (fstatat(folder, name.c_str(), &there, kLookFlags) == 0 && IsSame(there, moved)) return Status::Done;
  // Something else had taken the name just before; it goes back.
  RenameNew(folder, name, source.Fd(), source.name);
  return Status::Failed;
}

std::unique_ptr<File> HostFileSystem::Open(std::string_view path, OpenMode mode, Status& status) {
  seen_.path.clear();
  HostPlace place;
  struct stat found;
  status = Find(path, place, found);
  if (place.folder && place.folder->isOwn) {
    status = Status::Locked;
    return nullptr;
  }
  if (status == Status::Done) return OpenExisting(place, found, mode, status);
  if (status != Status::Missing || !place.folder || mode == OpenMode::Read || mode == OpenMode::Modify)
    return nullptr;
  int flags = O_RDWR | O_CREAT | O_EXCL | (mode == OpenMode::Append ? O_APPEND : 0);
  // A new file is its maker's alone, until somebody gives it other rights.
  mode_t rights = mode == OpenMode::CreateNew ? 0600 : 0666;
  UniqueFd file(openat(place.Fd(), place.name.c_str(), flags | kOpenFlags, rights));
  status = file ? Status::Done : StatusOf(errno);
  if (!file) return nullptr;
  paths_.Changed(*place.folder, place.name);
  return std::make_unique<HostFile>(std::move(file));
}

std::unique_ptr<File> HostFileSystem::OpenExisting(const HostPlace& place, const struct stat& found,
                                                   OpenMode mode, Status& status) {
  bool writes = mode != OpenMode::Read;
  if (mode == OpenMode::CreateNew)
    status = Status::Exists;
  else if (!S_ISREG(found.st_mode))
    status = Status::Refused;
  else if (writes && IsReadOnly(found.st_mode))
    status = Status::Denied;
  if (status != Status::Done) return nullptr;

  int flags = writes ? O_RDWR : O_RDONLY;
  if (mode == OpenMode::Append) flags |= O_APPEND;
  UniqueFd file(openat(place.Fd(), place.name.c_str(), flags | kOpenFlags));
  struct stat opened;
  if (!file || fstat(file.Get(), &opened) != 0)
    status = StatusOf(errno);
  else if (!IsSame(opened, found))
    status = Status::Failed;  // something else has taken its place just now
  else if (writes && IsLockedByAnother(file.Get()))
    status = Status::Locked;
  else if (mode == OpenMode::CreateOrEmpty && ftruncate(file.Get(), 0) != 0)
    status = StatusOf(errno);
  if (status != Status::Done) return nullptr;
  return std::make_unique<HostFile>(std::move(file));
}

std::unique_ptr<HeldFile> HostFileSystem::Hold(std::string_view path, Status& status) {
  HostPlace place;
  struct stat found;
  UniqueFd entry = OpenEntry(path, place, found, status);
  if (!entry) return nullptr;
  if (place.folder->isOwn) status = Status::Locked;
  if (!S_ISREG(found.st_mode)) status = Status::Refused;
  return status == Status::Done ? HostHeldFile::Open(paths_, std::move(place), entry.Get(), status) : nullptr;
}

Status HostFileSystem::TestLock(std::string_view path) {
  HostPlace place;
  struct stat found;
  Status status = Find(path, place, found);
  if (status != Status::Done || !S_ISREG(found.st_mode)) return status;
  return TestLockOf(place, found);
}

Status HostFileSystem::Walk(std::string_view root, const WalkOptions& options, TreeVisitor& visitor) {
  root = WithoutBackslash(root);
  Status status;
  UniqueFd folder = paths_.OpenFolder(root, options.rootIsKnown, status);
  if (!folder) return status;
  std::string path(root);
  if (!path.ends_with('\\')) path += '\\';
  return WalkFolders(folder, std::move(path), options, visitor);
}

std::vector<Identity> HostFileSystem::Ancestry(std::string_view path) {
  Status status;
  UniqueFd folder = paths_.OpenFolder(WithoutBackslash(path), true, status);
  std::vector<Identity> way;
  struct stat found;
  while (folder && fstat(folder.Get(), &found) == 0) {
    Identity identity = IdentityOf(found);
    // The top is its own parent.
    if (!way.empty() && way.back() == identity) break;
    way.push_back(identity);
    folder = UniqueFd(openat(folder.Get(), "..", O_PATH | O_DIRECTORY | O_CLOEXEC));
  }
  return way;
}

std::unique_ptr<SizesAhead> HostFileSystem::LookAhead() {
  return std::make_unique<HostSizesAhead>(paths_);
}

Status HostFileSystem::FlushAll(std::span<File* const> files) {
  // Each flush of a new file waits for the disk's journal; the whole disk at once waits for it once.
  constexpr std::size_t few = 4;
  if (files.size() <= few) return FileSystem::FlushAll(files);
  std::set<dev_t> flushed;
  for (File* file : files) {
    int fd = static_cast<HostFile*>(file)->Fd();
    struct stat found;
    if (fstat(fd, &found) != 0) return StatusOf(errno);
    if (flushed.insert(found.st_dev).second && syncfs(fd) != 0) return StatusOf(errno);
  }
  return Status::Done;
}

Status HostFileSystem::FlushFolder(std::string_view path) {
  Status status;
  UniqueFd folder = paths_.OpenFolder(WithoutBackslash(path), false, status);
  if (!folder) return status;
  UniqueFd readable(openat(folder.Get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  return readable && fsync(readable.Get()) == 0 ? Status::Done : StatusOf(errno);
}

void HostFileSystem::TakeRightsOfOthers(std::string_view path) {
  HostPlace place;
  struct stat found;
  if (Find(path, place, found) != Status::Done) return;
  UniqueFd file(openat(place.Fd(), place.name.c_str(), O_PATH | O_NOFOLLOW | O_CLOEXEC));
  if (!file || fstat(file.Get(), &found) != 0 || S_ISLNK(found.st_mode)) return;
  platform::TakeRightsOfOthers(file.Get(), found);
}

}  // namespace platform
