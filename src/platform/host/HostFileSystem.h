// The file system of a Windows computer that is played on real files.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/host/HostPaths.h"

namespace platform {

// See HostPaths for how a path finds its file, HostAttributes for the attribute word and HostLocks for what
// counts as being in use. What the right to write takes care of on Windows is tested here as well, because
// the kernel lets the superuser do everything. A folder that a file system is mounted on is a folder like
// others.
//
// Sockets, pipes and devices are Unreadable and never acted upon. The moment of making can't be set on a
// native file, so that SetTimes leaves it as it is. Files that lie directly in the folder of the program's
// own data (the parent of the drives' folder) are Locked.
class HostFileSystem : public FileSystem {
 public:
  // `drivesFolder` is a native absolute path. `knownFolders` gives the paths of the known folders; it is
  // asked only where a link lies on the way.
  HostFileSystem(std::string drivesFolder, Locale& locale,
                 std::function<std::vector<std::string>()> knownFolders);

  EntryInfo Look(std::string_view path) override;
  EntryInfo LookBriefly(std::string_view path) override;
  Status RemoveFile(std::string_view path, bool readOnlyToo = false) override;
  Status RemoveFolder(std::string_view path, bool readOnlyToo = false) override;
  Status SetAttributes(std::string_view path, std::uint32_t attributes,
                       std::optional<Identity> only = {}) override;
  Status SetTimes(std::string_view path, std::optional<Moment> created, std::optional<Moment> accessed,
                  std::optional<Moment> modified) override;
  Status Rename(std::string_view from, std::string_view to, bool replace) override;
  Status RenameExactly(std::string_view from, std::string_view to) override;
  Status Link(std::string_view path, std::string_view name) override;
  Status CreateFolder(std::string_view path) override;
  std::unique_ptr<File> Open(std::string_view path, OpenMode mode, Status& status) override;
  std::unique_ptr<HeldFile> Hold(std::string_view path, Status& status) override;
  Status TestLock(std::string_view path) override;
  Status Walk(std::string_view root, const WalkOptions& options, TreeVisitor& visitor) override;
  std::unique_ptr<SizesAhead> LookAhead() override;
  std::vector<Identity> Ancestry(std::string_view path) override;
  bool HasSpecialNames() const override { return false; }
  Status FlushAll(std::span<File* const> files) override;
  Status FlushFolder(std::string_view path) override;

  // The native path behind "C:\...", names in their own case where they are there; empty for no drive path
  // and a drive that isn't there. For showing and opening, not for acting: it leads through links.
  std::string ToNative(std::string_view path) { return paths_.ToNative(path); }
  // The path of a native one; empty for what lies on no drive.
  std::string FromNative(std::string_view native) { return paths_.FromNative(native); }
  // Opens a folder for reading, not a link; with `make` it is made where it is missing, with just these
  // rights.
  UniqueFd OpenOrMakeFolder(std::string_view path, std::optional<mode_t> make, Status& status);
  // Moves a file, or a link as a link, into a folder that is open, under a name that nothing may have.
  Status MoveInto(std::string_view path, int folder, const std::string& name);
  // See HostMachine::MakePrivate.
  void TakeRightsOfOthers(std::string_view path);
  // The letters of the drives that there are, as capitals and in order.
  std::string DriveLetters() { return paths_.DriveLetters(); }

 private:
  // What a path where nothing could be looked at is: Missing, or Unreadable.
  static EntryInfo NothingSeen(const HostPlace& place, Status status);
  // Finds what lies at a path, in whatever case. `stat` is tried on `place` and answers as the system call.
  // Where the result is Missing and only the last name is, `place` has the folder.
  template <typename Stat>
  Status Locate(std::string_view path, HostPlace& place, Stat&& stat);
  // The same; `found` is of the entry itself, not of what a link stands
  // for.
  Status Find(std::string_view path, HostPlace& place, struct stat& found);

  std::unique_ptr<File> OpenExisting(const HostPlace& place, const struct stat& found, OpenMode mode,
                                     Status& status);

  Status RemoveFileAt(const HostPlace& place, const struct stat& found, bool readOnlyToo);
  // Opens what lies at a path for nothing but to be looked at and changed, a link as a link.
  UniqueFd OpenEntry(std::string_view path, HostPlace& place, struct stat& found, Status& status);

  HostPaths paths_;

  // The plain file that LookBriefly saw last: who removes a file asks for its size first. It counts as seen
  // as long as a folder counts as found (HostPaths), until anything else is done here, and once.
  struct Seen {
    std::string path;  // empty for none
    HostPlace place;
    struct stat found;
    std::int64_t at = 0;
  };
  Seen seen_;
};

}  // namespace platform
