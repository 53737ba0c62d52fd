#include "support/TestComputer.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/host/HostFolders.h"

namespace test {

namespace fs = std::filesystem;
using platform::KnownFolder;
using platform::RegistryValue;
using platform::ValueType;

namespace {

constexpr std::string_view kTidorra = "Software\\Orvane\\Tidorra";

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

TestComputer::TestComputer(TestOptions options) : options_(std::move(options)), root_(FreshFolder()) {
  fs::create_directories(root_ + "/brasmir/drives");
  std::ofstream kinds(root_ + "/brasmir/drives/drives.ini");
  for (auto [letter, kind] : options_.drives) {
    std::string entry{Small(letter), ':'};
    fs::create_directory(root_ + "/brasmir/drives/" + entry);
    kinds << entry << ' ' << KindName(kind) << '\n';
  }
  kinds.close();
  machine_ = std::make_unique<platform::HostMachine>(Options());
  platform::SetCurrentMachine(machine_.get());
  platform::SetCurrentDesktop(&desktop);
  if (options_.layout) MakeLayout();
}

TestComputer::~TestComputer() {
  platform::SetCurrentMachine(nullptr);
  platform::SetCurrentDesktop(nullptr);
  machine_.reset();
  std::error_code ignored;
  fs::remove_all(root_, ignored);
}

platform::HostOptions TestComputer::Options() {
  return {
      .dataFolder = root_ + "/brasmir", .userName = options_.userName, .clock = &clock, .waitForDisk = false};
}

std::unique_ptr<platform::HostMachine> TestComputer::AnotherMachine() {
  return std::make_unique<platform::HostMachine>(Options());
}

void TestComputer::Restart() {
  platform::SetCurrentMachine(nullptr);
  machine_.reset();
  machine_ = AnotherMachine();
  platform::SetCurrentMachine(machine_.get());
}

void TestComputer::MakeLayout() {
  for (const std::string& folder : platform::HostFolders(options_.userName).Layout()) MakeFolder(folder);
  for (const char* folder : {"Temp", "Backup", "Reports", "PlugIns", "Skin", "Help", "Animations"})
    MakeFolder(InstallDirectory() + folder);
  Registry().Begin();
  SetValue(kTidorra, "Install Directory", InstallDirectory());
  SetValue(std::string(kTidorra) + "\\Valdrin\\Paths", "Program Files", "C:\\Program Files");
  Expect(Registry().End() == 0, "the first settings");
}

std::string TestComputer::Native(std::string_view path) const {
  Expect(path.size() >= 2 && path[1] == ':', "a path without a drive: " + std::string(path));
  std::string native = root_ + "/brasmir/drives/" + Small(path[0]) + ":";
  std::string rest(path.substr(2));
  std::replace(rest.begin(), rest.end(), '\\', '/');
  while (!rest.empty() && rest.back() == '/') rest.pop_back();
  return native + rest;
}

void TestComputer::MakeFolder(std::string_view path) {
  fs::create_directories(Native(path));
}

void TestComputer::WriteFile(std::string_view path, std::string_view content) {
  std::string native = Native(path);
  fs::create_directories(fs::path(native).parent_path());
  std::ofstream file(native, std::ios::binary | std::ios::trunc);
  file.write(content.data(), static_cast<std::streamsize>(content.size()));
  file.close();
  Expect(!file.fail(), "writing " + native);
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
  Expect(symlink(to.c_str(), native.c_str()) == 0, "linking " + native);
}

void TestComputer::MakeSparseFile(std::string_view path, std::uint64_t size) {
  WriteFile(path, {});
  Expect(truncate(Native(path).c_str(), static_cast<off_t>(size)) == 0, "a sparse file");
}

void TestComputer::SetAttributes(std::string_view path, std::uint32_t attributes) {
  Expect(Files().SetAttributes(path, attributes) == platform::Status::Done,
         "attributes of " + std::string(path));
}

std::uint32_t TestComputer::GetAttributes(std::string_view path) {
  return Files().Look(path).attributes;
}

void TestComputer::SetModified(std::string_view path, platform::Moment moment) {
  Expect(Files().SetTimes(path, {}, {}, moment) == platform::Status::Done,
         "the time of " + std::string(path));
}

std::vector<std::string> TestComputer::List(std::string_view path) const {
  std::vector<std::string> names;
  std::error_code missing;
  for (const auto& entry : fs::directory_iterator(Native(path), missing))
    names.push_back(entry.path().filename());
  std::sort(names.begin(), names.end());
  return names;
}

void TestComputer::SetValue(std::string_view key, std::string_view name, std::string_view data) {
  SetValue(platform::kCurrentUser, key, name, data);
}

void TestComputer::SetValue(std::uint32_t root, std::string_view key, std::string_view name,
                            std::string_view data) {
  long code = Registry().Write(root, key, name, {ValueType::String, std::string(data), 0});
  Expect(code == 0, "writing " + std::string(key));
}

std::string TestComputer::GetValue(std::string_view key, std::string_view name) {
  return GetValue(platform::kCurrentUser, key, name);
}

std::string TestComputer::GetValue(std::uint32_t root, std::string_view key, std::string_view name) {
  return Registry().Read(root, key, name).text;
}

bool TestComputer::HasValue(std::string_view key, std::string_view name) {
  return Registry().Read(platform::kCurrentUser, key, name).type != ValueType::Absent;
}

void TestComputer::RemoveValue(std::string_view key, std::string_view name) {
  Expect(Registry().RemoveValue(platform::kCurrentUser, key, name) == 0, "removing a value");
}

std::vector<std::string> TestComputer::ValueNames(std::string_view key) {
  std::vector<std::string> names;
  Expect(Registry().Names(platform::kCurrentUser, key, names) == 0, "listing " + std::string(key));
  return names;
}

void TestComputer::AddCacheEntry(std::string_view key, std::string_view file, std::string_view content) {
  std::string cache = platform::HostFolders(options_.userName).Path(KnownFolder::InternetCache) + "\\";
  if (!file.empty()) WriteFile(cache + std::string(file), content);
  MakeFolder(cache);
  std::ofstream index(Native(cache + "entries.txt"), std::ios::binary | std::ios::app);
  index << '+' << key << '\t' << file << '\n';
  index.close();
  Expect(!index.fail(), "a cache entry");
}

std::vector<std::string> TestComputer::CacheKeys() {
  std::vector<std::string> keys;
  Expect(machine_->Cache().List(keys) == platform::Status::Done, "listing the cache");
  return keys;
}

}  // namespace test
