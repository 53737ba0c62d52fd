#include "program/ProgramFiles.h"

#include <filesystem>
#include <string_view>
#include <system_error>

namespace program {

namespace fs = std::filesystem;

namespace {

bool IsUpToDate(const fs::path& from, const fs::path& to) {
  std::error_code error;
  if (!fs::is_regular_file(fs::symlink_status(to, error))) return false;
  auto size = fs::file_size(to, error), wanted = fs::file_size(from, error);
  return size == wanted && fs::last_write_time(to, error) >= fs::last_write_time(from, error);
}

void Install(const fs::path& from, const fs::path& to) {
  std::error_code error;
  if (!fs::is_regular_file(from, error) || IsUpToDate(from, to)) return;
  fs::create_directories(to.parent_path(), error);
  fs::path beside = to;
  beside += ".new";
  fs::remove(beside, error);
  if (fs::copy_file(from, beside, error)) fs::rename(beside, to, error);
  if (error) fs::remove(beside, error);
}

void InstallTree(const fs::path& from, const fs::path& to) {
  std::error_code error;
  for (fs::recursive_directory_iterator at(from, error), end; !error && at != end; at.increment(error))
    if (at->is_regular_file(error)) Install(at->path(), to / fs::relative(at->path(), from, error));
}

}  // namespace

void InstallProgramFiles(const std::string& share, const std::string& install, bool firstTime) {
  fs::path from(share), to(install);
  Install(from / "pictures/Zinc-blue2.bmp", to / "Skin/Zinc-blue2.bmp");
  Install(from / "pictures/FINDCOMP.avi", to / "Animations/FINDCOMP.avi");
  // The same pictures in a form that every toolkit plays.
  Install(from / "pictures/findcomp.gif", to / "Animations/FINDCOMP.gif");
  Install(from / "help/Tidorra.chm", to / "Help/Tidorra.chm");
  InstallTree(from / "help/html", to / "Help/html");
  if (firstTime) InstallTree(from / "plug-ins", to / "PlugIns");
  for (const char* sibling : {"Chronel", "Kelvish"}) {
    std::string name(sibling);
    Install(from / "bin" / name, to / (name + ".exe"));
  }
}

}  // namespace program
