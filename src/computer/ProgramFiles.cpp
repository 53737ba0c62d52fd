#include "computer/ProgramFiles.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <span>
#include <system_error>

#include "platform/LibPath.h"
#include "platform/Machine.h"
#include "platform/Operations.h"
#include "platform/WriteBeside.h"

namespace computer {

namespace fs = std::filesystem;

namespace {

using platform::EntryKind;
using platform::OpenMode;
using platform::Status;

platform::FileSystem& Files() {
  return platform::CurrentMachine().Files();
}

std::optional<std::string> ReadShared(const fs::path& from) {
  std::ifstream in(from, std::ios::binary);
  if (!in) return std::nullopt;
  return std::string{std::istreambuf_iterator<char>(in), {}};
}

bool Holds(const std::string& path, const std::string& content) {
  Status status;
  auto file = Files().Open(path, OpenMode::Read, status);
  if (!file || file->Size() != content.size()) return false;
  std::string there(content.size(), '\0');
  auto read = file->Read(0, std::as_writable_bytes(std::span(there)));
  return read == there.size() && there == content;
}

void Install(const fs::path& from, const std::string& to) {
  auto content = ReadShared(from);
  if (!content || Holds(to, *content)) return;
  platform::ops::MakeFolder(platform::LibPath().GetFolder(to));
  platform::WriteBeside::RemoveLeftovers(Files(), to);
  platform::WriteBeside file(Files(), to);
  file.Append(std::as_bytes(std::span(*content)));
  file.Finish();
}

void InstallTree(const fs::path& from, const std::string& to, bool onlyMissing) {
  std::error_code error;
  for (fs::recursive_directory_iterator at(from, error), end; !error && at != end; at.increment(error)) {
    if (!at->is_regular_file(error)) continue;
    std::string rest = fs::relative(at->path(), from, error).string();
    std::replace(rest.begin(), rest.end(), '/', '\\');
    const std::string path = to + "\\" + rest;
    if (!onlyMissing || Files().Look(path).kind == EntryKind::Missing) Install(at->path(), path);
  }
}

}  // namespace

void InstallProgramFiles(const std::string& share, const std::string& install, bool firstTime) {
  const fs::path from(share);
  const std::string to = platform::LibPath().AddBackslash(install);
  Install(from / "pictures/Zinc-blue2.bmp", to + "Skin\\Zinc-blue2.bmp");
  Install(from / "pictures/FINDCOMP.avi", to + "Animations\\FINDCOMP.avi");
  // The same pictures in a form that every toolkit plays.
  Install(from / "pictures/findcomp.gif", to + "Animations\\FINDCOMP.gif");
  Install(from / "help/Tidorra.chm", to + "Help\\Tidorra.chm");
  InstallTree(from / "help/html", to + "Help\\html", false);
  if (firstTime) InstallTree(from / "plug-ins", to + "PlugIns", true);
  // They stand for the programs and are never executed: those of share/bin are.
  for (const std::string sibling : {"Chronel", "Kelvish"})
    Install(from / "bin" / sibling, to + sibling + ".exe");
}

}  // namespace computer
