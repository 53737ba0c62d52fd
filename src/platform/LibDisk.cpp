#include "platform/LibDisk.h"

#include <cctype>

namespace platform {

namespace {

DriveInfo Info(const std::string& root) {
  return CurrentMachine().GetDrives().Info(root).value_or(DriveInfo());
}

}  // namespace

double LibDisk::TotalSpace(const std::string& root) const {
  return Info(root).total;
}
double LibDisk::UsedSpace(const std::string& root) const {
  return Info(root).used;
}
double LibDisk::FreeSpace(const std::string& root) const {
  return Info(root).free;
}
std::string LibDisk::VolumeName(const std::string& root) const {
  return Info(root).label;
}
std::string LibDisk::FileSystem(const std::string& root) const {
  return Info(root).fileSystem;
}
long LibDisk::ClusterSize(const std::string& root) const {
  return Info(root).clusterSize;
}

std::string LibDisk::DriveType(const std::string& root) const {
  if (root.empty()) return {};
  for (const Drive& drive : CurrentMachine().GetDrives().List()) {
    if (std::toupper(static_cast<unsigned char>(root[0])) != drive.letter) continue;
    switch (drive.kind) {
      case DriveKind::Removable:
        return "Removable drive";
      case DriveKind::Fixed:
        return "Fixed drive";
      case DriveKind::Network:
        return "Network drive";
      case DriveKind::CdRom:
        return "CD-ROM drive";
      case DriveKind::RamDisk:
        return "RAM disk";
      case DriveKind::Unknown:
        return "Unknown drive";
    }
  }
  return {};
}

std::vector<FileSystemObject::Drive> FileSystemObject::Drives() const {
  std::vector<Drive> drives;
  for (const platform::Drive& drive : CurrentMachine().GetDrives().List())
    drives.push_back({std::string(1, drive.letter), static_cast<int>(drive.kind)});
  return drives;
}

}  // namespace platform
