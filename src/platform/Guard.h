// What no operation may remove or list for removing, in one place below all callers.
#pragma once

#include <string_view>

namespace platform {

// An absolute path with a drive letter that isn't a drive's root, holds no empty, "." or ".." component, and,
// where the file system has such, no stream name and no device name. What removes a single file or folder
// asks this.
bool MayActOn(std::string_view path);

// The names that open a device of Windows in every folder, with any extension and with blanks behind them.
bool IsDeviceName(std::string_view name);

enum class Clearing {
  Allowed,
  UsersOwn,  // one of the folders that users keep their documents in: only by the user's own express wish
  Refused,
};
struct ClearingAnswer {
  Clearing clearing = Clearing::Allowed;
  // Why not, as the end of a sentence ("Windows doesn't start without it"); empty where it is allowed. Holds
  // for good.
  std::string_view reason = {};
};

// Whether all that lies in a folder may be removed. Refused: what MayActOn refuses; the Windows folder, those
// in it that Windows doesn't start without, the Program Files folders, the folder of all profiles, every
// profile's root, the program's own folder and its backups, and every folder above one of these or of a known
// folder. A folder is known by what it is: another drive letter, a link on the way, a second mount or a short
// name make no difference.
ClearingAnswer MayClear(std::string_view path);

// Not Refused: what removes a tree, or lists one for removing, asks this.
bool MayClearTree(std::string_view path);

// The program's own folder ("C:\Program Files\Tidorra"); set once when the settings are read.
void SetInstallFolder(std::string_view path);

}  // namespace platform
