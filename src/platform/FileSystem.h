// The primitives of the file system that a backend implements.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

// The outcome of a primitive.
enum class Status {
  Done,
  Missing,   // the file or a folder on the way isn't there
  Denied,    // no right to do it
  Locked,    // another process holds it
  Exists,    // something of that name is there already
  NotEmpty,  // a folder that still holds something
  Full,      // no space left
  Refused,   // a path that must not be acted on: it leads through a link, or is no absolute path
  Failed,    // anything else
  // Erasing has begun, and what the file held is gone in part or as a whole; yet the file couldn't be
  // removed, and what is left of it lies where it was.
  Overwritten,
};

// The attribute word's bits. Others never appear in it.
enum Attribute : std::uint32_t {
  kReadOnly = 1,
  kHidden = 2,
  kSystem = 4,
  kFolder = 16,
  kArchive = 32,
};

enum class EntryKind {
  Missing,
  File,
  Folder,
  FileLink,    // stands for another name, which isn't a folder or isn't there
  FolderLink,  // a symbolic link to a folder, or a junction
  Unreadable,  // it is there, and no more can be learned of it
};
inline bool IsLink(EntryKind kind) {
  return kind == EntryKind::FileLink || kind == EntryKind::FolderLink;
}

// A moment in nanoseconds since 1970-01-01 00:00 UTC.
using Moment = std::int64_t;

// What a file or folder is, whatever path leads to it.
struct Identity {
  std::uint64_t volume = 0;
  std::array<std::uint64_t, 2> file{};
  bool operator==(const Identity&) const = default;
};

struct EntryInfo {
  EntryKind kind = EntryKind::Missing;
  std::uint64_t size = 0;
  std::uint32_t attributes = 0;
  std::uint32_t names = 1;  // how many names (hard links) the file has
  Moment created = 0, accessed = 0, modified = 0;
  // Of the entry itself, a link's own. Given by Look alone, and not where the file system has none.
  std::optional<Identity> identity = {};
  // Who may read, write and execute it (the nine bits 0777), where the system has such bits. Given by Look
  // alone.
  std::optional<std::uint32_t> permissions = {};
};

// An open file. Closing happens at destruction and tells nothing: who writes calls Flush first.
class File {
 public:
  virtual ~File() = default;
  // At most buffer.size() bytes from `offset`; the number read, 0 at the end; empty on a failure.
  virtual std::optional<std::size_t> Read(std::uint64_t offset, std::span<std::byte> buffer) = 0;
  // All of it or a failure.
  virtual Status Write(std::uint64_t offset, std::span<const std::byte> data) = 0;
  virtual std::uint64_t Size() = 0;
  virtual Status Truncate(std::uint64_t size) = 0;
  // Brings what was written onto the disk itself.
  virtual Status Flush() = 0;
  // Sets the nine bits of EntryInfo::permissions, where the system has them.
  virtual Status SetPermissions(std::uint32_t /*permissions*/) { return Status::Done; }
};

// A file that is to be overwritten and removed, held from the beginning to the end: every step is about this
// file, or fails, whatever comes to its name meanwhile. A read-only file is writable while it is held; it
// gets its bit back unless it was removed.
class HeldFile : public File {
 public:
  // How many names (hard links) it has now.
  virtual std::uint32_t Names() = 0;
  // Gives it another name within its folder. Exists if something has that name, Missing if the file has lost
  // its own.
  virtual Status Rename(std::string_view name) = 0;
  // Missing if the file has lost its name.
  virtual Status Remove() = 0;
  // The first stretch at or behind `offset` that takes room on the disk; empty where none follows. What lies
  // between the stretches of a sparse file holds nothing.
  struct Stretch {
    std::uint64_t begin = 0, end = 0;
  };
  virtual std::optional<Stretch> NextStretch(std::uint64_t offset) = 0;
};

enum class OpenMode {
  Read,           // shared with readers and writers
  Modify,         // read and write a file that exists; Locked if another process holds a lock on it
  CreateNew,      // Exists if it is there, link or not
  CreateOrEmpty,  // never through a link at the last component: Refused
  Append,         // created where missing
};

// What a walk finds. Return False from a call to end the walk early.
class TreeVisitor {
 public:
  virtual ~TreeVisitor() = default;
  // A folder is about to be read; `path` ends in a backslash. The root comes first.
  virtual bool Folder(std::string_view path) = 0;
  // An entry of the folder last announced that isn't entered at this point: a file, a link, or a sub-folder
  // whose own Folder call comes later. `size` is 0 unless asked for.
  virtual bool Entry(std::string_view name, EntryKind kind, std::uint64_t size) = 0;
};

struct WalkOptions {
  bool recursive = true;
  bool sizes = false;
  // The root may itself be, or lie below, a link (a known folder); links below the root are never entered.
  bool rootIsKnown = false;
  // Folders below the root that are neither read nor entered: the same folders by another way.
  std::span<const Identity> spared = {};
};

// Learns the sizes of a listing's files before somebody asks, while the listing goes on and its files are
// being judged. It is told the files in the listing's order, each under a number that counts from 0.
class SizesAhead {
 public:
  virtual ~SizesAhead() = default;
  // The walk is to give the sizes (WalkOptions).
  virtual bool WantsSizes() const = 0;
  // A folder, with its backslash, and what lies directly in it. `size` is 0 unless the walk gives it.
  virtual void Folder(std::string_view path) = 0;
  virtual void File(std::string_view name, std::uint64_t size) = 0;
  // The listing is through; another one may follow.
  virtual void Listed() = 0;
  // In both, `file` must not fall from call to call: what lies before it isn't looked at any more.
  // True: it was a plain file with a size above 0 when it was looked at. False: it was empty, or nothing is
  // known of it. Never waits.
  virtual bool IsFilled(int file) = 0;
  // The size of a plain file, as it is or was two seconds ago at most. Nothing if it isn't a plain file, or
  // if the file itself must be asked.
  virtual std::optional<std::uint64_t> SizeOf(int /*file*/) { return std::nullopt; }
};

// Paths are absolute, "C:\folder\name", UTF-8; a name that isn't valid Unicode comes as it is and goes back
// the same. They match without regard to case; names are made as given. No primitive follows a link at a
// path's last component, and none acts through a link on the way, unless the way is that of a known folder. A
// path that isn't absolute, or that holds an empty, "." or ".." component, is Refused.
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  virtual EntryInfo Look(std::string_view path) = 0;
  // Kind, size and the read-only bit for certain; the rest of what Look gives may be missing where it costs
  // more.
  virtual EntryInfo LookBriefly(std::string_view path) { return Look(path); }
  // Removes a file, or a link to whatever as a link. One that another process holds is Locked, a folder is
  // Refused. A read-only file is Denied, unless `readOnlyToo`: then it goes, and the other names of the same
  // file keep the bit.
  virtual Status RemoveFile(std::string_view path, bool readOnlyToo = false) = 0;
  // Removes an empty folder, or a link to a folder as a link. A read-only folder as above.
  virtual Status RemoveFolder(std::string_view path, bool readOnlyToo = false) = 0;
  // Sets read-only, hidden, system and archive as given. Refused where `only` is given and the path leads to
  // something else.
  virtual Status SetAttributes(std::string_view path, std::uint32_t attributes,
                               std::optional<Identity> only = {}) = 0;
  // Sets the moments that are given.
  virtual Status SetTimes(std::string_view path, std::optional<Moment> created,
                          std::optional<Moment> accessed, std::optional<Moment> modified) = 0;
  // Within one drive. With `replace` a file of the new name goes away in the same step; otherwise Exists.
  virtual Status Rename(std::string_view from, std::string_view to, bool replace) = 0;
  // Without replacing anything. A name that differs in case alone from one that is there is a free one, where
  // the disk keeps both; Exists where it doesn't.
  virtual Status RenameExactly(std::string_view from, std::string_view to) { return Rename(from, to, false); }
  // Gives a plain file a second name on its drive, so that it has both. Failed or Denied where the disk has
  // no second names, Exists if anything has that one.
  virtual Status Link(std::string_view /*path*/, std::string_view /*name*/) { return Status::Failed; }
  // One folder; its parent must exist.
  virtual Status CreateFolder(std::string_view path) = 0;
  virtual std::unique_ptr<File> Open(std::string_view path, OpenMode mode, Status& status) = 0;
  // Opens a plain file to be erased, read-only or not. Locked if another process holds it, Refused for a link
  // and a folder.
  virtual std::unique_ptr<HeldFile> Hold(std::string_view path, Status& status) = 0;
  // Locked, if another process holds the file against changes; Done if not.
  virtual Status TestLock(std::string_view path) = 0;
  // Depth first, each folder before what lies in it, hidden and system entries too, in the order of the disk.
  // A folder below the root that can't be read is passed over. Missing for a root that isn't there, Denied or
  // Failed for one that can't be read, Refused for a root that is a link (see WalkOptions). A visitor that
  // ends the walk makes it Done.
  virtual Status Walk(std::string_view root, const WalkOptions& options, TreeVisitor& visitor) = 0;
  // Null where nothing is to be had.
  virtual std::unique_ptr<SizesAhead> LookAhead() { return nullptr; }
  // What the folder is that a path leads to, through links as well, then what lies above it, one after the
  // other to the top. Empty where there is no folder.
  virtual std::vector<Identity> Ancestry(std::string_view path) = 0;
  // Whether some names stand for devices ("aux", "com1.txt") and a colon in a name stands for a stream.
  virtual bool HasSpecialNames() const { return true; }
  // Brings what was written to many open files onto the disk, at less cost than one by one.
  virtual Status FlushAll(std::span<File* const> files);
  // Brings a folder's own changes (names made, moved, removed) onto the disk itself.
  virtual Status FlushFolder(std::string_view path) = 0;
};

inline Status FileSystem::FlushAll(std::span<File* const> files) {
  for (File* file : files) {
    Status status = file->Flush();
    if (status != Status::Done) return status;
  }
  return Status::Done;
}

}  // namespace platform
