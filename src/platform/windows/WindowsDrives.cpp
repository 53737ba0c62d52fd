#include "platform/windows/WindowsDrives.h"

#include <windows.h>

#include "platform/PathText.h"
#include "platform/windows/WindowsText.h"

namespace platform {

namespace {

DriveKind KindOf(UINT type) {
  switch (type) {
    case DRIVE_REMOVABLE:
      return DriveKind::Removable;
    case DRIVE_FIXED:
      return DriveKind::Fixed;
    case DRIVE_REMOTE:
      return DriveKind::Network;
    case DRIVE_CDROM:
      return DriveKind::CdRom;
    case DRIVE_RAMDISK:
      return DriveKind::RamDisk;
    default:
      return DriveKind::Unknown;
  }
}

double Bytes(const ULARGE_INTEGER& number) {
  return static_cast<double>(number.QuadPart);
}

}  // namespace

std::vector<Drive> WindowsDrives::List() {
  if (!played_.empty()) return played_;
  std::vector<Drive> drives;
  DWORD letters = GetLogicalDrives();
  for (int i = 0; i < 26; ++i) {
    if (!(letters & (1u << i))) continue;
    const wchar_t root[] = {static_cast<wchar_t>(L'A' + i), L':', L'\\', 0};
    UINT type = GetDriveTypeW(root);
    if (type != DRIVE_NO_ROOT_DIR) drives.push_back({static_cast<char>('A' + i), KindOf(type)});
  }
  return drives;
}

std::optional<DriveInfo> WindowsDrives::Info(std::string_view root) {
  std::wstring native;
  if (!IsDriveRoot(root) || paths_.Native(root, native) != Status::Done) return std::nullopt;
  ULARGE_INTEGER free, total;
  if (!GetDiskFreeSpaceExW(native.c_str(), &free, &total, nullptr)) return std::nullopt;
  DriveInfo info;
  info.total = Bytes(total);
  info.free = Bytes(free);
  info.used = info.total - info.free;
  // These two take a drive's root alone.
  std::wstring volume = native;
  if (played_.empty())
    volume = native.substr(4);
  else
    volume = native.substr(4, 3);
  DWORD sectors, bytes, freeClusters, clusters;
  if (GetDiskFreeSpaceW(volume.c_str(), &sectors, &bytes, &freeClusters, &clusters))
    info.clusterSize = static_cast<long>(sectors * bytes);
  wchar_t label[MAX_PATH + 1], fileSystem[MAX_PATH + 1];
  if (GetVolumeInformationW(volume.c_str(), label, MAX_PATH + 1, nullptr, nullptr, nullptr, fileSystem,
                            MAX_PATH + 1)) {
    info.label = ToUtf8(label);
    info.fileSystem = ToUtf8(fileSystem);
  }
  return info;
}

}  // namespace platform
