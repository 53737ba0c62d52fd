#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/FolderLayout.h"
#include "support/TestComputer.h"

namespace test {

namespace fs = std::filesystem;

namespace {

std::string FreshFolder() {
  const char* parent = std::getenv("TMPDIR");
  std::string name = std::string(parent && *parent ? parent : "/tmp") + "/brasmir-test-XXXXXX";
  if (!mkdtemp(name.data())) throw std::runtime_error("no temporary folder: " + name);
  return name;
}

std::string_view KindName(platform::DriveKind kind) {
  switch (kind) {
    case platform::DriveKind::Removable:
      return "removable";
    case platform::DriveKind::Network:
      return "network";
    case platform::DriveKind::CdRom:
      return "cdrom";
    case platform::DriveKind::RamDisk:
      return "ramdisk";
    case platform::DriveKind::Unknown:
      return "unknown";
    default:
      return "fixed";
  }
}

char Small(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + 32) : letter;
}

void Expect(bool good, const std::string& what) {
  if (!good) throw std::runtime_error("the test computer failed: " + what);
}

}  // namespace

void TestComputer::MakeRoot() {
  root_ = FreshFolder();
  fs::create_directories(root_ + "/brasmir/drives");
  std::ofstream kinds(root_ + "/brasmir/drives/drives.ini");
  for (auto [letter, kind] : options_.drives) {
    std::string entry{Small(letter), ':'};
    fs::create_directory(root_ + "/brasmir/drives/" + entry);
    kinds << entry << ' ' << KindName(kind) << '\n';
  }
}

void TestComputer::RemoveRoot() {
  std::error_code ignored;
  fs::remove_all(root_, ignored);
}

RealOptions TestComputer::Options() {
  return {.dataFolder = root_ + "/brasmir",
          .programs = root_ + "/bin",
          .userName = options_.userName,
          .clock = &clock,
          .waitForDisk = false};
}

std::string TestComputer::Native(std::string_view path) const {
  Expect(path.size() >= 2 && path[1] == ':', "a path without a drive: " + std::string(path));
  std::string native = root_ + "/brasmir/drives/" + Small(path[0]) + ":";
  std::string rest(path.substr(2));
  std::replace(rest.begin(), rest.end(), '\\', '/');
  while (!rest.empty() && rest.back() == '/') rest.pop_back();
  return native + rest;
}

std::string TestComputer::ReadFile(std::string_view path) const {
  std::ifstream file(Native(path), std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

bool TestComputer::Exists(std::string_view path) const {
  struct stat info;
  return lstat(Native(path).c_str(), &info) == 0;
}

bool TestComputer::IsLink(std::string_view path) const {
  return fs::is_symlink(fs::path(Native(path)));
}

void TestComputer::Remove(std::string_view path) {
  fs::remove_all(Native(path));
}

void TestComputer::MakeLink(std::string_view path, std::string_view target) {
  std::string native = Native(path);
  fs::create_directories(fs::path(native).parent_path());
  std::string to = target.starts_with('/') ? std::string(target) : Native(target);
  // A link that leads nowhere out of its drive doesn't tell where the drive lies.
  if (path.size() > 2 && target.substr(0, 2) == path.substr(0, 2))
    to = fs::path(to).lexically_relative(fs::path(native).parent_path()).string();
  Expect(symlink(to.c_str(), native.c_str()) == 0, "linking " + native);
}

void TestComputer::MakeSparseFile(std::string_view path, std::uint64_t size) {
  WriteFile(path, {});
  Expect(truncate(Native(path).c_str(), static_cast<off_t>(size)) == 0, "a sparse file");
}

void TestComputer::AddCacheEntry(std::string_view key, std::string_view file, std::string_view content) {
  std::string cache =
      platform::FolderLayout(options_.userName).Path(platform::KnownFolder::InternetCache) + "\\";
  if (!file.empty()) WriteFile(cache + std::string(file), content);
  MakeFolder(cache);
  std::ofstream index(Native(cache + "entries.txt"), std::ios::binary | std::ios::app);
  index << '+' << key << '\t' << file << '\n';
  index.close();
  Expect(!index.fail(), "a cache entry");
}

int TestComputer::InBin() {
  int files = 0;
  for (auto [letter, kind] : options_.drives) {
    std::string bin = std::string(1, letter) + ":\\$Recycle.Bin";
    for (const std::string& user : List(bin))
      for (const std::string& name : List(bin + "\\" + user)) files += name.starts_with("$R");
  }
  return files;
}

}  // namespace test
