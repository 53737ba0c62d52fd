#include "platform/host/HostWalk.h"

#include <cstdint>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <vector>

#include "platform/host/HostDirectory.h"
#include "platform/host/HostStatus.h"

namespace platform {

namespace {

constexpr int kOpenFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
// So many folders on the way down may be open at a time; the others are opened anew when their turn comes.
constexpr std::size_t kOpenFolders = 100;
constexpr std::size_t kBufferWords = 256 * 1024 / 8;

// A folder whose sub-folders are being entered.
struct Level {
  UniqueFd folder;         // closed where it isn't needed any more, or for a while
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
        levels_.pop_back();
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
    path_.append(name).push_back('\\');
    level.next += path_.size() - level.pathLength;
    if (level.AtEnd()) level.folder.Close();
    return folder;
  }

  // The folder of a level from the root down, name by name.
  UniqueFd Reopen(std::size_t index) {
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
    if (levels_.size() > kOpenFolders) levels_[levels_.size() - 1 - kOpenFolders].folder.Close();
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
    bool isFolder = fstatat(folder, name, &found, AT_NO_AUTOMOUNT) == 0 && S_ISDIR(found.st_mode);
    return isFolder ? EntryKind::FolderLink : EntryKind::FileLink;
  }

  const UniqueFd& root_;
  std::string path_;
  const WalkOptions& options_;
  TreeVisitor& visitor_;
  std::vector<std::uint64_t> buffer_;
  std::vector<Level> levels_;
};

}  // namespace

Status WalkFolders(const UniqueFd& root, std::string path, const WalkOptions& options, TreeVisitor& visitor) {
  return Walker(root, std::move(path), options, visitor).Run();
}

}  // namespace platform
