#include "platform/Operations.h"

#include <cctype>
#include <memory>
#include <vector>

#include "platform/Desktop.h"
#include "platform/Guard.h"
#include "platform/LibPath.h"
#include "platform/Listings.h"
#include "platform/Machine.h"
#include "platform/PathText.h"
#include "platform/ReadOnlyLift.h"
#include "platform/TreeWalk.h"

namespace platform::ops {

namespace {

FileSystem& Files() {
  return CurrentMachine().Files();
}

bool EqualsIgnoringAsciiCase(std::string_view a, std::string_view lower) {
  if (a.size() != lower.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i)
    if (std::tolower(static_cast<unsigned char>(a[i])) != lower[i]) return false;
  return true;
}

bool FolderIsThere(std::string_view path) {
  EntryKind kind = Files().LookBriefly(path).kind;
  return kind == EntryKind::Folder || kind == EntryKind::FolderLink;
}

class Sum : public TreeVisitor {
 public:
  bool Folder(std::string_view) override { return true; }
  bool Entry(std::string_view, EntryKind kind, std::uint64_t size) override {
    if (kind == EntryKind::File) bytes += static_cast<double>(size);
    return true;
  }
  double bytes = 0;
};

}  // namespace

bool IsFile(const std::string& path) {
  EntryKind kind = Files().LookBriefly(path).kind;
  return kind == EntryKind::File || kind == EntryKind::FileLink;
}

bool IsFolder(const std::string& path) {
  return FolderIsThere(WithoutBackslash(path));
}

Status Remove(const std::string& path) {
  return MayActOn(path) ? Files().RemoveFile(path, true) : Status::Refused;
}

Status MoveToBin(const std::string& path) {
  if (!MayActOn(path)) return Status::Refused;
  EntryInfo info = Files().Look(path);
  if (info.kind == EntryKind::Missing) return Status::Missing;
  if (info.kind != EntryKind::File && !IsLink(info.kind)) return Status::Refused;
  ReadOnlyLift lift(path, info);
  Status status = CurrentMachine().Bin().Move(path);
  if (status == Status::Done) lift.WorkDone();
  return status;
}

Status Empty(const std::string& path) {
  if (!MayActOn(path)) return Status::Refused;
  EntryInfo info = Files().Look(path);
  if (info.kind == EntryKind::Missing) return Status::Missing;
  if (info.kind != EntryKind::File) return Status::Refused;
  ReadOnlyLift lift(path, info);
  Status status;
  auto file = Files().Open(path, OpenMode::Modify, status);
  return file ? file->Truncate(0) : status;
}

Status MakeFolder(const std::string& path) {
  std::string_view folder = WithoutBackslash(path);
  if (IsDriveRoot(folder)) return FolderIsThere(folder) ? Status::Done : Status::Missing;
  if (!MayActOn(folder)) return Status::Refused;
  // The ends of the folders that are missing, the deepest first.
  std::vector<std::size_t> missing;
  std::size_t end = folder.size();
  while (end > 3 && !FolderIsThere(folder.substr(0, end))) {
    missing.push_back(end);
    end = folder.rfind('\\', end - 1);
    if (end == 2) break;
  }
  for (; !missing.empty(); missing.pop_back()) {
    Status status = Files().CreateFolder(folder.substr(0, missing.back()));
    // Somebody else may have made it meanwhile.
    if (status != Status::Done && !FolderIsThere(folder.substr(0, missing.back()))) return status;
  }
  return Status::Done;
}

Status RemoveFolder(const std::string& path) {
  std::string_view folder = WithoutBackslash(path);
  return MayActOn(folder) ? Files().RemoveFolder(folder, true) : Status::Refused;
}

Status RemoveTree(const std::string& path) {
  std::string_view root = WithoutBackslash(path);
  if (!MayClearTree(root)) return Status::Refused;
  EntryInfo rootInfo = Files().Look(root);
  // A known folder that is a link is somebody's way to the real one.
  if (rootInfo.kind == EntryKind::FolderLink)
    return IsKnownFolder(root) ? Status::Refused : RemoveFolder(path);
  if (rootInfo.kind == EntryKind::Missing) return Status::Missing;
  if (rootInfo.kind != EntryKind::Folder) return Status::Refused;

  CountedList files, folders;
  if (Status status = ListTree(path, files, folders); status != Status::Done) return status;
  Breath breath;
  std::string entry;
  // A read-only folder may keep what is in it from being removed; what stays in the end gets its bit back.
  std::vector<std::unique_ptr<ReadOnlyLift>> lifts;
  auto lift = [&lifts](std::string_view folder, const EntryInfo& info) {
    if (info.attributes & kReadOnly) lifts.push_back(std::make_unique<ReadOnlyLift>(folder, info));
  };
  lift(root, rootInfo);
  for (int i = 0; i < folders.UpperBound(); ++i) {
    folders.Get(i, entry);
    breath();
    lift(entry, Files().Look(entry));
  }
  for (int i = 0; i < files.UpperBound(); ++i) {
    files.Get(i, entry);
    breath();
    Remove(entry);
  }
  for (int i = folders.UpperBound() - 1; i >= 0; --i) {
    folders.Get(i, entry);
    breath();
    RemoveFolder(entry);
  }
  return Files().RemoveFolder(root, true);
}

double SizeBelow(const std::string& path) {
  Sum sum;
  WalkTree(path, true, true, sum);
  return sum.bytes;
}

Status OpenDocument(const std::string& path) {
  if (!IsFile(path)) return Status::Missing;
  if (EqualsIgnoringAsciiCase(LibPath().GetExtension(path), "exe"))
    return CurrentMachine().GetProcesses().Start(path) ? Status::Done : Status::Failed;
  return CurrentDesktop().OpenDocument(path) > 32 ? Status::Done : Status::Failed;
}

Status ViewContent(const std::string& path) {
  if (!IsFile(path)) return Status::Missing;
  return CurrentDesktop().ViewContent(path) == 0 ? Status::Done : Status::Failed;
}

Status ShowProperties(const std::string& path) {
  if (!IsFile(path)) return Status::Missing;
  return CurrentDesktop().ShowProperties(path) != 0 ? Status::Done : Status::Failed;
}

Status OpenFolder(const std::string& path) {
  if (!IsFolder(path)) return Status::Missing;
  return CurrentDesktop().OpenFolder(path) == 0 ? Status::Done : Status::Failed;
}

Status EmptyBin(const std::function<bool()>& stop) {
  return CurrentMachine().Bin().Empty(stop);
}

Status Restart() {
  return CurrentMachine().GetPower().Reboot() ? Status::Done : Status::Failed;
}

Status ListCacheEntries(CountedList& entries) {
  std::vector<std::string> keys;
  Status status = CurrentMachine().Cache().List(keys);
  if (status == Status::Done)
    for (const std::string& key : keys) entries.Add(key);
  return status;
}

Status RemoveCacheEntry(const std::string& entry) {
  return CurrentMachine().Cache().Remove(entry);
}

}  // namespace platform::ops
