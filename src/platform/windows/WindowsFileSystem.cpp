#include "platform/windows/WindowsFileSystem.h"

#include <vector>

#include "platform/PathText.h"
#include "platform/windows/WindowsFile.h"
#include "platform/windows/WindowsHeldFile.h"
#include "platform/windows/WindowsStatus.h"
#include "platform/windows/WindowsWalk.h"

namespace platform {

namespace {

constexpr std::uint32_t kSettable = kReadOnly | kHidden | kSystem | kArchive;
constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

bool IsReparsePoint(const WindowsEntry& entry) {
  return (entry.attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

Status WriteAttributes(HANDLE entry, std::uint32_t attributes) {
  FILE_BASIC_INFO info{};  // a zero leaves a moment as it is
  info.FileAttributes = attributes ? attributes : FILE_ATTRIBUTE_NORMAL;
  return SetFileInformationByHandle(entry, FileBasicInfo, &info, sizeof info) ? Status::Done : LastStatus();
}

bool IsSameFile(HANDLE a, HANDLE b) {
  auto one = IdentityOf(a);
  return one && one == IdentityOf(b);
}

// What is known of an entry whose handle can't be had.
EntryInfo InfoOf(const WIN32_FILE_ATTRIBUTE_DATA& found, EntryKind kind) {
  EntryInfo info;
  info.kind = kind;
  if (kind == EntryKind::File) info.size = std::uint64_t{found.nFileSizeHigh} << 32 | found.nFileSizeLow;
  info.attributes = IsLink(kind) ? (kind == EntryKind::FolderLink ? kFolder : 0u)
                                 : found.dwFileAttributes & (kSettable | kFolder);
  info.created = MomentOf(found.ftCreationTime);
  info.accessed = MomentOf(found.ftLastAccessTime);
  info.modified = MomentOf(found.ftLastWriteTime);
  return info;
}

class ListedSizes : public SizesAhead {
 public:
  bool WantsSizes() const override { return true; }
  void Folder(std::string_view) override {}
  void File(std::string_view, std::uint64_t size) override { filled_.push_back(size > 0); }
  void Listed() override {}
  bool IsFilled(int file) override {
    auto place = static_cast<std::size_t>(file);
    return place < filled_.size() && filled_[place];
  }

 private:
  std::vector<bool> filled_;
};

}  // namespace

EntryInfo WindowsFileSystem::Look(std::string_view path) {
  Status status;
  WindowsEntry entry = paths_.Open(path, 0, status);
  if (!entry) return LookByName(path);
  entry.info.identity = IdentityOf(entry.handle.Get());
  return entry.info;
}

EntryInfo WindowsFileSystem::LookBriefly(std::string_view path) {
  return LookByName(path);
}

EntryInfo WindowsFileSystem::LookByName(std::string_view path) {
  EntryInfo none, unreadable;
  unreadable.kind = EntryKind::Unreadable;
  std::wstring native;
  if (paths_.Native(path, native) != Status::Done) return none;
  Status status = paths_.CheckWay(path);
  // What lies behind a link may be there.
  if (status != Status::Done) return status == Status::Missing ? none : unreadable;
  WIN32_FILE_ATTRIBUTE_DATA found;
  DWORD error =
      GetFileAttributesExW(native.c_str(), GetFileExInfoStandard, &found) ? ERROR_SUCCESS : GetLastError();
  if (StatusOf(error) == Status::Missing) return none;
  DWORD tag = 0;
  if (error != ERROR_SUCCESS || (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT)) {
    // The folder tells of an entry that can't be opened at all, and of a reparse point's tag.
    WIN32_FIND_DATAW listed;
    if (IsDriveRoot(path) || FindEntry(native, listed) != ERROR_SUCCESS) return unreadable;
    tag = listed.dwReserved0;
    found = {listed.dwFileAttributes, listed.ftCreationTime, listed.ftLastAccessTime,
             listed.ftLastWriteTime,  listed.nFileSizeHigh,  listed.nFileSizeLow};
  }
  return InfoOf(found, WindowsPaths::KindOf(found.dwFileAttributes, tag));
}

Status WindowsFileSystem::RemoveFile(std::string_view path, bool readOnlyToo) {
  Status status;
  WindowsEntry entry = paths_.Open(path, DELETE, status);
  if (!entry) return status;
  if (entry.info.kind == EntryKind::Folder) return Status::Refused;
  if (entry.info.kind == EntryKind::File && (entry.info.attributes & kReadOnly) && !readOnlyToo)
    return Status::Denied;
  return RemoveOpened(entry.handle.Get());
}

Status WindowsFileSystem::RemoveFolder(std::string_view path, bool readOnlyToo) {
  if (IsDriveRoot(path)) return Status::Refused;
  Status status;
  WindowsEntry entry = paths_.Open(path, DELETE, status);
  if (!entry) return status;
  if (entry.info.kind != EntryKind::Folder && entry.info.kind != EntryKind::FolderLink)
    return Status::Refused;
  if (entry.info.kind == EntryKind::Folder && (entry.info.attributes & kReadOnly) && !readOnlyToo)
    return Status::Denied;
  return RemoveOpened(entry.handle.Get());
}

Status WindowsFileSystem::SetAttributes(std::string_view path, std::uint32_t attributes,
                                        std::optional<Identity> only) {
  Status status;
  WindowsEntry entry = paths_.Open(path, FILE_WRITE_ATTRIBUTES, status);
  if (!entry) return status;
  if (only && IdentityOf(entry.handle.Get()) != only) return Status::Refused;
  if (IsLink(entry.info.kind)) return Status::Refused;
  // The other bits that can be set stay as they are.
  constexpr std::uint32_t kKept =
      FILE_ATTRIBUTE_NOT_CONTENT_INDEXED | FILE_ATTRIBUTE_TEMPORARY | FILE_ATTRIBUTE_OFFLINE;
  return WriteAttributes(entry.handle.Get(), (entry.attributes & kKept) | (attributes & kSettable));
}

Status WindowsFileSystem::SetTimes(std::string_view path, std::optional<Moment> created,
                                   std::optional<Moment> accessed, std::optional<Moment> modified) {
  Status status;
  WindowsEntry entry = paths_.Open(path, FILE_WRITE_ATTRIBUTES, status);
  if (!entry) return status;
  if (IsLink(entry.info.kind)) return Status::Refused;
  FILETIME times[3];
  const FILETIME* given[3] = {};
  int i = 0;
  for (const auto& moment : {created, accessed, modified}) {
    if (moment) {
      times[i] = TimeOf(*moment);
      given[i] = &times[i];
    }
    ++i;
  }
  return SetFileTime(entry.handle.Get(), given[0], given[1], given[2]) ? Status::Done : LastStatus();
}

Status WindowsFileSystem::Rename(std::string_view from, std::string_view to, bool replace) {
  if (IsDriveRoot(from)) return Status::Refused;
  Status status;
  // Held from here on, so that what is looked at stays what it is.
  UniqueHandle source = paths_.HoldParent(from, status);
  if (!source) return status;
  WindowsEntry moved = paths_.Open(from, DELETE, status);
  if (!moved) return status;
  bool isFile = moved.info.kind == EntryKind::File, isFolder = moved.info.kind == EntryKind::Folder;
  if (!IsPlainPath(to) || IsDriveRoot(to) || (to[0] | 0x20) != (from[0] | 0x20)) return Status::Refused;

  UniqueHandle target = paths_.HoldParent(to, status);
  if (!target) return status;
  WindowsEntry there = paths_.Open(to, 0, status);
  if (!there && status != Status::Missing) return status;
  // The same name in other capitals.
  bool same =
      there && (isFolder || moved.info.names == 1) && IsSameFile(moved.handle.Get(), there.handle.Get());
  if (there && !same) {
    if (!replace) return Status::Exists;
    if (there.info.kind != EntryKind::File || isFolder) return Status::Refused;
    if ((status = TestLock(to)) != Status::Done) return status;
    if (there.info.attributes & kReadOnly) return Status::Denied;
  }
  moved.handle.Close();
  there.handle.Close();
  if (isFile && (status = TestLock(from)) != Status::Done) return status;

  std::wstring nativeFrom, nativeTo;
  if ((status = paths_.Native(from, nativeFrom)) != Status::Done) return status;
  if ((status = paths_.Native(to, nativeTo)) != Status::Done) return status;
  // A folder can't be moved while it is held, which it is where one path lies in the other.
  if (isFolder) {
    source.Close();
    target.Close();
  }
  DWORD flags = replace && !same ? MOVEFILE_REPLACE_EXISTING : 0;
  return MoveFileExW(nativeFrom.c_str(), nativeTo.c_str(), flags) ? Status::Done : LastStatus();
}

Status WindowsFileSystem::Link(std::string_view path, std::string_view name) {
  if (!IsPlainPath(name) || IsDriveRoot(name) || path.empty() || (name[0] | 0x20) != (path[0] | 0x20))
    return Status::Refused;
  Status status;
  // Held from here on, so that what is looked at stays what it is.
  UniqueHandle source = paths_.HoldParent(path, status);
  if (!source) return status;
  WindowsEntry found = paths_.Open(path, 0, status);
  if (!found) return status;
  if (found.info.kind != EntryKind::File) return Status::Refused;
  UniqueHandle target = paths_.HoldParent(name, status);
  if (!target) return status;
  std::wstring nativePath, nativeName;
  if ((status = paths_.Native(path, nativePath)) != Status::Done) return status;
  if ((status = paths_.Native(name, nativeName)) != Status::Done) return status;
  if (!CreateHardLinkW(nativeName.c_str(), nativePath.c_str(), nullptr)) return LastStatus();
  return KeepIfInPlace(nativeName, name);
}

// For what was made by its path just now: where that has led elsewhere it is taken away again.
Status WindowsFileSystem::KeepIfInPlace(const std::wstring& native, std::string_view path) {
  UniqueHandle made(CreateFileW(native.c_str(), DELETE | FILE_READ_ATTRIBUTES, kShareAll, nullptr,
                                OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT | FILE_FLAG_BACKUP_SEMANTICS,
                                nullptr));
  // Without the right to look, or gone by now: nothing is known against it.
  if (!made) return Status::Done;
  Status status = paths_.CheckMade(made.Get(), path);
  if (status != Status::Done) RemoveOpened(made.Get());
  return status;
}

Status WindowsFileSystem::CreateFolder(std::string_view path) {
  if (IsDriveRoot(path)) return Look(path).kind == EntryKind::Folder ? Status::Exists : Status::Missing;
  Status status;
  UniqueHandle parent = paths_.HoldParent(path, status);
  if (!parent) return status;
  std::wstring native;
  if ((status = paths_.Native(path, native)) != Status::Done) return status;
  if (!CreateDirectoryW(native.c_str(), nullptr)) return LastStatus();
  return KeepIfInPlace(native, path);
}

std::unique_ptr<File> WindowsFileSystem::Create(std::string_view path, Status& status) {
  UniqueHandle parent = paths_.HoldParent(path, status);
  if (!parent) return nullptr;
  std::wstring native;
  if ((status = paths_.Native(path, native)) != Status::Done) return nullptr;
  UniqueHandle file(CreateFileW(native.c_str(), GENERIC_READ | GENERIC_WRITE | DELETE, kShareAll, nullptr,
                                CREATE_NEW, FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
  if (!file) {
    status = LastStatus();
    if (status == Status::Denied && Look(path).kind != EntryKind::Missing) status = Status::Exists;
    return nullptr;
  }
  if ((status = paths_.CheckMade(file.Get(), path)) != Status::Done) {
    RemoveOpened(file.Get());
    return nullptr;
  }
  return std::make_unique<WindowsFile>(std::move(file));
}

std::unique_ptr<File> WindowsFileSystem::Open(std::string_view path, OpenMode mode, Status& status) {
  if (mode == OpenMode::CreateNew) return Create(path, status);
  bool writes = mode != OpenMode::Read;
  DWORD access = GENERIC_READ | (writes ? GENERIC_WRITE : 0);
  // Who doesn't let it be removed has it in use.
  if (mode == OpenMode::Modify) access |= DELETE;
  WindowsEntry entry = paths_.Open(path, access, status);
  if (!entry) {
    bool creates = mode == OpenMode::Append || mode == OpenMode::CreateOrEmpty;
    return status == Status::Missing && creates ? Create(path, status) : nullptr;
  }
  if (entry.info.kind != EntryKind::File)
    status = Status::Refused;
  else if (writes && (entry.info.attributes & kReadOnly))
    status = Status::Denied;
  else if (writes && IsRangeLocked(entry.handle.Get()))
    status = Status::Locked;
  if (status == Status::Done && IsReparsePoint(entry)) {
    // Its content comes to light only where it is opened as what it stands for.
    std::wstring native;
    paths_.Native(path, native);
    UniqueHandle content(CreateFileW(native.c_str(), access, kShareAll, nullptr, OPEN_EXISTING, 0, nullptr));
    if (!content)
      status = LastStatus();
    else if (!IsSameFile(content.Get(), entry.handle.Get()))
      status = Status::Failed;  // something else has taken its place just now
    entry.handle = std::move(content);
  }
  if (status != Status::Done) return nullptr;
  auto file = std::make_unique<WindowsFile>(std::move(entry.handle));
  if (mode == OpenMode::CreateOrEmpty && (status = file->Truncate(0)) != Status::Done) return nullptr;
  return file;
}

std::unique_ptr<HeldFile> WindowsFileSystem::Hold(std::string_view path, Status& status) {
  // To make it writable, and read-only again; kept until the end.
  WindowsEntry entry = paths_.Open(path, FILE_WRITE_ATTRIBUTES, status);
  if (!entry) return nullptr;
  if (entry.info.kind != EntryKind::File || (entry.attributes & WindowsHeldFile::kOutOfReach))
    status = Status::Refused;
  if (status != Status::Done) return nullptr;
  DWORD lifted = entry.attributes & FILE_ATTRIBUTE_READONLY ? entry.attributes : 0;
  if (lifted &&
      (status = WriteAttributes(entry.handle.Get(), lifted & ~kReadOnly & kSettable)) != Status::Done)
    return nullptr;
  WindowsEntry file = paths_.Open(path, GENERIC_READ | GENERIC_WRITE | DELETE, status);
  if (file && !IsSameFile(file.handle.Get(), entry.handle.Get())) status = Status::Failed;
  if (file && status == Status::Done && IsRangeLocked(file.handle.Get())) status = Status::Locked;
  if (status != Status::Done) {
    if (lifted) WriteAttributes(entry.handle.Get(), lifted & kSettable);
    return nullptr;
  }
  return std::make_unique<WindowsHeldFile>(std::move(file.handle), std::move(entry.handle),
                                           lifted & kSettable);
}

std::vector<Identity> WindowsFileSystem::Ancestry(std::string_view path) {
  std::vector<Identity> way;
  path = WithoutBackslash(path);
  std::wstring native;
  if (paths_.Native(path, native) != Status::Done) return way;
  auto open = [](const std::wstring& name) {
    return UniqueHandle(CreateFileW(name.c_str(), FILE_READ_ATTRIBUTES, kShareAll, nullptr, OPEN_EXISTING,
                                    FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  };
  if (IsDriveRoot(path) && !native.ends_with(L'\\')) native += L'\\';
  UniqueHandle folder = open(native);
  BY_HANDLE_FILE_INFORMATION found;
  if (!folder || !GetFileInformationByHandle(folder.Get(), &found) ||
      !(found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY))
    return way;
  // From where it really lies, behind links and other letters.
  std::wstring real = WindowsPaths::RealPathOf(folder.Get());
  while (folder) {
    auto identity = IdentityOf(folder.Get());
    if (!identity) break;
    if (way.empty() || way.back() != *identity) way.push_back(*identity);
    std::size_t last = real.find_last_not_of(L'\\');
    last = last == real.npos ? last : real.rfind(L'\\', last);
    // A volume's own name stands before the first backslash behind "\\?\".
    if (last == real.npos || last < 4 || real.find(L'\\', 4) > last) break;
    bool isRoot = real.find(L'\\', 4) == last;
    real.resize(isRoot ? last + 1 : last);
    folder = open(real);
    if (isRoot) {
      if (auto top = folder ? IdentityOf(folder.Get()) : std::nullopt; top && way.back() != *top)
        way.push_back(*top);
      break;
    }
  }
  return way;
}

Status WindowsFileSystem::TestLock(std::string_view path) {
  Status status = Status::Done;
  // With the rights that there are: a read-only file can't be opened for writing.
  for (DWORD access : {GENERIC_READ | GENERIC_WRITE | DELETE, GENERIC_READ | DELETE, DELETE + 0ul, 0ul}) {
    WindowsEntry entry = paths_.Open(path, access, status);
    if (!entry && status == Status::Denied) continue;
    if (!entry) return status;
    bool canLock = entry.info.kind == EntryKind::File && (access & GENERIC_READ);
    return canLock && IsRangeLocked(entry.handle.Get()) ? Status::Locked : Status::Done;
  }
  return status;
}

std::unique_ptr<SizesAhead> WindowsFileSystem::LookAhead() {
  return std::make_unique<ListedSizes>();
}

Status WindowsFileSystem::Walk(std::string_view root, const WalkOptions& options, TreeVisitor& visitor) {
  root = WithoutBackslash(root);
  std::wstring native;
  Status status = paths_.Native(root, native);
  if (status == Status::Done && !options.rootIsKnown) {
    status = paths_.CheckWay(root);
    EntryKind kind = status == Status::Done ? LookByName(root).kind : EntryKind::Missing;
    if (kind == EntryKind::FileLink || kind == EntryKind::FolderLink) status = Status::Refused;
  }
  if (status != Status::Done) return status;
  std::string path(root);
  if (!path.ends_with('\\')) path += '\\';
  if (!native.ends_with(L'\\')) native += L'\\';
  return WalkFolders(std::move(native), std::move(path), options, visitor);
}

Status WindowsFileSystem::FlushFolder(std::string_view path) {
  path = WithoutBackslash(path);
  Status status;
  WindowsEntry entry = paths_.Open(path, GENERIC_READ | FILE_ADD_FILE, status);
  if (!entry && status == Status::Denied) entry = paths_.Open(path, 0, status);
  if (!entry) return status;
  if (entry.info.kind != EntryKind::Folder) return Status::Refused;
  FlushFileBuffers(entry.handle.Get());
  return Status::Done;
}

}  // namespace platform
