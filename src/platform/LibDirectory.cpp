#include "platform/LibDirectory.h"

#include <memory>
#include <vector>

#include "platform/Guard.h"
#include "platform/Listings.h"
#include "platform/Machine.h"
#include "platform/PathText.h"
#include "platform/ReadOnlyLift.h"
#include "platform/TreeWalk.h"

namespace platform {

namespace {

FileSystem& Files() {
  return CurrentMachine().Files();
}

bool IsFolder(std::string_view path) {
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

bool LibDirectory::Exists(const std::string& path) const {
  return IsFolder(WithoutBackslash(path));
}

long LibDirectory::Create(const std::string& path) const {
  std::string_view folder = WithoutBackslash(path);
  if (IsDriveRoot(folder)) return IsFolder(folder) ? 1 : 0;
  if (!MayActOn(folder)) return 0;
  // The ends of the folders that are missing, the deepest first.
  std::vector<std::size_t> missing;
  std::size_t end = folder.size();
  while (end > 3 && !IsFolder(folder.substr(0, end))) {
    missing.push_back(end);
    end = folder.rfind('\\', end - 1);
    if (end == 2) break;
  }
  for (; !missing.empty(); missing.pop_back()) {
    Status status = Files().CreateFolder(folder.substr(0, missing.back()));
    // Somebody else may have made it meanwhile.
    if (status != Status::Done && !IsFolder(folder.substr(0, missing.back()))) return 0;
  }
  return 1;
}

long LibDirectory::Remove(const std::string& path) const {
  std::string_view folder = WithoutBackslash(path);
  return MayActOn(folder) && Files().RemoveFolder(folder, true) == Status::Done ? 1 : 0;
}

long LibDirectory::RemoveTree(const std::string& path) const {
  std::string_view root = WithoutBackslash(path);
  if (!MayClearTree(root)) return 0;
  EntryInfo rootInfo = Files().Look(root);
  // A known folder that is a link is somebody's way to the real one.
  if (rootInfo.kind == EntryKind::FolderLink) return IsKnownFolder(root) ? 0 : Remove(path);
  if (rootInfo.kind != EntryKind::Folder) return 0;

  CountedList files, folders;
  if (LibFileList().ListTree(path, files, folders) != 0) return 0;
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
    if (MayActOn(entry)) Files().RemoveFile(entry, true);
  }
  for (int i = folders.UpperBound() - 1; i >= 0; --i) {
    folders.Get(i, entry);
    breath();
    if (MayActOn(entry)) Files().RemoveFolder(entry, true);
  }
  return Files().RemoveFolder(root, true) == Status::Done ? 1 : 0;
}

double LibDirectory::GetSize(const std::string& path, int /*reserved*/) const {
  Sum sum;
  WalkTree(path, true, true, sum);
  return sum.bytes;
}

}  // namespace platform
