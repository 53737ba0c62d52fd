#include "platform/windows/WindowsRecycleBin.h"

#include <windows.h>
#include <shellapi.h>

#include "platform/PathText.h"
#include "platform/windows/WindowsStatus.h"

namespace platform {

namespace {

Status StatusOfShell(int code) {
  switch (code) {
    case 0x7C:  // the path is invalid
      return Status::Missing;
    case 0x78:  // no right to the source
      return Status::Denied;
    default:
      // Numbers of the shell's own lie between 0x71 and 0xB7.
      return code >= 0x71 && code <= 0xB7 ? Status::Failed : StatusOf(static_cast<DWORD>(code));
  }
}

// `name` begins with its drive's root.
bool HasBin(const std::wstring& name) {
  return GetDriveTypeW(name.substr(0, 3).c_str()) == DRIVE_FIXED;
}

}  // namespace

Status WindowsRecycleBin::Move(std::string_view path) {
  if (!IsPlainPath(path) || IsDriveRoot(path)) return Status::Refused;
  Status status;
  // The shell goes by the path: from here on no folder on the way can be moved away.
  UniqueHandle parent = paths_.HoldParent(path, status);
  if (!parent) return status;
  EntryInfo info = files_.Look(path);
  if (info.kind == EntryKind::Missing) return Status::Missing;
  if (info.kind != EntryKind::File && info.kind != EntryKind::FileLink) return Status::Refused;
  status = files_.TestLock(path);
  if (status != Status::Done) return status;
  std::wstring name = paths_.ForShell(path);
  if (name.empty()) return Status::Refused;
  // Elsewhere the shell would remove the file for good.
  if (!HasBin(name)) return Status::Refused;

  // Two zeros end the list.
  name.append(2, L'\0');
  SHFILEOPSTRUCTW operation{};
  operation.wFunc = FO_DELETE;
  operation.pFrom = name.c_str();
  // The warning is asked before a file that the bin can't take would be removed for good.
  operation.fFlags = FOF_ALLOWUNDO | FOF_NOCONFIRMATION | FOF_SILENT | FOF_NOERRORUI | FOF_WANTNUKEWARNING;
  int code = SHFileOperationW(&operation);
  if (code != 0) return StatusOfShell(code);
  if (operation.fAnyOperationsAborted) return Status::Failed;
  return files_.LookBriefly(path).kind == EntryKind::Missing ? Status::Done : Status::Failed;
}

bool WindowsRecycleBin::IsThereFor(std::string_view path) {
  return IsPlainPath(path) && HasBin(paths_.ForShell(path));
}

Status WindowsRecycleBin::Empty(const std::function<bool()>&) {
  // Emptying an empty bin is told as a failure.
  SHQUERYRBINFO info{};
  info.cbSize = sizeof info;
  if (SUCCEEDED(SHQueryRecycleBinW(nullptr, &info)) && info.i64NumItems == 0) return Status::Done;
  HRESULT result =
      SHEmptyRecycleBinW(nullptr, nullptr, SHERB_NOCONFIRMATION | SHERB_NOPROGRESSUI | SHERB_NOSOUND);
  return SUCCEEDED(result) ? Status::Done : Status::Failed;
}

}  // namespace platform
