#include "platform/Listings.h"

#include <vector>

#include "platform/Desktop.h"
#include "platform/Guard.h"
#include "platform/Machine.h"
#include "platform/PathText.h"
#include "platform/ProtectedFolders.h"
#include "platform/TreeWalk.h"

namespace platform {

namespace {

class BreathingVisitor : public TreeVisitor {
 public:
  explicit BreathingVisitor(TreeVisitor& visitor) : visitor_(visitor) {}
  bool Folder(std::string_view path) override {
    breath_();
    return visitor_.Folder(path);
  }
  bool Entry(std::string_view name, EntryKind kind, std::uint64_t size) override {
    breath_();
    return visitor_.Entry(name, kind, size);
  }

 private:
  TreeVisitor& visitor_;
  Breath breath_;
};

// Enters what a walk finds in one list or two, and tells the files to what looks at them ahead; null for what
// isn't wanted.
class Lister : public TreeVisitor {
 public:
  Lister(CountedList* files, CountedList* folders, SizesAhead* ahead)
      : files_{files}, folders_{folders}, ahead_(ahead) {}

  bool Folder(std::string_view path) override {
    // The walk is depth first, so that the way to this folder is kept but for its last steps.
    std::size_t parent = way_.empty() ? 0 : path.rfind('\\', path.size() - 2) + 1;
    while (!way_.empty() && way_.back().end > parent) way_.pop_back();
    path_.resize(parent);
    path_.append(path.substr(parent));
    way_.push_back({path_.size()});
    files_.current = folders_.current = 0;
    return true;
  }

  bool Entry(std::string_view name, EntryKind kind, std::uint64_t size) override {
    bool isFile = kind != EntryKind::Folder && kind != EntryKind::FolderLink;
    Target& target = isFile ? files_ : folders_;
    if (!target.list) return true;
    if (target.current == 0) {
      target.current = EnterWay(*target.list, isFile ? &Step::inFiles : &Step::inFolders);
      if (isFile && ahead_) ahead_->Folder(path_);
    }
    target.list->AddIn(target.current, name);
    if (isFile && ahead_) ahead_->File(name, size);
    return true;
  }

 private:
  struct Target {
    CountedList* list;
    std::uint32_t current = 0;  // the number of the folder being read; 0 while it isn't needed
  };
  // A folder on the way to the one being read, itself the last.
  struct Step {
    std::size_t end;  // of its path, its backslash included
    std::uint32_t inFiles = 0, inFolders = 0;
  };

  // Gives the last folder of the way its number, and before it those above that have none yet.
  std::uint32_t EnterWay(CountedList& list, std::uint32_t Step::*number) {
    std::size_t first = way_.size();
    while (first > 0 && way_[first - 1].*number == 0) --first;
    for (std::size_t i = first; i < way_.size(); ++i) {
      std::size_t begin = i == 0 ? 0 : way_[i - 1].end;
      std::string_view name = std::string_view(path_).substr(begin, way_[i].end - begin);
      way_[i].*number = list.AddFolder(i == 0 ? 0 : way_[i - 1].*number, name);
    }
    return way_.back().*number;
  }

  Target files_, folders_;
  SizesAhead* ahead_;
  std::string path_;
  std::vector<Step> way_;
};

Status List(const std::string& root, bool recursive, CountedList* files, CountedList* folders,
            SizesAhead* ahead = nullptr, std::span<const Identity> spared = {}) {
  std::string folder = root.ends_with('\\') ? root : root + '\\';  // "C:" is a drive, too
  if (!IsPlainPath(WithoutBackslash(folder))) return Status::Refused;
  Lister lister(files, folders, ahead);
  Status status = WalkTree(folder, recursive, ahead && ahead->WantsSizes(), lister, spared);
  if (ahead) ahead->Listed();
  return status == Status::Missing || status == Status::Refused ? Status::Done : status;
}

// The system's error numbers.
long CodeOf(Status status) {
  constexpr long kAccessDenied = 5, kNotReadable = 30;
  if (status == Status::Done) return 0;
  bool denied = status == Status::Denied || status == Status::Locked || status == Status::Refused;
  return denied ? kAccessDenied : kNotReadable;
}

}  // namespace

void Breath::operator()() {
  if (++count_ % 256 == 0) CurrentDesktop().Breathe();
}

bool IsKnownFolder(std::string_view path) {
  Locale& locale = CurrentMachine().GetLocale();
  std::string folded = locale.Fold(WithoutBackslash(path));
  for (const std::string& folder : KnownFolderPaths())
    if (locale.Fold(WithoutBackslash(folder)) == folded) return true;
  return false;
}

Status WalkTree(std::string_view root, bool recursive, bool sizes, TreeVisitor& visitor,
                std::span<const Identity> spared) {
  root = WithoutBackslash(root);
  WalkOptions options;
  options.recursive = recursive;
  options.sizes = sizes;
  options.spared = spared;
  options.rootIsKnown = IsDriveRoot(root) || IsKnownFolder(root);
  BreathingVisitor breathing(visitor);
  return CurrentMachine().Files().Walk(root, options, breathing);
}

namespace ops {

Status ListFiles(const std::string& root, CountedList& files, SizesAhead* ahead) {
  return List(root, true, &files, nullptr, ahead);
}
Status ListFolders(const std::string& root, CountedList& folders) {
  return List(root, true, nullptr, &folders);
}
Status ListAll(const std::string& root, CountedList& files, CountedList& folders) {
  return List(root, true, &files, &folders);
}
Status ListTree(const std::string& root, CountedList& files, CountedList& folders) {
  if (!MayClearTree(root)) return Status::Refused;
  // A mount may bring a folder that must stay below one that may be cleared.
  return List(root, true, &files, &folders, nullptr, KeptFolders());
}
Status ListFolder(const std::string& folder, CountedList& files) {
  return MayClearTree(folder) ? List(folder, false, &files, nullptr) : Status::Refused;
}
std::unique_ptr<SizesAhead> LookAhead() {
  return CurrentMachine().Files().LookAhead();
}

}  // namespace ops

long LibDriveScan::ScanTree(const std::string& root, CountedList& files) const {
  return CodeOf(ops::ListFiles(root, files));
}
long LibDriveScan::ScanFolders(const std::string& root, CountedList& folders) const {
  return CodeOf(ops::ListFolders(root, folders));
}

long LibTreeList::ListFiles(const std::string& path, CountedList& files) const {
  return LibDriveScan().ScanTree(path, files);
}
long LibTreeList::ListFolders(const std::string& path, CountedList& folders) const {
  return LibDriveScan().ScanFolders(path, folders);
}
long LibTreeList::ListAll(const std::string& path, CountedList& files, CountedList& folders) const {
  return CodeOf(ops::ListAll(path, files, folders));
}

long LibFileList::ListTree(const std::string& root, CountedList& files, CountedList& folders) const {
  return CodeOf(ops::ListTree(root, files, folders));
}
long LibFileList::ListFolder(const std::string& folder, CountedList& files) const {
  return CodeOf(ops::ListFolder(folder, files));
}

}  // namespace platform
