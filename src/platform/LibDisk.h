// The drives.
#pragma once

#include <string>
#include <vector>

#include "platform/Machine.h"

namespace platform {

// `root` is a drive's root path ("C:\"). A drive that isn't there or isn't ready gives 0 or an empty string.
class LibDisk {
 public:
  double TotalSpace(const std::string& root) const;  // bytes
  double UsedSpace(const std::string& root) const;
  double FreeSpace(const std::string& root) const;
  std::string VolumeName(const std::string& root) const;
  // The type as text for display: "Removable drive", "Fixed drive", "Network drive", "CD-ROM drive", "RAM
  // disk", "Unknown drive".
  std::string DriveType(const std::string& root) const;
  std::string FileSystem(const std::string& root) const;
  long ClusterSize(const std::string& root) const;  // bytes
};

// The collection of the system's drives, each with its letter and type.
class FileSystemObject {
 public:
  struct Drive {
    std::string DriveLetter;
    int DriveType;  // 1 removable, 2 fixed, 3 network, 4 CD-ROM, 5 RAM disk
  };
  std::vector<Drive> Drives() const;
};

}  // namespace platform
