#include "siblings/kelvish/WorkList.h"

#include <cstdint>
#include <span>
#include <unordered_set>
#include <utility>

#include "core/HandOver.h"
#include "core/Text.h"
#include "platform/Claim.h"
#include "platform/Machine.h"
#include "platform/RuntimeError.h"
#include "platform/WriteBeside.h"
#include "siblings/common/NewTextFile.h"

namespace kelvish {

namespace {

using platform::Status;

constexpr char kExtension[] = ".txt";
// What stands for a byte that means nothing in the code page.
constexpr char kReplacement[] = "\uFFFD";

platform::FileSystem& Files() {
  return platform::CurrentMachine().Files();
}

bool IsThere(const std::string& path) {
  return Files().Look(path).kind == platform::EntryKind::File;
}

std::string ReadAll(const std::string& path) {
  Status status;
  auto file = Files().Open(path, platform::OpenMode::Read, status);
  if (!file) throw platform::PermissionDenied();
  std::string bytes(file->Size(), '\0');
  auto read = file->Read(0, std::as_writable_bytes(std::span(bytes)));
  if (read != bytes.size()) throw platform::DeviceIoError();
  return bytes;
}

void Remove(const std::string& path) {
  Status status = Files().RemoveFile(path);
  if (status != Status::Done && status != Status::Missing) throw platform::PermissionDenied();
}

// Gathers lines, each once whatever its case.
class Gathering {
 public:
  void Add(const std::string& path) {
    if (seen_.insert(core::Fold(path)).second) lines_.paths.push_back(path);
  }

  void AddFile(const std::string& path) {
    std::string bytes = ReadAll(path);
    std::string_view rest = bytes;
    while (!rest.empty()) {
      std::size_t end = rest.find_first_of("\r\n");
      std::string line = platform::CurrentMachine().GetLocale().FromAnsi(rest.substr(0, end));
      bool whole = end != rest.npos && line.find(kReplacement) == line.npos;
      if (whole && !line.empty()) Add(line);
      if (!whole) lines_.unusable.push_back(line);
      rest.remove_prefix(end == rest.npos ? rest.size() : end + 1);
    }
  }

  WorkList::Lines& Lines() { return lines_; }

 private:
  WorkList::Lines lines_;
  std::unordered_set<std::string> seen_;
};

void Write(const std::string& path, const std::vector<std::string>& lines) {
  siblings::NewTextFile file(path);
  for (const std::string& line : lines) file.Line(line);
  if (!file.Finish()) throw platform::PermissionDenied();
}

// Two programs at the lists at once could lose a line.
class Moment {
 public:
  Moment() : claim_(core::handover::kClaim, core::handover::kPatience) {
    if (!claim_.Held()) throw platform::PermissionDenied();
  }

 private:
  platform::Claim claim_;
};

}  // namespace

WorkList::WorkList(std::string path)
    : path_(std::move(path)),
      aside_(path_.substr(0, path_.size() - (sizeof kExtension - 1)) + " in work" + kExtension) {}

bool WorkList::Gone() const {
  return !IsThere(path_) && !IsThere(aside_);
}

WorkList::Lines WorkList::Take() {
  Moment moment;
  Gathering taken;
  bool unfinished = IsThere(aside_);
  if (!unfinished && !IsThere(path_)) return {};
  if (unfinished) {
    taken.AddFile(aside_);
    if (IsThere(path_)) {
      taken.AddFile(path_);
      Write(aside_, taken.Lines().paths);
      Remove(path_);
    }
  } else {
    if (Files().Rename(path_, aside_, false) != Status::Done) throw platform::PermissionDenied();
    taken.AddFile(aside_);
  }
  return std::move(taken.Lines());
}

void WorkList::PutBack(const std::vector<std::string>& kept) {
  Moment moment;
  Gathering list;
  for (const std::string& path : kept) list.Add(path);
  bool added = IsThere(path_);
  if (added) list.AddFile(path_);
  if (!list.Lines().paths.empty())
    Write(path_, list.Lines().paths);
  else if (added)
    Remove(path_);
  Remove(aside_);
  for (const std::string& path : {path_, aside_}) platform::WriteBeside::RemoveLeftovers(Files(), path);
}

}  // namespace kelvish
