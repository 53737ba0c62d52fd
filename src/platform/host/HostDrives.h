// The drives of the played computer.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "platform/Machine.h"

namespace platform {

// A drive is an entry "c:" of the drives folder (in either case): a folder, a mount point or a link to one.
// They come in the order of their letters.
//
// What a drive is, the optional plain file drives.ini (64 KB at most) in the same folder may tell, a line for
// each: the drive, one of "removable", "fixed", "network", "cdrom", "ramdisk" and "unknown", and if wanted
// "label=" with the rest of the line:
//
//   d: removable label=Holiday pictures
//
// Otherwise a drive is fixed, unless it lies on a disk of its own (another than the drives folder is on) that
// the system knows to be removable, a network share or an optical disk; and its label is that of the disk.
class HostDrives : public Drives {
 public:
  explicit HostDrives(std::string drivesFolder) : folder_(std::move(drivesFolder)) {}
  std::vector<Drive> List() override;
  // Free is what the user may still fill, used is the rest; the cluster is the file system's smallest
  // allocation. The file system's name is "NTFS", "FAT32" or "exFAT" for those of Windows and the host's own
  // name for others.
  std::optional<DriveInfo> Info(std::string_view root) override;

 private:
  struct Mark {
    std::optional<DriveKind> kind;
    std::optional<std::string> label;
  };
  // The native folder of each drive by its capital letter.
  std::map<char, std::string> Find() const;
  std::map<char, Mark> ReadMarks() const;
  DriveKind KindOf(const std::string& native) const;
  std::string LabelOf(const std::string& native) const;
  bool OnDiskOfItsOwn(const std::string& native, unsigned long& device) const;

  std::string folder_;
};

}  // namespace platform
