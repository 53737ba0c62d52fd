#include "platform/windows/WindowsWalk.h"

#include <vector>

#include "platform/windows/WindowsPaths.h"
#include "platform/windows/WindowsStatus.h"
#include "platform/windows/WindowsText.h"

namespace platform {

namespace {

// A folder's listing, from which FindFirstFile takes the first entry at once.
class Listing {
 public:
  explicit Listing(const std::wstring& pattern)
      : search_(FindFirstFileExW(pattern.c_str(), FindExInfoBasic, &entry, FindExSearchNameMatch, nullptr,
                                 FIND_FIRST_EX_LARGE_FETCH)),
        error_(search_ == INVALID_HANDLE_VALUE ? GetLastError() : ERROR_SUCCESS) {}
  ~Listing() {
    if (search_ != INVALID_HANDLE_VALUE) FindClose(search_);
  }
  Listing(const Listing&) = delete;
  Listing& operator=(const Listing&) = delete;

  // A drive's root may hold nothing at all, not even itself: then nothing matches.
  bool IsEmpty() const { return error_ == ERROR_FILE_NOT_FOUND; }
  Status Opened() const { return IsEmpty() ? Status::Done : StatusOf(error_); }
  bool Next() { return FindNextFileW(search_, &entry) != FALSE; }

  WIN32_FIND_DATAW entry{};

 private:
  HANDLE search_;
  DWORD error_;
};

bool IsDots(const wchar_t* name) {
  return name[0] == L'.' && (name[1] == 0 || (name[1] == L'.' && name[2] == 0));
}

// A folder whose sub-folders are being entered.
struct Level {
  std::size_t nativeLength, pathLength;  // of the folder's own, the backslash included
  std::wstring pending;                  // names of the sub-folders, each ended by a zero
  std::size_t next = 0;                  // where in `pending` the next one stands
};

class Walker {
 public:
  Walker(std::wstring native, std::string path, const WalkOptions& options, TreeVisitor& visitor)
      : native_(std::move(native)), path_(std::move(path)), options_(options), visitor_(visitor) {}

  Status Run() {
    Status status = Status::Done;
    if (!Read(status) || status != Status::Done) return status;
    while (!levels_.empty()) {
      Level& level = levels_.back();
      native_.resize(level.nativeLength);
      path_.resize(level.pathLength);
      if (level.next == level.pending.size()) {
        levels_.pop_back();
        continue;
      }
      std::wstring_view name = level.pending.c_str() + level.next;
      level.next += name.size() + 1;
      native_.append(name).push_back(L'\\');
      AppendUtf8(name, path_);
      path_ += '\\';
      Status unused;
      if (!Read(unused)) return Status::Done;
    }
    return status;
  }

 private:
  // Hands out what lies in the folder of path_; False if the visitor has had enough. `status` tells of a
  // folder that can't be read.
  bool Read(Status& status) {
    native_ += L'*';
    Listing listing(native_);
    native_.pop_back();
    status = listing.Opened();
    if (status != Status::Done) return true;
    if (!visitor_.Folder(path_)) return false;
    if (listing.IsEmpty()) return true;
    Level level{native_.size(), path_.size(), {}};
    do {
      const WIN32_FIND_DATAW& entry = listing.entry;
      if (IsDots(entry.cFileName)) continue;
      EntryKind kind = WindowsPaths::KindOf(entry.dwFileAttributes, entry.dwReserved0);
      std::uint64_t size = std::uint64_t{entry.nFileSizeHigh} << 32 | entry.nFileSizeLow;
      if (kind == EntryKind::Folder && options_.recursive)
        level.pending.append(entry.cFileName).push_back(L'\0');
      name_.clear();
      AppendUtf8(entry.cFileName, name_);
      if (!visitor_.Entry(name_, kind, options_.sizes && kind == EntryKind::File ? size : 0)) return false;
    } while (listing.Next());
    if (!level.pending.empty()) levels_.push_back(std::move(level));
    return true;
  }

  std::wstring native_;
  std::string path_, name_;
  const WalkOptions& options_;
  TreeVisitor& visitor_;
  std::vector<Level> levels_;
};

}  // namespace

Status WalkFolders(std::wstring native, std::string path, const WalkOptions& options, TreeVisitor& visitor) {
  return Walker(std::move(native), std::move(path), options, visitor).Run();
}

}  // namespace platform
