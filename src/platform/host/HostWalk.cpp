#include "platform/host/HostWalk.h"

#include <algorithm>
#include <cstdint>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <vector>

#include "platform/host/HostDirectory.h"
#include "platform/host/HostPaths.h"
#include "platform/host/HostStatus.h"

namespace platform {

namespace {

constexpr int kOpenFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
// So many folders on the way down may be open at a time; the others are opened anew when their turn comes.
constexpr std::size_t kOpenFolders = 100;
// How often one of them may be looked for from the root down, because the way back up to it was changed.
constexpr int kReopenings = 16;
constexpr std::size_t kBufferWords = 256 * 1024 / 8;

// A folder whose sub-folders are being entered.
struct Level {
  UniqueFd folder;         // closed for a while where many are open
  Identity identity{};     // known once it has been closed
  std::size_t pathLength;  // of the folder's path, its backslash included
  std::string pending;     // names of the sub-folders, each ended by a zero
  std::size_t next = 0;    // where in `pending` the next one stands
  bool AtEnd() const { return next == pending.size(); }
};

class Walker {
 public:
  Walker(const UniqueFd& root, std::string path, const WalkOptions& options, TreeVisitor& visitor)
      : root_(root), path_(std::move(path)), options_(options), visitor_(visitor), buffer_(kBufferWords) {}

  Status Run() {
    UniqueFd folder(openat(root_.Get(), ".", kOpenFlags));
    if (!folder) return StatusOf(errno);
    Status status = Status::Done;
    if (!Read(std::move(folder), status)) return Status::Done;
    while (status == Status::Done && !levels_.empty()) {
      Level& level = levels_.back();
      path_.resize(level.pathLength);
      if (level.AtEnd()) {
        GoUp();
        continue;
      }
      UniqueFd next = OpenNext(level);
      Status unused;
      if (next && !Read(std::move(next), unused)) return Status::Done;
    }
    return status;
  }

 private:
  // Opens the level's next sub-folder and adds its name to the path; nothing if it can't be read.
  UniqueFd OpenNext(Level& level) {
    if (!level.folder) level.folder = Reopen(levels_.size() - 1);
    const char* name = level.pending.c_str() + level.next;
    UniqueFd folder;
    if (level.folder) folder = UniqueFd(openat(level.folder.Get(), name, kOpenFlags));
    if (folder && IsSpared(folder.Get())) folder.Close();
    path_.append(name).push_back('\\');
    level.next += path_.size() - level.pathLength;
    return folder;
  }

  // Leaves the last level. The one above it is opened again by its way up, if that still leads there.
  void GoUp() {
    UniqueFd below = std::move(levels_.back().folder);
    levels_.pop_back();
    if (levels_.empty() || levels_.back().folder || !below) return;
    UniqueFd above(openat(below.Get(), "..", O_PATH | kOpenFlags));
    struct stat found;
    if (above && fstat(above.Get(), &found) == 0 && IdentityOf(found) == levels_.back().identity)
      levels_.back().folder = std::move(above);
  }

  // Closes a level's folder for a while.
  static void Rest(Level& level) {
    struct stat found;
    if (!level.folder || fstat(level.folder.Get(), &found) != 0) return;
    level.identity = IdentityOf(found);
    level.folder.Close();
  }

  bool IsSpared(int folder) const {
    struct stat found;
    return !options_.spared.empty() && fstat(folder, &found) == 0 &&
           std::find(options_.spared.begin(), options_.spared.end(), IdentityOf(found)) !=
               options_.spared.end();
  }

  // The folder of a level from the root down, name by name.
  UniqueFd Reopen(std::size_t index) {
    if (++reopenings_ > kReopenings) return {};
    UniqueFd folder(openat(root_.Get(), ".", O_PATH | kOpenFlags));
    for (std::size_t i = 1; i <= index && folder; ++i) {
      std::size_t begin = levels_[i - 1].pathLength, end = levels_[i].pathLength - 1;
      std::string name = path_.substr(begin, end - begin);
      folder = UniqueFd(openat(folder.Get(), name.c_str(), O_PATH | kOpenFlags));
    }
    return folder;
  }

  // Hands out what lies in the folder of path_; False if the visitor has had enough. `status` tells of a
  // folder of which nothing could be read.
  bool Read(UniqueFd folder, Status& status) {
    if (!visitor_.Folder(path_)) return false;
    DirectoryReader reader(folder.Get(), reinterpret_cast<char*>(buffer_.data()), buffer_.size() * 8);
    Level level;
    level.pathLength = path_.size();
    bool any = false;
    while (const char* name = reader.Next()) {
      any = true;
      std::uint64_t size = 0;
      EntryKind kind = KindOf(folder.Get(), name, reader.Type(), size);
      if (kind == EntryKind::Missing) continue;
      if (kind == EntryKind::Folder && options_.recursive) level.pending.append(name).push_back('\0');
      if (!visitor_.Entry(name, kind, size)) return false;
    }
    if (reader.Error() && !any) status = StatusOf(reader.Error());
    if (level.pending.empty()) return true;
    level.folder = std::move(folder);
    levels_.push_back(std::move(level));
    if (levels_.size() > kOpenFolders) Rest(levels_[levels_.size() - 1 - kOpenFolders]);
    return true;
  }

  // Missing for what isn't listed.
  EntryKind KindOf(int folder, const char* name, unsigned char type, std::uint64_t& size) {
    if (type == DT_DIR) return EntryKind::Folder;
    if (type == DT_REG && !options_.sizes) return EntryKind::File;
    struct stat found;
    if (type != DT_LNK) {
      if (type != DT_REG && type != DT_UNKNOWN) return EntryKind::Missing;
      if (fstatat(folder, name, &found, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT) != 0)
        return errno == ENOENT ? EntryKind::Missing : EntryKind::Unreadable;
      if (S_ISDIR(found.st_mode)) return EntryKind::Folder;
      if (S_ISREG(found.st_mode)) {
        size = options_.sizes ? static_cast<std::uint64_t>(found.st_size) : 0;
        return EntryKind::File;
      }
      if (!S_ISLNK(found.st_mode)) return EntryKind::Missing;
    }
    return LeadsToFolder(folder, name) ? EntryKind::FolderLink : EntryKind::FileLink;
  }

  const UniqueFd& root_;
  std::string path_;
  const WalkOptions& options_;
  TreeVisitor& visitor_;
  std::vector<std::uint64_t> buffer_;
  std::vector<Level> levels_;
  int reopenings_ = 0;
};

}  // namespace

Status WalkFolders(const UniqueFd& root, std::string path, const WalkOptions& options, TreeVisitor& visitor) {
  return Walker(root, std::move(path), options, visitor).Run();
}

}  // namespace platform
