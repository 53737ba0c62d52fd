// From "C:\folder\name" to an open folder and a name in it.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unordered_map>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/Machine.h"
#include "platform/host/UniqueFd.h"

namespace platform {

// A folder that is open for finding names in it, and no more than that.
struct HostFolder {
  UniqueFd fd;
  dev_t device = 0;
  ino_t inode = 0;
  // The folder of the program's own data: the registry's files lie in it. They are never opened from here,
  // because the first closing of a file takes away all locks that this process has on it, the database's as
  // well.
  bool isOwn = false;
  // The file system keeps no extended attributes.
  bool noXattrs = false;
};

// Where a path leads: a name in a folder.
struct HostPlace {
  Status status = Status::Refused;
  std::shared_ptr<HostFolder> folder;  // set if status is Done
  std::string name;
  bool isRoot = false;     // a drive's root; the name is "."
  bool malformed = false;  // Refused because of its text, so that nothing can be there
  bool fromCache = false;  // the folder was found by an earlier call, a moment ago
  int Fd() const { return folder->fd.Get(); }
};

// Drives are the entries "c:", "d:", ... of one folder, and may be links. Every further step of a path is one
// openat that doesn't follow a link, so that nothing can be put under a path while it is being walked, and a
// path may be longer than the system's limit. Links are passed only on the way to a known folder, and lead
// nowhere out of their drive: an absolute one begins at the drive's root, as it does on the computer that
// made it.
//
// A name is taken as it stands if it is there, otherwise the first in the folder's listing that differs only
// in case. A native name that holds a backslash can't be said in a path: it is never listed, found or acted
// upon.
class HostPaths {
 public:
  HostPaths(std::string drivesFolder, Locale& locale, std::function<std::vector<std::string>()> knownFolders);

  HostPlace Find(std::string_view path);
  // The folder of a path itself. With `throughLinks` every step may be a link, the last as well.
  UniqueFd OpenFolder(std::string_view path, bool throughLinks, Status& status);
  // A folder that a listing has given, its path ending in a backslash; nothing where the way to it passes a
  // link or isn't as simple as it was. `drive` keeps the drive's own folder for the next call. May be called
  // from any thread.
  struct OpenedDrive {
    char letter = 0;
    UniqueFd folder;
  };
  UniqueFd OpenListed(std::string_view path, OpenedDrive& drive) const;
  // Replaces the place's name by another one that is there and differs only in case; False if there is none.
  bool TakeOtherCase(HostPlace& place);

  // To be called when this process has made or removed a name: `made` is the new one, or empty.
  void Changed(const HostFolder& folder, std::string_view made);
  // To be called when this process has made or moved a folder.
  void ForgetFolders() {
    cached_.reset();
    longWay_ = {};
  }
  // To be called when it has removed this one, which was empty.
  void ForgetFolder(dev_t device, ino_t inode) {
    if (cached_ && cached_->device == device && cached_->inode == inode) cached_.reset();
  }

  // The moment of the last Find, by a clock of its own, and whether what was found then is still taken for
  // granted.
  std::int64_t AskedAt() const { return askedAt_; }
  static bool StillHolds(std::int64_t found);

  std::string ToNative(std::string_view path);
  std::string FromNative(std::string_view native);
  // The letters of the drives that there are, as capitals and in order.
  std::string DriveLetters();

 private:
  // When a folder was last changed.
  struct Stamp {
    dev_t device = 0;
    ino_t inode = 0;
    std::int64_t modified = 0, changed = 0;
    bool operator==(const Stamp&) const = default;
  };
  // All names of a folder by their folded form, for the names that weren't found as given.
  struct Index {
    Stamp stamp;
    std::int64_t built = 0, cost = 0;  // how long the listing took
    bool settled = false;
    std::unordered_multimap<std::uint64_t, std::uint32_t>
        places;         // hash of the folded name, place in `names`
    std::string names;  // each ended by a zero
  };

  UniqueFd OpenDrive(char letter) const;
  // A way to be followed: path[0, end), on behalf of the whole path.
  struct Way {
    std::string_view path;
    std::size_t end;
    bool throughLinks = false;
    int drive = -1;
    bool shared = false;  // its beginning was found by an earlier call, a moment ago
    std::vector<std::size_t> links =
        {};                  // where the components that are links end, as far as it has been followed
    std::string names = {};  // of the components so far, as they are on the disk, with slashes
  };
  UniqueFd Step(int folder, Way& way, std::size_t end, Status& status);
  static UniqueFd OpenStraight(const Way& way);
  // The way that was followed last of those that are too long for one call, kept because neighbours come one
  // after the other: what each component was, and the last one open. It counts for as long as a folder counts
  // as found, or for as long as it took to follow.
  struct LongWay {
    struct Component {
      std::size_t end, namesEnd;
      Identity identity;
    };
    std::string path, names;  // as it was given, up to the last component; as in Way
    std::vector<Component> components;
    UniqueFd folder;
    std::int64_t at = 0, life = 0;
  };
  // The folder of the longest beginning of the way that the kept one shares; `begin` is where the next
  // component begins. Nothing where that can't be told.
  UniqueFd TakeShared(Way& way, std::size_t& begin);
  void Keep(const Way& way, int folder, std::int64_t since);
  UniqueFd Follow(Way& way, Status& status);
  enum class Reach { ToOrFromKnownFolder, FromKnownFolder };
  bool MayPassLink(std::string_view link, std::string_view path, Reach reach) const;
  bool FindOtherCase(int folder, std::string_view name, std::string& found);
  Index* IndexOf(int folder);
  static bool StampOf(int folder, Stamp& stamp);
  void AddTo(Index& index, std::string_view name);

  std::string drivesFolder_, dataFolder_;
  Locale& locale_;
  std::function<std::vector<std::string>()> knownFolders_;

  // The folder that was used last, because neighbours come one after the other.
  std::shared_ptr<HostFolder> cached_;
  std::string cachedPath_;
  std::int64_t cachedAt_ = 0, askedAt_ = 0;
  LongWay longWay_;

  std::vector<std::unique_ptr<Index>> indexes_;
  std::size_t nextIndex_ = 0;
  Stamp ownStamp_;
};

inline Identity IdentityOf(const struct stat& found) {
  return {found.st_dev, {found.st_ino, 0}};
}

}  // namespace platform
