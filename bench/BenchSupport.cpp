#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "Bench.h"
#include "platform/Listings.h"

namespace bench {

namespace fs = std::filesystem;

namespace {

double Seconds(const std::function<void()>& action) {
  auto start = std::chrono::steady_clock::now();
  action();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

std::string BenchFolder() {
  if (const char* folder = std::getenv("BRASMIR_BENCH"); folder && *folder) return folder;
  return fs::temp_directory_path() / "brasmir-bench";
}

void MakeFile(const std::string& path, const char* content = "") {
  FILE* file = std::fopen(path.c_str(), "w");
  if (!file || std::fputs(content, file) < 0 || std::fclose(file) != 0) {
    std::fprintf(stderr, "%s can't be written\n", path.c_str());
    std::exit(1);
  }
}

void Print(const std::string& name, double figure, double limit) {
  std::printf("%s %.2f %.2f %s", name.c_str(), figure, limit, figure <= limit ? "ok" : "SLOW");
}

}  // namespace

Computer::Computer() : folder_(BenchFolder()) {
  fs::create_directories(folder_ + "/brasmir/drives/c:");
  machine_ = std::make_unique<platform::HostMachine>(
      platform::HostOptions{.dataFolder = folder_ + "/brasmir", .userName = "User"});
  platform::SetCurrentMachine(machine_.get());
  platform::SetCurrentDesktop(&desktop);
}

Computer::~Computer() {
  platform::SetCurrentMachine(nullptr);
  platform::SetCurrentDesktop(nullptr);
}

std::string Computer::Native(const std::string& path) const {
  std::string native = folder_ + "/brasmir/drives/c:" + path.substr(2);
  std::replace(native.begin(), native.end(), '\\', '/');
  return native;
}

std::string Computer::Tree() {
  std::string root = Native("C:\\Tree"), mark = folder_ + "/filled-tree-is-whole";
  if (fs::exists(mark)) return "C:\\Tree";
  std::fprintf(stderr, "making a tree of a million files in %s\n", root.c_str());
  const char* extensions[] = {".tmp", ".txt",  ".bak", ".dll", ".log",
                              ".jpg", ".html", ".~mp", ".dat", ".old"};
  int file = 0;
  for (int i = 0; i < 20000; ++i) {
    char folder[64];
    std::snprintf(folder, sizeof folder, "/part%02d/group%03d/folder%05d", i / 1000, i / 20, i);
    fs::create_directories(root + folder);
    for (int j = 0; j < 50; ++j, ++file) {
      // Every fiftieth is empty; the others have a size and, so that the tree is small, nothing on the disk.
      std::string path =
          root + folder + "/file" + std::to_string(file * 7919LL % 1000000) + extensions[file % 10];
      MakeFile(path);
      if (file % 50 != 7) fs::resize_file(path, static_cast<std::uintmax_t>(file % 5000 + 1));
    }
  }
  MakeFile(mark);
  return "C:\\Tree";
}

platform::CountedList Computer::Files(const std::string& name, int count) {
  std::string root = Native("C:\\" + name);
  fs::create_directories(root);
  for (int i = 0; i < count; ++i) {
    std::string folder = root + "/folder" + std::to_string(i / 1000);
    if (i % 1000 == 0) fs::create_directories(folder);
    std::string path = folder + "/garbage file " + std::to_string(i) + ".tmp";
    if (!fs::exists(path)) MakeFile(path, "garbage");
  }
  platform::CountedList files;
  platform::LibDriveScan().ScanTree("C:\\" + name, files);
  return files;
}

void Run(const std::string& command) {
  if (std::system(command.c_str()) == 0) return;
  std::fprintf(stderr, "failed: %s\n", command.c_str());
  std::exit(1);
}

std::string Quoted(const std::string& text) {
  std::string quoted = "'";
  for (char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

void Compare(const std::string& name, double limit, const std::function<void()>& yardstick,
             const std::function<void()>& ours, int rounds, const std::function<void()>& before) {
  double best = 1e9, bestOurs = 1e9;
  for (int i = 0; i < rounds; ++i) {
    if (before) before();
    best = std::min(best, Seconds(yardstick));
    if (before) before();
    bestOurs = std::min(bestOurs, Seconds(ours));
  }
  Print(name, bestOurs / best, limit);
  std::printf("  (%.3f s, yardstick %.3f s)\n", bestOurs, best);
  std::fflush(stdout);
}

void Memory(const std::string& name, double limit, std::size_t bytes, int count) {
  Print(name, static_cast<double>(bytes) / std::max(count, 1), limit);
  std::printf("  (bytes for each of %d)\n", count);
  std::fflush(stdout);
}

}  // namespace bench
