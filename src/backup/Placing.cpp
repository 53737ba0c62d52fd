#include "backup/Placing.h"

#include <utility>

#include "backup/ZipReasons.h"
#include "platform/Desktop.h"
#include "platform/Machine.h"
#include "platform/Operations.h"

namespace backup {

using platform::EntryInfo;
using platform::EntryKind;
using platform::Status;
using platform::WriteBeside;

namespace {

// So much is brought onto the disk at once.
constexpr std::size_t kMostFiles = 200;
constexpr std::uint64_t kMostBytes = 64 * 1024 * 1024;
constexpr int kMostNumbers = 100'000;

// What killed processes have left in a folder.
class Leftovers : public platform::TreeVisitor {
 public:
  bool Folder(std::string_view) override { return true; }
  bool Entry(std::string_view name, EntryKind kind, std::uint64_t) override {
    std::string_view target;
    if (kind == EntryKind::File && WriteBeside::IsName(name, &target)) found.emplace(target, name);
    return true;
  }
  std::multimap<std::string, std::string> found;
};

void RemoveTemporary(const std::string& path) {
  platform::CurrentMachine().Files().RemoveFile(path, true);
}

std::string FolderOf(const std::string& path) {
  return path.substr(0, path.rfind('\\') + 1);
}

// "C:\a\b.txt" and 1 give "C:\a\b (before restore).txt".
std::string AsideName(const std::string& path, int number) {
  std::size_t name = path.rfind('\\') + 1, dot = path.rfind('.');
  if (dot == path.npos || dot <= name) dot = path.size();
  std::string text = number == 1 ? " (before restore)" : " (before restore " + std::to_string(number) + ")";
  return path.substr(0, dot) + text + path.substr(dot);
}

}  // namespace

Placing::Placing() : files_(platform::CurrentMachine().Files()) {}
Placing::~Placing() = default;

Placing::Writing Placing::Begin(const std::string& path, const std::string& shown, Way way) {
  std::string folder = FolderOf(path);
  auto [known, isNew] = leftovers_.try_emplace(folder);
  if (isNew) {
    Leftovers leftovers;
    platform::WalkOptions options;
    options.recursive = false;
    files_.Walk(folder, options, leftovers);
    known->second = std::move(leftovers.found);
  }
  Writing writing;
  writing.path_ = path;
  writing.shown_ = shown;
  writing.way_ = way;
  writing.beside_ = std::make_unique<WriteBeside>(files_, path);
  std::string_view front;
  if (WriteBeside::IsName(std::string_view(writing.beside_->Path()).substr(folder.size()), &front)) {
    auto [first, last] = known->second.equal_range(std::string(front));
    for (auto leftover = first; leftover != last; ++leftover) RemoveTemporary(folder + leftover->second);
    known->second.erase(first, last);
  }
  return writing;
}

void Placing::Accept(Writing writing, const Entry& entry) {
  // A file system that can't keep them has no better. Who may write to it is settled below.
  if (entry.permissions) writing.beside_->Out().SetPermissions(*entry.permissions | 0200);
  writing.dates_ = entry.dates;
  writing.attributes_ = entry.attributes;
  acceptedBytes_ += entry.size;
  accepted_.push_back(std::move(writing));
  if (accepted_.size() >= kMostFiles || acceptedBytes_ >= kMostBytes) Settle();
}

void Placing::Settle() {
  std::vector<Writing> accepted = std::move(accepted_);
  accepted_.clear();
  acceptedBytes_ = 0;
  if (accepted.empty()) return;
  std::vector<platform::File*> open;
  for (Writing& writing : accepted) open.push_back(&writing.beside_->Out());
  Status flushed = files_.FlushAll(open);
  for (Writing& writing : accepted) {
    platform::CurrentDesktop().Breathe();
    std::string path = writing.beside_->Path(), reason = Reason(flushed);
    // Closed first: a file that has been written to gets its date when it is closed.
    writing.beside_->Keep();
    if (flushed == Status::Done) {
      files_.SetTimes(path, writing.dates_.created, writing.dates_.accessed, writing.dates_.modified);
      files_.SetAttributes(path, writing.attributes_);
      reason = Put(writing);
    }
    folders_.insert(FolderOf(writing.path_));
    if (reason.empty()) continue;
    RemoveTemporary(path);
    failures_.push_back({writing.shown_, reason});
  }
}

bool Placing::Finish() {
  Settle();
  bool done = true;
  for (const std::string& folder : folders_) {
    platform::CurrentDesktop().Breathe();
    if (files_.FlushFolder(folder) != Status::Done) done = false;
  }
  folders_.clear();
  return done;
}

std::vector<Placing::Failure> Placing::TakeFailures() {
  return std::exchange(failures_, {});
}

// Why it failed; empty if it is in its place.
std::string Placing::Put(const Writing& writing) {
  const std::string& path = writing.path_;
  if (writing.way_ == Way::Free) return PutFree(writing, 1);
  if (writing.way_ != Way::Replace) {
    Status status = files_.RenameExactly(writing.beside_->Path(), path);
    if (status != Status::Exists) return Reason(status);
    if (writing.way_ == Way::OwnOrFree) return PutFree(writing, 2);
  }
  EntryInfo there = files_.Look(path);
  if (IsLink(there.kind)) return "there is a link with that name";
  if (there.kind == EntryKind::Folder) return "there is a folder with that name";
  if (there.kind == EntryKind::Unreadable) return "what lies there can't be examined";
  if (there.kind == EntryKind::File) return PutOver(writing, there);
  return Reason(files_.Rename(writing.beside_->Path(), path, false));
}

// Gives a file another name, beside its own if the disk has second names: then its place is never empty.
Status Placing::SetAside(const std::string& path, std::string& aside, bool& linked) {
  linked = true;
  for (int number = 1; number < kMostNumbers;) {
    aside = AsideName(path, number);
    Status status = linked ? files_.Link(path, aside) : files_.Rename(path, aside, false);
    if (status == Status::Done || (!linked && status != Status::Exists)) return status;
    if (status == Status::Exists)
      ++number;
    else
      linked = false;
  }
  return Status::Exists;
}

std::string Placing::PutOver(const Writing& writing, const EntryInfo& there) {
  const std::string& path = writing.path_;
  std::string aside;
  bool linked;
  Status status = SetAside(path, aside, linked);
  if (status != Status::Done) return Reason(status);
  // Both names are of one file, whose bit would keep it in its place.
  bool readOnly = linked && (there.attributes & platform::kReadOnly);
  if (readOnly) files_.SetAttributes(path, there.attributes & ~std::uint32_t{platform::kReadOnly});
  status = files_.Rename(writing.beside_->Path(), path, linked);
  if (readOnly) files_.SetAttributes(aside, there.attributes);
  if (status == Status::Done) {
    // Without a bin it stays where it can be seen.
    platform::ops::MoveToBin(aside);
    return {};
  }
  if (linked)
    platform::ops::Remove(aside);
  else
    files_.Rename(aside, path, false);
  if (readOnly) files_.SetAttributes(path, there.attributes);
  return Reason(status);
}

// `first` is the first number to try; 1 stands for the path itself.
std::string Placing::PutFree(const Writing& writing, int first) {
  int& number = numbers_.try_emplace(writing.path_, first - 1).first->second;
  while (number < kMostNumbers) {
    ++number;
    std::string path = number == 1 ? writing.path_ : Numbered(writing.path_, number);
    EntryKind kind = files_.Look(path).kind;
    // Whatever its number, this folder can't be looked into.
    if (kind == EntryKind::Unreadable) return "what lies there can't be examined";
    if (kind != EntryKind::Missing) continue;
    Status status = files_.Rename(writing.beside_->Path(), path, false);
    if (status != Status::Exists) return Reason(status);
  }
  return Reason(Status::Exists);
}

}  // namespace backup
