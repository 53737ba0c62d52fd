// The text that tells what the drives are, written by anybody: read without a fault, and no drive comes of
// it.
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "fuzz/Fuzz.h"
#include "platform/host/HostDrives.h"

namespace fuzz {

void Try(std::span<const std::uint8_t> bytes) {
  struct Folder {
    Folder() {
      if (!mkdtemp(path.data())) Fail("no folder");
      for (const char* drive : {"/c:", "/D:"}) std::filesystem::create_directory(path + drive);
    }
    ~Folder() { std::filesystem::remove_all(path); }
    std::string path = (std::filesystem::temp_directory_path() / "fuzz-drives-XXXXXX").string();
  };
  static Folder folder;
  std::ofstream(folder.path + "/drives.ini", std::ios::binary)
      .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  platform::HostDrives drives(folder.path);
  const auto found = drives.List();
  if (found.size() != 2 || found[0].letter != 'C' || found[1].letter != 'D')
    Fail("other drives than there are");
  for (const char* root : {"C:\\", "D:\\", "E:\\"}) {
    auto info = drives.Info(root);
    if (info && info->label.size() > bytes.size()) Fail("a label longer than the file");
    if (info.has_value() != (root[0] != 'E')) Fail("another drive's space");
  }
}

std::vector<std::string> Seeds() {
  return {"c: fixed\nd: removable label=Holiday pictures\n", "D: cdrom label=\r\nC: network\r\n",
          "x: ramdisk unknown fixed label=a label=b", std::string("c: \0 label=\xFF\xFE", 13)};
}

}  // namespace fuzz
