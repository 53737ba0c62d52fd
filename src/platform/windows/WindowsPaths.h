// How a path finds its file.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/Machine.h"
#include "platform/windows/WindowsHandle.h"

namespace platform {

// An entry that is open, and what it is.
struct WindowsEntry {
  UniqueHandle handle;
  EntryInfo info;
  // The system's own attributes, of which `info` holds some.
  std::uint32_t attributes = 0;
  explicit operator bool() const { return static_cast<bool>(handle); }
};

// Every path is handed to the system as "\\?\C:\folder\name", so that it is taken as it stands: of any
// length, with blanks and dots at a name's end, and never as a device.
//
// A reparse point is a link, unless its tag is one of those known to stand for the file's own content (a file
// that is compressed, deduplicated, or kept in a cloud): an unknown one is never passed. The system itself
// follows links on the way, so what has been opened is asked where it lies: if that isn't the path that was
// given, the way is looked at step by step, and a link is passed only where it is the way to a known folder.
// What is to be made is made in a folder that has been asked so and is held meanwhile, so that nothing can
// take its place.
class WindowsPaths {
 public:
  // `drivesFolder` is empty, or a native folder whose sub-folders "c", "d", ... are the drives.
  WindowsPaths(std::wstring drivesFolder, Locale& locale,
               std::function<std::vector<std::string>()> knownFolders);

  // Refused for what is no plain path, Missing for a name that nothing on this system can have.
  Status Native(std::string_view path, std::wstring& native) const;
  // The path in the form that the shell takes, which is shorter and would change some names; empty if there
  // is none that means the same file.
  std::wstring ForShell(std::string_view path) const;
  // A native path in the program's form; empty for what lies on no drive.
  std::string FromNative(std::wstring_view native) const;

  // Opens what lies at the path, a link as a link, shared with everybody. `access` as the system has it;
  // FILE_READ_ATTRIBUTES is added.
  WindowsEntry Open(std::string_view path, std::uint32_t access, Status& status);
  // Opens the folder above the path and holds it against being moved or removed. Missing where it is no
  // folder.
  UniqueHandle HoldParent(std::string_view path, Status& status);
  // For what has just been made at the path: whether it lies there. Something may have become a link
  // meanwhile, though nothing can have been moved away.
  Status CheckMade(HANDLE made, std::string_view path) { return Verify(made, path, path); }
  // Whether the way to the path leads through no link that it may not pass, for looking only: the answer for
  // one folder holds for its neighbours for a moment.
  Status CheckWay(std::string_view path);

  // Where the system says that something lies, behind links, other letters and `subst`: "\\?\C:\folder", or
  // by the volume's own name where it has no letter; empty where it can't tell.
  static std::wstring RealPathOf(HANDLE opened);

  // Link or not, for an entry with the attribute of a reparse point.
  static bool IsLinkTag(std::uint32_t tag);
  static EntryKind KindOf(std::uint32_t attributes, std::uint32_t tag);

 private:
  struct Root {
    std::wstring real;  // where the system says that the drive's root lies
    std::chrono::steady_clock::time_point asked;
  };
  std::wstring NativeRoot(char letter) const;
  const std::wstring& RealRoot(char letter);
  bool LeadsStraight(HANDLE opened, std::string_view path);
  // `opened` is what lies at `at`, which is `path` or the folder above it.
  Status Verify(HANDLE opened, std::string_view at, std::string_view path);
  Status FollowWay(std::string_view path, std::size_t end, bool& passedLink) const;
  bool MayPassLink(std::string_view link, std::string_view path) const;

  std::wstring drivesFolder_;
  Locale& locale_;
  std::function<std::vector<std::string>()> knownFolders_;
  std::map<char, Root> roots_;
  std::string checked_;
  std::chrono::steady_clock::time_point checkedAt_;
};

// What the system tells of an entry by its name, without opening it; 0 if it can't. `tag` is 0 where it has
// none.
DWORD FindEntry(const std::wstring& native, WIN32_FIND_DATAW& found);

Moment MomentOf(const FILETIME& time);
FILETIME TimeOf(Moment moment);

}  // namespace platform
