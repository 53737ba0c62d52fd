#include "support/TestComputer.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <thread>

#include "core/Keys.h"
#include "platform/FolderLayout.h"

namespace test {

namespace fs = std::filesystem;
using platform::ValueType;

namespace {

constexpr std::string_view kTidorra = "Software\\Orvane\\Tidorra";

// Native paths are UTF-8 on every system.
fs::path PathOf(const std::string& native) {
#ifdef _WIN32
  return fs::path(std::u8string(native.begin(), native.end()));
#else
  return native;
#endif
}

void Expect(bool good, const std::string& what) {
  if (!good) throw std::runtime_error("the test computer failed: " + what);
}

}  // namespace

TestComputer::TestComputer(TestOptions options) : options_(std::move(options)) {
  MakeRoot();
  machine_ = std::make_unique<RealMachine>(Options());
  platform::SetCurrentMachine(machine_.get());
  platform::SetCurrentDesktop(&desktop);
  if (options_.layout) MakeLayout();
}

TestComputer::~TestComputer() {
  platform::SetCurrentMachine(nullptr);
  platform::SetCurrentDesktop(nullptr);
  machine_.reset();
  RemoveRoot();
}

std::unique_ptr<RealMachine> TestComputer::AnotherMachine() {
  return std::make_unique<RealMachine>(Options());
}

void TestComputer::Restart() {
  platform::SetCurrentMachine(nullptr);
  machine_.reset();
  machine_ = AnotherMachine();
  platform::SetCurrentMachine(machine_.get());
}

void TestComputer::MakeLayout() {
  for (const std::string& folder : platform::FolderLayout(options_.userName).Folders()) MakeFolder(folder);
  for (const char* folder : {"Temp", "Backup", "Reports", "PlugIns", "Skin", "Help", "Animations"})
    MakeFolder(InstallDirectory() + folder);
  Registry().Begin();
  SetValue(kTidorra, "Install Directory", InstallDirectory());
  SetValue(std::string(kTidorra) + "\\Valdrin\\Paths", "Program Files", "C:\\Program Files");
  Expect(Registry().End() == 0, "the first settings");
}

void TestComputer::MakeFolder(std::string_view path) {
  fs::create_directories(PathOf(Native(path)));
}

void TestComputer::WriteFile(std::string_view path, std::string_view content) {
  fs::create_directories(PathOf(Native(path)).parent_path());
#ifdef _WIN32
  // As it stands, with blanks and dots at its end.
  std::ofstream file(PathOf("\\\\?\\" + Native(path)), std::ios::binary | std::ios::trunc);
#else
  std::ofstream file(Native(path), std::ios::binary | std::ios::trunc);
#endif
  file.write(content.data(), static_cast<std::streamsize>(content.size()));
  file.close();
  Expect(!file.fail(), "writing " + std::string(path));
}

void TestComputer::WriteFiles(const Strings& paths) {
  for (const std::string& path : paths) WriteFile(path);
}

Strings TestComputer::Left(const Strings& paths) const {
  Strings left;
  for (const std::string& path : paths)
    if (Exists(path)) left.push_back(path);
  return left;
}

void TestComputer::MakeSecondName(std::string_view path, std::string_view second) {
  fs::create_hard_link(PathOf(Native(path)), PathOf(Native(second)));
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

Strings TestComputer::List(std::string_view path) const {
  Strings names;
  std::error_code missing;
  for (const auto& entry : fs::directory_iterator(PathOf(Native(path)), missing)) {
#ifdef _WIN32
    std::u8string name = entry.path().filename().u8string();
    names.emplace_back(name.begin(), name.end());
#else
    names.push_back(entry.path().filename());
#endif
  }
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

bool TestComputer::WillStartKelvish() {
  auto entries = Machine().StartOnceEntries(InstallDirectory() + "Kelvish.exe");
  std::string said;
  for (std::uint32_t root : {platform::kLocalMachine, platform::kCurrentUser})
    if (std::string data = GetValue(root, core::keys::kRunOnce, "Kelvish"); !data.empty())
      said += std::to_string(root) + data;
  Expect(said.empty() || said == std::to_string(entries[0].root) + entries[0].data,
         "the start entry: " + said);
  return !said.empty();
}

bool TestComputer::HasValue(std::string_view key, std::string_view name) {
  return Registry().Read(platform::kCurrentUser, key, name).type != ValueType::Absent;
}

void TestComputer::RemoveValue(std::string_view key, std::string_view name) {
  Expect(Registry().RemoveValue(platform::kCurrentUser, key, name) == 0, "removing a value");
}

Strings TestComputer::ValueNames(std::string_view key) {
  Strings names;
  Expect(Registry().Names(platform::kCurrentUser, key, names) == 0, "listing " + std::string(key));
  return names;
}

Strings TestComputer::CacheKeys() {
  Strings keys;
  Expect(machine_->Cache().List(keys) == platform::Status::Done, "listing the cache");
  return keys;
}

bool Comes(const std::function<bool()>& state) {
  auto until = std::chrono::steady_clock::now() + std::chrono::minutes(2);
  while (!state()) {
    if (std::chrono::steady_clock::now() > until) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  return true;
}

Strings LinesOf(const std::string& text) {
  Strings lines;
  for (std::size_t begin = 0, end; (end = text.find("\r\n", begin)) != text.npos; begin = end + 2)
    lines.push_back(text.substr(begin, end - begin));
  return lines;
}

}  // namespace test
