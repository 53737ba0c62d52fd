// The ZIP control's way into an archive.
#include <chrono>
#include <string>
#include <vector>

#include "backup/AbaleZip.h"
#include "backup/Filling.h"
#include "core/Text.h"
#include "platform/Guard.h"
#include "platform/LibPath.h"
#include "platform/Machine.h"
#include "platform/Operations.h"
#include "platform/RuntimeError.h"
#include "platform/WriteBeside.h"

namespace backup {

using platform::EntryKind;

namespace {

platform::FileSystem& Files() {
  return platform::CurrentMachine().Files();
}

// Temporary files of writers that were killed. A living one writes to its own all the time, so that none of a
// day's age is.
void RemoveLeftovers(const std::string& folder) {
  struct Visitor : platform::TreeVisitor {
    std::vector<std::string> names;
    bool Folder(std::string_view) override { return true; }
    bool Entry(std::string_view name, EntryKind kind, std::uint64_t) override {
      std::string_view target;
      if (kind == EntryKind::File && platform::WriteBeside::IsName(name, &target) && target.size() > 4 &&
          core::Equals(target.substr(target.size() - 4), ".zip"))
        names.emplace_back(name);
      return true;
    }
  } leftovers;
  platform::WalkOptions options;
  options.recursive = false;
  Files().Walk(folder, options, leftovers);
  using namespace std::chrono;
  platform::Moment yesterday =
      duration_cast<nanoseconds>((system_clock::now() - hours(24)).time_since_epoch()).count();
  for (const std::string& name : leftovers.names) {
    std::string path = platform::LibPath().AddBackslash(folder) + name;
    platform::EntryInfo info = Files().Look(path);
    if (info.kind == EntryKind::File && info.modified < yesterday) Files().RemoveFile(path);
  }
}

std::unique_ptr<Filling> Open(const std::string& archive) {
  if (!platform::MayActOn(archive)) throw platform::BadFileName();
  std::string folder = platform::LibPath().GetFolder(archive);
  if (platform::ops::MakeFolder(folder) != platform::Status::Done) throw platform::PathNotFound();
  RemoveLeftovers(folder);
  return std::make_unique<Filling>(archive);
}

// What an entry is called if no handler says otherwise: its path without the drive, or its name.
std::string DefaultName(const std::string& path, bool keepPath) {
  return keepPath ? path.substr(3) : platform::LibPath().GetFileName(path);
}

}  // namespace

AbaleZip::AbaleZip() = default;
AbaleZip::~AbaleZip() = default;

long AbaleZip::Zip(BackupPromise* promise) {
  leftOut_.clear();
  const platform::CountedList& paths = FilesToProcess.Paths();
  if (paths.Empty()) return kDone;
  std::unique_ptr<Filling> own;
  if (!joined_ || !filling_) own = Open(ZipFilename);
  if (joined_ && own) filling_ = std::move(own);
  Filling& filling = own ? *own : *filling_;
  auto name = [this](const std::string& path) {
    std::string entry = DefaultName(path, KeepPaths);
    AbaZip_PrepareEntry(entry, ZipFilename, path);
    return entry;
  };
  bool whole = filling.Store(paths, name, leftOut_);
  if (own) whole = whole && filling.Finish(promise);
  if (!whole) return Fail(kFailed, kStopped);
  if (leftOut_.empty()) return kDone;
  return Fail(kLeftOut, "Some files could not be stored. The first is " + leftOut_.front() + ".");
}

void AbaleZip::Join() {
  filling_.reset();
  joined_ = true;
}

long AbaleZip::Finish(BackupPromise* promise) {
  joined_ = false;
  std::unique_ptr<Filling> filling = std::move(filling_);
  if (filling && !filling->Finish(promise)) return Fail(kFailed, kStopped);
  return kDone;
}

void AbaleZip::Cancel() {
  joined_ = false;
  filling_.reset();
}

}  // namespace backup
