#include "platform/windows/WindowsPaths.h"

#include <algorithm>

#include "platform/PathText.h"
#include "platform/windows/WindowsStatus.h"
#include "platform/windows/WindowsText.h"

namespace platform {

namespace {

using std::chrono::steady_clock;

// For how long a folder that has been looked at is taken for good: as short as one operation, and long enough
// for hundreds of neighbours.
constexpr auto kCheckLife = std::chrono::microseconds(500);
constexpr auto kRootLife = std::chrono::seconds(1);
constexpr std::wstring_view kPrefix = L"\\\\?\\";
constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
// 100 ns steps from 1601 to 1970.
constexpr std::int64_t kEpoch = 116'444'736'000'000'000;

char Capital(char letter) {
  return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 32) : letter;
}

bool Equal(std::wstring_view a, std::wstring_view b) {
  return a.size() == b.size() && CompareStringOrdinal(a.data(), static_cast<int>(a.size()), b.data(),
                                                      static_cast<int>(b.size()), TRUE) == CSTR_EQUAL;
}

// Fills `text` by a call that takes a buffer with its size and gives the length, or the size needed with the
// zero.
template <typename Ask>
bool Fill(std::wstring& text, Ask&& ask) {
  text.resize(MAX_PATH);
  for (;;) {
    DWORD length = ask(text.data(), static_cast<DWORD>(text.size()));
    if (length == 0) return false;
    bool fits = length < text.size();
    text.resize(length);
    if (fits) return true;
  }
}

// Where the system says that something lies, by the volume's own name.
std::wstring RealPath(HANDLE opened) {
  std::wstring path;
  bool good = Fill(path, [&](wchar_t* buffer, DWORD size) {
    return GetFinalPathNameByHandleW(opened, buffer, size, FILE_NAME_OPENED | VOLUME_NAME_NT);
  });
  return good ? path : std::wstring();
}

bool IsReparsePoint(DWORD attributes) {
  return (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

std::uint32_t TagOf(HANDLE opened) {
  FILE_ATTRIBUTE_TAG_INFO info{};
  return GetFileInformationByHandleEx(opened, FileAttributeTagInfo, &info, sizeof info) ? info.ReparseTag : 0;
}

EntryInfo InfoOf(const BY_HANDLE_FILE_INFORMATION& found, EntryKind kind) {
  EntryInfo info;
  info.kind = kind;
  if (kind == EntryKind::File) info.size = std::uint64_t{found.nFileSizeHigh} << 32 | found.nFileSizeLow;
  constexpr std::uint32_t kWord = kReadOnly | kHidden | kSystem | kFolder | kArchive;
  info.attributes =
      IsLink(kind) ? (kind == EntryKind::FolderLink ? kFolder : 0u) : found.dwFileAttributes & kWord;
  info.names = found.nNumberOfLinks;
  info.created = MomentOf(found.ftCreationTime);
  info.accessed = MomentOf(found.ftLastAccessTime);
  info.modified = MomentOf(found.ftLastWriteTime);
  return info;
}

// No name of a file system of this one holds such a character, and some functions would take it for any
// other.
bool HoldsImpossible(std::wstring_view path) {
  return path.find_first_of(L"*?<>|\"") != path.npos ||
         std::any_of(path.begin(), path.end(), [](wchar_t c) { return c < 32; });
}

}  // namespace

Moment MomentOf(const FILETIME& time) {
  auto ticks = static_cast<std::int64_t>(std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime);
  return (ticks - kEpoch) * 100;
}

FILETIME TimeOf(Moment moment) {
  auto ticks = static_cast<std::uint64_t>(moment / 100 - (moment % 100 < 0 ? 1 : 0) + kEpoch);
  return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
}

DWORD FindEntry(const std::wstring& native, WIN32_FIND_DATAW& found) {
  HANDLE search =
      FindFirstFileExW(native.c_str(), FindExInfoBasic, &found, FindExSearchNameMatch, nullptr, 0);
  if (search == INVALID_HANDLE_VALUE) return GetLastError();
  FindClose(search);
  return ERROR_SUCCESS;
}

WindowsPaths::WindowsPaths(std::wstring drivesFolder, Locale& locale,
                           std::function<std::vector<std::string>()> knownFolders)
    : drivesFolder_(std::move(drivesFolder)), locale_(locale), knownFolders_(std::move(knownFolders)) {}

std::wstring WindowsPaths::RealPathOf(HANDLE opened) {
  std::wstring path;
  for (DWORD form : {VOLUME_NAME_DOS, VOLUME_NAME_GUID})
    if (Fill(path, [&](wchar_t* buffer, DWORD size) {
          return GetFinalPathNameByHandleW(opened, buffer, size, FILE_NAME_OPENED | form);
        }))
      return path;
  return {};
}

bool WindowsPaths::IsLinkTag(std::uint32_t tag) {
  switch (tag) {
    case 0x80000006:  // moved to another storage: HSM2,
    case 0xC0000004:  // HSM
    case 0x80000007:  // stored once for several files: SIS,
    case 0x80000013:  // DEDUP
    case 0x80000015:  // FILE_PLACEHOLDER
    case 0x80000017:  // compressed: WOF
    case 0x8000001E:  // kept on a server: STORAGE_SYNC,
    case 0x90000027:  // STORAGE_SYNC_FOLDER
    case 0x80000021:  // ONEDRIVE
    case 0x9000001C:  // PROJFS
      return false;
    default:
      // CLOUD and CLOUD_1 to CLOUD_F.
      return (tag & 0xFFFF0FFF) != 0x9000001A;
  }
}

EntryKind WindowsPaths::KindOf(std::uint32_t attributes, std::uint32_t tag) {
  bool isFolder = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  if (IsReparsePoint(attributes) && IsLinkTag(tag))
    return isFolder ? EntryKind::FolderLink : EntryKind::FileLink;
  return isFolder ? EntryKind::Folder : EntryKind::File;
}

std::wstring WindowsPaths::NativeRoot(char letter) const {
  std::wstring root(kPrefix);
  auto wide = static_cast<wchar_t>(Capital(letter));
  if (drivesFolder_.empty()) return root + wide + L':';
  return root + drivesFolder_ + L'\\' + static_cast<wchar_t>(wide + 32);
}

Status WindowsPaths::Native(std::string_view path, std::wstring& native) const {
  if (!IsPlainPath(path) || path.find(':', 2) != path.npos) return Status::Refused;
  auto rest = ToWide(path.substr(2));
  if (!rest || HoldsImpossible(*rest)) return Status::Missing;
  native = NativeRoot(path[0]) + *rest;
  return Status::Done;
}

std::wstring WindowsPaths::ForShell(std::string_view path) const {
  // The shell takes away blanks and dots at a name's end, which then is another name.
  auto keeps = [](std::wstring_view native) {
    if (native.size() >= MAX_PATH) return false;
    for (std::size_t begin = 0; begin < native.size();) {
      std::size_t end = std::min(native.find(L'\\', begin), native.size());
      if (end > begin && (native[end - 1] == L' ' || native[end - 1] == L'.')) return false;
      begin = end + 1;
    }
    return true;
  };
  std::wstring native;
  if (Native(path, native) != Status::Done) return {};
  if (keeps(std::wstring_view(native).substr(kPrefix.size()))) return native.substr(kPrefix.size());
  std::wstring brief;
  bool good = Fill(
      brief, [&](wchar_t* buffer, DWORD size) { return GetShortPathNameW(native.c_str(), buffer, size); });
  if (!good || !brief.starts_with(kPrefix)) return {};
  brief.erase(0, kPrefix.size());
  return keeps(brief) ? brief : std::wstring();
}

std::string WindowsPaths::FromNative(std::wstring_view native) const {
  if (native.starts_with(kPrefix)) native.remove_prefix(kPrefix.size());
  if (drivesFolder_.empty()) {
    std::string path = ToUtf8(native);
    return IsDrivePath(path) ? path : std::string();
  }
  std::size_t length = drivesFolder_.size();
  if (native.size() < length + 2 || !Equal(native.substr(0, length), drivesFolder_) ||
      native[length] != L'\\')
    return {};
  std::string path = ToUtf8(native.substr(length + 1));
  std::string drive{Capital(path[0]), ':'};
  if (path.size() == 1) return drive + '\\';
  return path[1] == '\\' ? drive + path.substr(1) : std::string();
}

const std::wstring& WindowsPaths::RealRoot(char letter) {
  Root& root = roots_[Capital(letter)];
  auto now = steady_clock::now();
  if (!root.real.empty() && now - root.asked < kRootLife) return root.real;
  std::wstring native = NativeRoot(letter) + L'\\';
  UniqueHandle opened(CreateFileW(native.c_str(), FILE_READ_ATTRIBUTES, kShareAll, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  root.real = opened ? RealPath(opened.Get()) : std::wstring();
  while (root.real.ends_with(L'\\')) root.real.pop_back();
  root.asked = now;
  return root.real;
}

bool WindowsPaths::LeadsStraight(HANDLE opened, std::string_view path) {
  std::wstring real = RealPath(opened);
  const std::wstring& root = RealRoot(path[0]);
  auto rest = ToWide(path.substr(2));
  if (real.empty() || root.empty() || !rest) return false;
  if (*rest == L"\\") rest->clear();
  while (real.ends_with(L'\\')) real.pop_back();
  std::wstring_view found = real;
  return found.size() == root.size() + rest->size() && Equal(found.substr(0, root.size()), root) &&
         Equal(found.substr(root.size()), *rest);
}

// `link` is the beginning of `path` that ends at the link. The path must lead to a known folder, or lie on
// the way to one: what lies beside the folder, behind the same link, isn't meant.
bool WindowsPaths::MayPassLink(std::string_view link, std::string_view path) const {
  auto isAtOrAbove = [](std::string_view folder, std::string_view other) {
    return other.starts_with(folder) && (other.size() == folder.size() || other[folder.size()] == '\\');
  };
  std::string foldedLink = locale_.Fold(link), foldedPath = locale_.Fold(path);
  for (const std::string& folder : knownFolders_()) {
    std::string known = locale_.Fold(WithoutBackslash(folder));
    if (isAtOrAbove(foldedLink, known) && (isAtOrAbove(known, foldedPath) || isAtOrAbove(foldedPath, known)))
      return true;
  }
  return false;
}

// The folders of path[0, end) one after the other, on behalf of the whole path.
Status WindowsPaths::FollowWay(std::string_view path, std::size_t end, bool& passedLink) const {
  for (std::size_t at = 2; at < end;) {
    at = std::min(path.find('\\', at + 1), end);
    if (at == 3) continue;  // the drive's root
    std::wstring native;
    Status status = Native(path.substr(0, at), native);
    if (status != Status::Done) return status;
    DWORD attributes = GetFileAttributesW(native.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return LastStatus();
    if (!IsReparsePoint(attributes)) {
      if (!(attributes & FILE_ATTRIBUTE_DIRECTORY)) return Status::Missing;
      continue;
    }
    WIN32_FIND_DATAW found;
    if (DWORD error = FindEntry(native, found)) return StatusOf(error);
    if (!IsLink(KindOf(found.dwFileAttributes, found.dwReserved0))) continue;
    if (!MayPassLink(path.substr(0, at), path)) return Status::Refused;
    passedLink = true;
  }
  return Status::Done;
}

Status WindowsPaths::Verify(HANDLE opened, std::string_view at, std::string_view path) {
  if (LeadsStraight(opened, at)) return Status::Done;
  bool passedLink = false;
  std::size_t parent = std::max<std::size_t>(path.rfind('\\'), 2);
  Status status = FollowWay(path, parent, passedLink);
  if (status != Status::Done || passedLink) return status;
  // Some file systems can't tell; then the steps have shown all that there is.
  if (RealPath(opened).empty()) return Status::Done;
  // A short name stands for a long one.
  std::wstring native, whole;
  if ((status = Native(at, native)) != Status::Done) return status;
  bool good = Fill(
      whole, [&](wchar_t* buffer, DWORD size) { return GetLongPathNameW(native.c_str(), buffer, size); });
  std::string meant = good ? FromNative(whole) : std::string();
  return !meant.empty() && LeadsStraight(opened, meant) ? Status::Done : Status::Refused;
}

WindowsEntry WindowsPaths::Open(std::string_view path, std::uint32_t access, Status& status) {
  WindowsEntry entry;
  std::wstring native;
  if ((status = Native(path, native)) != Status::Done) return entry;
  entry.handle = UniqueHandle(
      CreateFileW(native.c_str(), access | FILE_READ_ATTRIBUTES | SYNCHRONIZE, kShareAll, nullptr,
                  OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT | FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  BY_HANDLE_FILE_INFORMATION found;
  if (!entry || !GetFileInformationByHandle(entry.handle.Get(), &found)) {
    status = LastStatus();
    entry.handle.Close();
    return entry;
  }
  bool special = IsReparsePoint(found.dwFileAttributes);
  entry.attributes = found.dwFileAttributes;
  entry.info = InfoOf(found, KindOf(found.dwFileAttributes, special ? TagOf(entry.handle.Get()) : 0));
  status = Verify(entry.handle.Get(), path, path);
  if (status != Status::Done) entry.handle.Close();
  return entry;
}

UniqueHandle WindowsPaths::HoldParent(std::string_view path, Status& status) {
  std::size_t last = path.rfind('\\');
  std::string_view parent = last == path.npos ? path : path.substr(0, last == 2 ? 3 : last);
  std::wstring native;
  if ((status = Native(path, native)) != Status::Done || (status = Native(parent, native)) != Status::Done)
    return {};
  auto open = [&](DWORD access, DWORD share) {
    return UniqueHandle(CreateFileW(native.c_str(), access, share, nullptr, OPEN_EXISTING,
                                    FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  };
  UniqueHandle folder = open(FILE_TRAVERSE | FILE_READ_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE);
  // Without the right to hold it, or while somebody is about to remove it.
  if (!folder && LastStatus() != Status::Missing) folder = open(FILE_READ_ATTRIBUTES, kShareAll);
  BY_HANDLE_FILE_INFORMATION found;
  if (!folder || !GetFileInformationByHandle(folder.Get(), &found)) {
    status = LastStatus();
    return {};
  }
  status = found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY ? Verify(folder.Get(), parent, path)
                                                             : Status::Missing;
  return status == Status::Done ? std::move(folder) : UniqueHandle();
}

Status WindowsPaths::CheckWay(std::string_view path) {
  std::wstring native;
  Status status = Native(path, native);
  if (status != Status::Done) return status;
  std::size_t last = path.rfind('\\');
  if (last == 2) return Status::Done;
  std::string_view parent = path.substr(0, last);
  auto now = steady_clock::now();
  if (parent == checked_ && now - checkedAt_ < kCheckLife) return Status::Done;
  Native(parent, native);
  UniqueHandle folder(CreateFileW(native.c_str(), FILE_READ_ATTRIBUTES, kShareAll, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  bool passedLink = false;
  if (!folder || !LeadsStraight(folder.Get(), parent)) {
    DWORD error = folder ? ERROR_SUCCESS : GetLastError();
    status = FollowWay(path, last, passedLink);
    if (status == Status::Done && error != ERROR_ACCESS_DENIED) status = StatusOf(error);
  }
  // A link that this path may pass isn't open to each of its neighbours.
  if (status == Status::Done && !passedLink) {
    checked_ = parent;
    checkedAt_ = now;
  }
  return status;
}

}  // namespace platform
