// The ZIP control's way into an archive.
#include <chrono>
#include <string>
#include <vector>

#include "backup/AbaleZip.h"
#include "backup/Archive.h"
#include "backup/StoredFiles.h"
#include "backup/ZipReasons.h"
#include "core/Text.h"
#include "platform/Desktop.h"
#include "platform/Guard.h"
#include "platform/LibPath.h"
#include "platform/Machine.h"
#include "platform/Operations.h"

namespace backup {

using platform::EntryInfo;
using platform::EntryKind;

namespace {

// zlib's and every other ZIP program's default. libzip's own is 9, three times as slow for a few bytes.
constexpr zip_uint32_t kLevel = 6;
constexpr std::size_t kLongestName = 65535;

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
      constexpr std::string_view end = ArchiveFile::kTemporarySuffix;
      // "name.zip.1A2B3C.part"
      if (kind != EntryKind::File || !name.ends_with(end)) return true;
      name.remove_suffix(end.size());
      if (name.size() > 11 && core::Equals(name.substr(name.size() - 11, 5), ".zip."))
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
    std::string path = platform::LibPath().AddBackslash(folder) + name + ArchiveFile::kTemporarySuffix;
    EntryInfo info = Files().Look(path);
    if (info.kind == EntryKind::File && info.modified < yesterday) Files().RemoveFile(path);
  }
}

// One filling of an archive.
class Filling {
 public:
  Filling(const std::string& target, const platform::CountedList& paths)
      : target_(target),
        paths_(paths),
        before_(Files().Look(target)),
        stored_(paths),
        file_(target, target),
        archive_(file_, ZIP_CREATE),
        index_(archive_.Zip()) {
    if (!archive_.IsOpen()) throw ArchiveFailure(file_, archive_);
    file_.Expect(before_);
    file_.HoldBack = [this] { return stored_.AnyFailed(); };
    first_ = archive_.Count();
    for (zip_uint64_t i = 0; i < first_; ++i) index_.Add(EntryPath(archive_.Zip(), i), i);
  }

  void Add(int place, const EntryInfo& info, const std::string& path, const std::string& entryPath) {
    std::int64_t older = index_.Find(entryPath);
    if (older >= 0) {
      // The same file once more in the list.
      auto at = static_cast<zip_uint64_t>(older);
      if (at >= first_ && paths_[stored_.Files()[at - first_].index] == path) return;
      MakeRoom(at);
    }

    zip_t* zip = archive_.Zip();
    std::string name = ToEntryName(entryPath);
    bool raw = !IsPlainUtf8(name);
    zip_source_t* source = stored_.Source(place, info, nullptr);
    if (!source) throw platform::OutOfMemory();
    zip_int64_t added = zip_file_add(zip, name.c_str(), source, raw ? ZIP_FL_ENC_GUESS : ZIP_FL_ENC_UTF_8);
    if (added < 0) {
      zip_source_free(source);
      throw platform::OutOfMemory();
    }
    auto entry = static_cast<zip_uint64_t>(added);
    stored_.EnteredAs(entry);
    index_.Add(entryPath, entry);

    NtfsField dates = PackDates(info);
    std::uint32_t attributes =
        info.attributes & (platform::kReadOnly | platform::kHidden | platform::kSystem | platform::kArchive);
    bool done = zip_set_file_compression(zip, entry, ZIP_CM_DEFLATE, kLevel) == 0 &&
                zip_file_set_mtime(zip, entry, info.modified / 1'000'000'000, 0) == 0 &&
                zip_file_set_external_attributes(zip, entry, 0, ZIP_OPSYS_DOS, attributes) == 0 &&
                zip_file_extra_field_set(zip, entry, kNtfsField, 0, dates.data(),
                                         static_cast<zip_uint16_t>(dates.size()),
                                         ZIP_FL_LOCAL | ZIP_FL_CENTRAL) == 0 &&
                WriteCheck(zip, entry, raw, name);
    if (!done) throw platform::OutOfMemory();
  }

  // Writes the archive. The places in the list of the files that turned out not to be readable are added to
  // `failed`.
  void Finish(std::vector<int>& failed) {
    if (stored_.Files().empty()) return;
    if (!archive_.Close()) throw ArchiveFailure(file_, archive_);
    if (!stored_.AnyFailed()) return;
    for (const auto& file : stored_.Files())
      if (file.failed) failed.push_back(file.index);
    if (failed.size() < stored_.Files().size()) WriteWithoutFailed();
  }

  // Enters what the written archive holds.
  void Promise(BackupPromise& promise) const {
    for (const auto& file : stored_.Files())
      if (!file.failed) promise.Add(paths_[file.index], file.size, file.modified);
  }

 private:
  struct Renaming {
    zip_uint64_t older;
    std::string path;
    zip_uint64_t newer;
  };

  // Gives the entry of this place another name, because a newer one takes its path.
  void MakeRoom(zip_uint64_t older) {
    std::string path = EntryPath(archive_.Zip(), older), free;
    for (int number = 2; free.empty(); ++number) {
      free = Numbered(path, number);
      if (index_.Find(free) >= 0) free.clear();
    }
    if (!RenameEntry(archive_.Zip(), older, free)) throw platform::OutOfMemory();
    index_.Remove(path, older);
    index_.Add(free, older);
    renamed_.push_back({older, path, first_ + stored_.Files().size()});
  }

  // A second pass over what the first has written beside the target: takes the entries out whose files could
  // not be read to their end, and puts the rest in place. What they would have replaced gets its name back.
  void WriteWithoutFailed() {
    ArchiveFile written(file_.Temporary(), target_);
    written.Expect(before_);
    Archive archive(written, 0);
    if (!archive.IsOpen()) throw ArchiveFailure(written, archive);
    auto hasFailed = [this](zip_uint64_t entry) {
      return entry >= first_ && stored_.Files()[entry - first_].failed;
    };
    for (const auto& file : stored_.Files())
      if (file.failed && zip_delete(archive.Zip(), file.entry) != 0) throw platform::OutOfMemory();
    for (const Renaming& renaming : renamed_)
      if (hasFailed(renaming.newer) && !hasFailed(renaming.older))
        RenameEntry(archive.Zip(), renaming.older, renaming.path);
    if (!archive.Close()) throw ArchiveFailure(written, archive);
  }

  std::string target_;
  const platform::CountedList& paths_;
  EntryInfo before_;
  StoredFiles stored_;
  ArchiveFile file_;
  Archive archive_;
  PathIndex index_;
  zip_uint64_t first_ = 0;  // the first entry that is new
  std::vector<Renaming> renamed_;
};

// What an entry is called if no handler says otherwise: its path without the drive, or its name.
std::string DefaultName(const std::string& path, bool keepPath) {
  return keepPath ? path.substr(3) : platform::LibPath().GetFileName(path);
}

}  // namespace

long AbaleZip::Zip(BackupPromise* promise) {
  leftOut_.clear();
  const platform::CountedList& paths = FilesToProcess.Paths();
  if (paths.Empty()) return kDone;
  if (!platform::MayActOn(ZipFilename)) throw platform::BadFileName();
  std::string folder = platform::LibPath().GetFolder(ZipFilename);
  if (platform::ops::MakeFolder(folder) != platform::Status::Done) throw platform::PathNotFound();
  RemoveLeftovers(folder);

  Filling filling(ZipFilename, paths);
  std::string path;
  for (int i = 0; i < paths.UpperBound(); ++i) {
    platform::CurrentDesktop().Breathe();
    paths.Get(i, path);
    EntryInfo info = platform::MayActOn(path) ? Files().Look(path) : EntryInfo();
    if (IsLink(info.kind)) continue;
    // Whether it can be read is asked now, because each file that fails later costs a second pass over the
    // archive.
    platform::Status status = platform::Status::Failed;
    bool readable = info.kind == EntryKind::File && !core::Equals(path, ZipFilename) &&
                    Files().Open(path, platform::OpenMode::Read, status);
    std::string name;
    if (readable) {
      name = DefaultName(path, KeepPaths);
      AbaZip_PrepareEntry(name, ZipFilename, path);
    }
    if (name.empty() || name.size() > kLongestName)
      leftOut_.push_back(path);
    else
      filling.Add(i, info, path, name);
  }
  std::vector<int> failed;
  filling.Finish(failed);
  if (promise) filling.Promise(*promise);
  for (int place : failed) leftOut_.push_back(paths[place]);
  if (leftOut_.empty()) return kDone;
  return Fail(kLeftOut, "Some files could not be stored. The first is " + leftOut_.front() + ".");
}

}  // namespace backup
