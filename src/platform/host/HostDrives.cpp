#include "platform/host/HostDrives.h"

#include <dirent.h>
#include <fcntl.h>
#include <fstream>
#include <sstream>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/sysmacros.h>
#include <sys/vfs.h>
#include <unistd.h>

#include "platform/host/UniqueFd.h"

namespace platform {

namespace {

// Of <linux/magic.h> and the file systems' own sources.
constexpr unsigned long kExt = 0xEF53, kBtrfs = 0x9123683E, kXfs = 0x58465342, kF2fs = 0xF2F52010,
                        kTmpfs = 0x01021994, kOverlay = 0x794C7630, kZfs = 0x2FC12FC1, kMsdos = 0x4D44,
                        kExfat = 0x2011BAB0, kNtfs = 0x5346544E, kNtfs3 = 0x7366746E, kFuse = 0x65735546,
                        kNfs = 0x6969, kCifs = 0xFF534D42, kSmb2 = 0xFE534D42, kSmb = 0x517B,
                        kNinep = 0x01021997, kIso = 0x9660, kUdf = 0x15013346;

unsigned long MagicOf(const std::string& native) {
  struct statfs info;
  if (statfs(native.c_str(), &info) != 0) return 0;
  return static_cast<unsigned long>(info.f_type) & 0xFFFFFFFFul;
}

const char* NameOf(unsigned long magic) {
  switch (magic) {
    case kExt:
      return "ext4";
    case kBtrfs:
      return "btrfs";
    case kXfs:
      return "xfs";
    case kF2fs:
      return "f2fs";
    case kTmpfs:
      return "tmpfs";
    case kOverlay:
      return "overlay";
    case kZfs:
      return "zfs";
    case kMsdos:
      return "FAT32";
    case kExfat:
      return "exFAT";
    case kNtfs:
    case kNtfs3:
    case kFuse:  // the usual driver for NTFS is one of these
      return "NTFS";
    case kNfs:
      return "nfs";
    case kCifs:
    case kSmb2:
    case kSmb:
      return "smb";
    case kNinep:
      return "9p";
    case kIso:
      return "CDFS";
    case kUdf:
      return "UDF";
    default:
      return "";
  }
}

char Capital(char letter) {
  if (letter >= 'a' && letter <= 'z') return static_cast<char>(letter - 32);
  return letter >= 'A' && letter <= 'Z' ? letter : '\0';
}

// The capital letter of an entry "c:"; 0 for any other name.
char LetterOf(std::string_view entry) {
  return entry.size() == 2 && entry[1] == ':' ? Capital(entry[0]) : '\0';
}

std::optional<DriveKind> KindNamed(std::string_view name) {
  if (name == "removable") return DriveKind::Removable;
  if (name == "fixed") return DriveKind::Fixed;
  if (name == "network") return DriveKind::Network;
  if (name == "cdrom") return DriveKind::CdRom;
  if (name == "ramdisk") return DriveKind::RamDisk;
  if (name == "unknown") return DriveKind::Unknown;
  return std::nullopt;
}

constexpr std::size_t kLargestMarks = 64 * 1024;

// A plain file of at most `most` bytes; empty for anything else. Nothing is waited for.
std::string ReadSmallFile(const std::string& native, std::size_t most) {
  UniqueFd file(open(native.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  struct stat info;
  if (!file || fstat(file.Get(), &info) != 0 || !S_ISREG(info.st_mode)) return {};
  std::string text(most + 1, '\0');
  std::size_t length = 0;
  ssize_t got;
  while (length < text.size() && (got = read(file.Get(), text.data() + length, text.size() - length)) > 0)
    length += static_cast<std::size_t>(got);
  text.resize(length <= most ? length : 0);
  return text;
}

std::string BlockDevice(unsigned long device) {
  return "/sys/dev/block/" + std::to_string(major(device)) + ":" + std::to_string(minor(device));
}

}  // namespace

std::map<char, std::string> HostDrives::Find() const {
  std::map<char, std::string> found;
  DIR* folder = opendir(folder_.c_str());
  if (!folder) return found;
  while (const dirent* entry = readdir(folder)) {
    char letter = LetterOf(entry->d_name);
    if (letter == '\0') continue;
    std::string native = folder_ + "/" + entry->d_name;
    struct stat info;
    if (stat(native.c_str(), &info) != 0 || !S_ISDIR(info.st_mode)) continue;
    // With both spellings the small one counts.
    if (entry->d_name[0] != letter)
      found[letter] = native;
    else
      found.emplace(letter, native);
  }
  closedir(folder);
  return found;
}

std::map<char, HostDrives::Mark> HostDrives::ReadMarks() const {
  std::map<char, Mark> marks;
  std::istringstream file(ReadSmallFile(folder_ + "/drives.ini", kLargestMarks));
  for (std::string line; std::getline(file, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    std::istringstream words(line);
    std::string drive, word;
    words >> drive;
    char letter = LetterOf(drive);
    if (letter == '\0') continue;
    Mark& mark = marks[letter];
    while (words >> word) {
      if (auto kind = KindNamed(word)) mark.kind = kind;
      if (word.starts_with("label=")) {
        std::string rest;
        std::getline(words, rest);
        mark.label = word.substr(6) + rest;
      }
    }
  }
  return marks;
}

bool HostDrives::OnDiskOfItsOwn(const std::string& native, unsigned long& device) const {
  struct stat drive, home;
  if (stat(native.c_str(), &drive) != 0 || stat(folder_.c_str(), &home) != 0) return false;
  device = drive.st_dev;
  return drive.st_dev != home.st_dev;
}

DriveKind HostDrives::KindOf(const std::string& native) const {
  unsigned long device;
  if (!OnDiskOfItsOwn(native, device)) return DriveKind::Fixed;
  switch (MagicOf(native)) {
    case kNfs:
    case kCifs:
    case kSmb2:
    case kSmb:
      return DriveKind::Network;
    case kIso:
      return DriveKind::CdRom;
    default:
      break;
  }
  // A partition doesn't say it itself, its disk does.
  for (const char* file : {"/removable", "/../removable"}) {
    std::ifstream removable(BlockDevice(device) + file);
    if (char flag; removable >> flag) return flag == '1' ? DriveKind::Removable : DriveKind::Fixed;
  }
  return DriveKind::Fixed;
}

std::string HostDrives::LabelOf(const std::string& native) const {
  constexpr const char* kLabels = "/dev/disk/by-label";
  unsigned long device;
  if (!OnDiskOfItsOwn(native, device)) return {};
  DIR* labels = opendir(kLabels);
  if (!labels) return {};
  std::string label;
  while (const dirent* entry = readdir(labels)) {
    struct stat info;
    std::string path = std::string(kLabels) + "/" + entry->d_name;
    if (stat(path.c_str(), &info) != 0 || !S_ISBLK(info.st_mode) || info.st_rdev != device) continue;
    // Unusual characters are told as \x20.
    std::string_view text = entry->d_name;
    for (std::size_t i = 0; i < text.size(); ++i) {
      unsigned code = 0;
      bool escaped = text.size() - i >= 4 && text[i] == '\\' && text[i + 1] == 'x';
      if (escaped)
        escaped = std::istringstream(std::string(text.substr(i + 2, 2))) >> std::hex >> code && code > 0;
      label += escaped ? static_cast<char>(code) : text[i];
      if (escaped) i += 3;
    }
    break;
  }
  closedir(labels);
  return label;
}

std::vector<Drive> HostDrives::List() {
  std::vector<Drive> drives;
  auto marks = ReadMarks();
  for (const auto& [letter, native] : Find())
    drives.push_back({letter, marks[letter].kind ? *marks[letter].kind : KindOf(native)});
  return drives;
}

std::optional<DriveInfo> HostDrives::Info(std::string_view root) {
  if (root.size() == 3 && root[2] == '\\') root.remove_suffix(1);
  char letter = LetterOf(root);
  auto drives = Find();
  auto drive = drives.find(letter);
  struct statvfs space;
  if (drive == drives.end() || statvfs(drive->second.c_str(), &space) != 0) return std::nullopt;

  DriveInfo info;
  auto block = static_cast<double>(space.f_frsize);
  info.total = static_cast<double>(space.f_blocks) * block;
  info.free = static_cast<double>(space.f_bavail) * block;
  info.used = info.total - info.free;
  info.clusterSize = static_cast<long>(space.f_frsize);
  info.fileSystem = NameOf(MagicOf(drive->second));
  auto mark = ReadMarks()[letter];
  info.label = mark.label ? *mark.label : LabelOf(drive->second);
  return info;
}

}  // namespace platform
