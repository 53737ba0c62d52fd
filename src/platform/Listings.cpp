#include "platform/Listings.h"

#include "platform/Desktop.h"
#include "platform/Guard.h"
#include "platform/Machine.h"
#include "platform/PathText.h"
#include "platform/ProtectedFolders.h"
#include "platform/TreeWalk.h"

namespace platform {

namespace {

// The system's error numbers.
constexpr long kPathNotFound = 3, kAccessDenied = 5, kNotReadable = 30;

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
    path_ = path;
    files_.entered = folders_.entered = false;
    return true;
  }

  bool Entry(std::string_view name, EntryKind kind, std::uint64_t size) override {
    bool isFile = kind != EntryKind::Folder && kind != EntryKind::FolderLink;
    Target& target = isFile ? files_ : folders_;
    if (!target.list) return true;
    if (!target.entered) {
      target.folder = target.list->AddFolder(path_);
      target.entered = true;
      if (isFile && ahead_) ahead_->Folder(path_);
    }
    target.list->AddIn(target.folder, name);
    if (isFile && ahead_) ahead_->File(name, size);
    return true;
  }

 private:
  struct Target {
    CountedList* list;
    // The folder being read has its number in the list only once it is needed there.
    bool entered = false;
    std::uint32_t folder = 0;
  };
  Target files_, folders_;
  SizesAhead* ahead_;
  std::string path_;
};

long List(const std::string& root, bool recursive, CountedList* files, CountedList* folders,
          SizesAhead* ahead = nullptr) {
  std::string folder = root.ends_with('\\') ? root : root + '\\';  // "C:" is a drive, too
  if (!IsPlainPath(WithoutBackslash(folder))) return kPathNotFound;
  Lister lister(files, folders, ahead);
  Status status = WalkTree(folder, recursive, ahead && ahead->WantsSizes(), lister);
  if (ahead) ahead->Listed();
  switch (status) {
    case Status::Done:
    case Status::Missing:
    case Status::Refused:
      return 0;
    case Status::Denied:
    case Status::Locked:
      return kAccessDenied;
    default:
      return kNotReadable;
  }
}

// Every name matches "*.*", with a dot or without; any other pattern matches nothing here.
bool IsEveryName(const std::string& pattern) {
  return pattern == "*.*";
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

Status WalkTree(std::string_view root, bool recursive, bool sizes, TreeVisitor& visitor) {
  root = WithoutBackslash(root);
  WalkOptions options;
  options.recursive = recursive;
  options.sizes = sizes;
  options.rootIsKnown = IsDriveRoot(root) || IsKnownFolder(root);
  BreathingVisitor breathing(visitor);
  return CurrentMachine().Files().Walk(root, options, breathing);
}

long LibDriveScan::ScanTree(const std::string& root, const std::string& pattern, CountedList& files,
                            SizesAhead* ahead) const {
  return IsEveryName(pattern) ? List(root, true, &files, nullptr, ahead) : 0;
}

std::unique_ptr<SizesAhead> LibDriveScan::LookAhead() const {
  return CurrentMachine().Files().LookAhead();
}

long LibDriveScan::ScanFolders(const std::string& root, const std::string& pattern,
                               CountedList& folders) const {
  return IsEveryName(pattern) ? List(root, true, nullptr, &folders) : 0;
}

long LibTreeList::ListFiles(const std::string& path, const std::string& pattern, CountedList& files) const {
  return IsEveryName(pattern) ? List(path, true, &files, nullptr) : 0;
}

long LibTreeList::ListFolders(const std::string& path, const std::string& pattern,
                              CountedList& folders) const {
  return IsEveryName(pattern) ? List(path, true, nullptr, &folders) : 0;
}

long LibTreeList::ListAll(const std::string& path, const std::string& pattern, CountedList& files,
                          CountedList& folders) const {
  return IsEveryName(pattern) ? List(path, true, &files, &folders) : 0;
}

long LibFileList::ListTree(const std::string& root, CountedList& files, CountedList& folders) const {
  return MayClearTree(root) ? List(root, true, &files, &folders) : kAccessDenied;
}

long LibFileList::ListFolder(const std::string& folder, CountedList& files) const {
  return MayClearTree(folder) ? List(folder, false, &files, nullptr) : kAccessDenied;
}

}  // namespace platform
