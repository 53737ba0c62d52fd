// The ZIP control's way out of an archive.
#include <cstring>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "backup/AbaleZip.h"
#include "backup/Archive.h"
#include "backup/ZipReasons.h"
#include "core/Numbers.h"
#include "core/Text.h"
#include "platform/Desktop.h"
#include "platform/Guard.h"
#include "platform/LibPath.h"
#include "platform/Machine.h"
#include "platform/Operations.h"
#include "platform/RandomName.h"

namespace backup {

using platform::EntryInfo;
using platform::EntryKind;
using platform::Status;

namespace {

constexpr std::size_t kBlock = 256 * 1024;

platform::FileSystem& Files() {
  return platform::CurrentMachine().Files();
}

bool HasDrive(std::string_view path) {
  return path.size() >= 3 && path[1] == ':' && path[2] == '\\' &&
         ((path[0] >= 'A' && path[0] <= 'Z') || (path[0] >= 'a' && path[0] <= 'z'));
}
std::string_view WithoutDrive(std::string_view path) {
  return HasDrive(path) ? path.substr(3) : path;
}
std::string_view LastName(std::string_view path) {
  return path.substr(path.rfind('\\') + 1);
}

// The content of an entry, never more than the archive's directory says that there is.
class Content {
 public:
  Content(zip_t* zip, const Entry& entry) : file_(zip_fopen_index(zip, entry.index, 0)), left_(entry.size) {}
  ~Content() {
    if (file_) zip_fclose(file_);
  }
  Content(const Content&) = delete;
  Content& operator=(const Content&) = delete;

  // Fills as much of the buffer as there is; an empty span at the end, when the checksum has proved right.
  // Nothing if the entry is damaged.
  std::optional<std::span<const std::byte>> Next(std::vector<std::byte>& buffer) {
    if (!file_) return {};
    platform::CurrentDesktop().Breathe();
    std::size_t size = 0;
    while (size < buffer.size()) {
      zip_int64_t got = zip_fread(file_, buffer.data() + size, buffer.size() - size);
      if (got < 0 || static_cast<std::uint64_t>(got) > left_) return {};
      if (got == 0) {
        if (left_ > 0) return {};
        break;
      }
      size += static_cast<std::size_t>(got);
      left_ -= static_cast<std::uint64_t>(got);
    }
    return std::span(buffer).first(size);
  }

 private:
  zip_file_t* file_;
  std::uint64_t left_;
};

// A file under a temporary name, removed again unless it was put in place.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::string& folder) {
    std::string front = platform::LibPath().AddBackslash(folder);
    status_ = Status::Exists;
    for (int attempt = 0; attempt < 10 && status_ == Status::Exists; ++attempt) {
      path_ = front + platform::RandomName(8) + ".tmp";
      file_ = Files().Open(path_, platform::OpenMode::CreateNew, status_);
    }
    there_ = file_ != nullptr;
  }
  ~TemporaryFile() {
    file_.reset();
    if (!there_) return;
    if (readOnly_) Files().SetAttributes(path_, 0);
    Files().RemoveFile(path_);
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  Status Made() const { return status_; }
  Status Write(std::span<const std::byte> data) {
    Status status = file_->Write(at_, data);
    at_ += data.size();
    return status;
  }
  // A file system that can't keep them all has no better.
  void Finish(const Entry& entry) {
    file_.reset();
    Files().SetTimes(path_, entry.dates.created, entry.dates.accessed, entry.dates.modified);
    Files().SetAttributes(path_, entry.attributes);
    readOnly_ = entry.attributes & platform::kReadOnly;
  }
  Status MoveTo(const std::string& path) {
    Status status = Files().Rename(path_, path, false);
    if (status == Status::Done) there_ = false;
    return status;
  }

 private:
  std::string path_;
  std::unique_ptr<platform::File> file_;
  std::uint64_t at_ = 0;
  Status status_;
  bool there_ = false, readOnly_ = false;
};

// One run over an archive: which entries, and what became of them.
class Extraction {
 public:
  Extraction(zip_t* zip, bool keepPaths, const std::string& target)
      : zip_(zip),
        keepPaths_(keepPaths),
        target_(platform::LibPath().AddBackslash(target)),
        buffer_(kBlock) {}

  void Choose(const platform::CountedList& pending) {
    auto count = static_cast<zip_uint64_t>(zip_get_num_entries(zip_, 0));
    if (pending.Empty()) {
      for (zip_uint64_t i = 0; i < count; ++i) chosen_.push_back(i);
      return;
    }
    PathIndex index(zip_);
    for (zip_uint64_t i = 0; i < count; ++i) index.Add(EntryPath(zip_, i), i);
    std::unordered_set<std::int64_t> taken;
    std::string path;
    for (int i = 0; i < pending.UpperBound(); ++i) {
      pending.Get(i, path);
      std::int64_t found = index.Find(path);
      if (found < 0) {
        ++asked_;
        NoteFailure(path, "the archive doesn't hold it");
      } else if (taken.insert(found).second) {
        chosen_.push_back(static_cast<zip_uint64_t>(found));
      }
    }
  }

  // Looks at what was chosen and whether the drives have room for it. A text if they don't, otherwise empty.
  std::string Prepare() {
    std::map<std::string, double> needed;
    for (zip_uint64_t index : chosen_) {
      platform::CurrentDesktop().Breathe();
      Entry entry = ReadEntry(zip_, index);
      std::string path = WholePath(entry);
      if (path.empty()) continue;
      needed[platform::LibPath().GetDriveRoot(path)] += static_cast<double>(entry.size);
      if (!keepPaths_ && !entry.folder) ++names_[core::Fold(LastName(entry.path))];
    }
    for (const auto& [root, size] : needed) {
      auto drive = platform::CurrentMachine().GetDrives().Info(root);
      // What lies in its place already with the same size may stay there, so it is only now looked at one by
      // one.
      // A file system that doesn't know its size doesn't know its room either.
      if (drive && drive->total > 0 && size > drive->free && (!keepPaths_ || StillNeeded(root) > drive->free))
        return "Drive " + root + " hasn't the room for the " + core::NumberText(size) +
               " bytes that the archive holds.";
    }
    return {};
  }

  void Run() {
    for (zip_uint64_t index : chosen_) {
      Entry entry = ReadEntry(zip_, index);
      ++asked_;
      std::string reason = Extract(entry);
      if (!reason.empty()) NoteFailure(entry.path, reason);
    }
  }

  // A sentence on what failed; empty if nothing did.
  std::string Failures() const {
    if (failed_ == 0) return {};
    return core::NumberText(failed_) + " of " + core::NumberText(asked_) + " files could not be " +
           (keepPaths_ ? "restored" : "extracted") + ". The first is " + firstPath_ + ": " + firstReason_ +
           ".";
  }

 private:
  void NoteFailure(const std::string& path, const std::string& reason) {
    if (failed_++ > 0) return;
    firstPath_ = path;
    firstReason_ = reason;
  }

  // Where an entry goes if its own path decides; empty if that is no path that may be written to.
  std::string WholePath(const Entry& entry) const {
    std::string_view path = entry.path;
    if (entry.folder) path.remove_suffix(1);
    std::string whole = target_.empty() ? std::string(path) : target_ + std::string(WithoutDrive(path));
    if (!platform::MayActOn(whole)) whole.clear();
    return whole;
  }

  double StillNeeded(const std::string& root) {
    double size = 0;
    for (zip_uint64_t index : chosen_) {
      platform::CurrentDesktop().Breathe();
      Entry entry = ReadEntry(zip_, index);
      std::string path = WholePath(entry);
      if (path.empty() || platform::LibPath().GetDriveRoot(path) != root) continue;
      EntryInfo there = Files().Look(path);
      if (there.kind != EntryKind::File || there.size != entry.size) size += static_cast<double>(entry.size);
    }
    return size;
  }

  // Why it failed; empty if it is done.
  std::string Extract(const Entry& entry) {
    if (entry.damaged) return "its entry is damaged";
    if (entry.special) return "it is a link";
    if (entry.encrypted) return "it is encrypted";
    std::string path = WholePath(entry);
    if (path.empty()) return "its name isn't that of a file";
    if (keepPaths_) {
      if (entry.folder) return MakeFolder(path) ? "" : "its folder can't be made";
      return Restore(entry, path);
    }
    // Sub-folders come with the files that need one.
    return entry.folder ? "" : Unfold(entry);
  }

  std::string Restore(const Entry& entry, const std::string& path) {
    std::string folder = platform::LibPath().GetFolder(path);
    if (!MakeFolder(folder)) return "its folder can't be made";
    EntryInfo there = Files().Look(path);
    if (IsLink(there.kind)) return "a link of that name is there";
    if (there.kind == EntryKind::Folder) return "a folder of that name is there";
    if (there.kind == EntryKind::Unreadable) return "what is there can't be looked at";
    if (there.kind == EntryKind::File && there.size == entry.size) {
      std::optional<bool> same = HasContent(path, entry);
      if (!same) return kDamaged;
      if (*same) return {};
    }
    TemporaryFile file(folder);
    std::string reason = Write(entry, file);
    if (!reason.empty()) return reason;
    if (there.kind == EntryKind::File && platform::ops::MoveToBin(path) != Status::Done)
      return "the file that is there can't be moved to the recycle bin";
    return Reason(file.MoveTo(path));
  }

  std::string Unfold(const Entry& entry) {
    std::string_view path = WithoutDrive(entry.path), name = LastName(path);
    std::string folder = target_;
    if (!MakeFolder(target_)) return "the folder can't be made";
    if (names_[core::Fold(name)] > 1) {
      std::optional<std::string> made = SubFolder(path.substr(0, path.size() - name.size()));
      if (!made) return "its folder can't be made";
      folder = *made;
    }
    TemporaryFile file(folder);
    std::string reason = Write(entry, file);
    if (!reason.empty()) return reason;
    std::string first = folder + std::string(name), free = first;
    for (int number = 2;; ++number) {
      Status status = Status::Exists;
      if (Files().Look(free).kind == EntryKind::Missing) status = file.MoveTo(free);
      if (status != Status::Exists) return Reason(status);
      free = Numbered(first, number);
    }
  }

  std::string Write(const Entry& entry, TemporaryFile& file) {
    if (file.Made() != Status::Done) return Reason(file.Made());
    Content content(zip_, entry);
    while (true) {
      auto data = content.Next(buffer_);
      if (!data) return kDamaged;
      if (data->empty()) break;
      Status status = file.Write(*data);
      if (status != Status::Done) return Reason(status);
    }
    file.Finish(entry);
    return {};
  }

  // Whether a file holds what an entry holds. Nothing if the entry is damaged.
  std::optional<bool> HasContent(const std::string& path, const Entry& entry) {
    Status status = Status::Failed;
    auto file = Files().Open(path, platform::OpenMode::Read, status);
    if (!file) return false;
    Content content(zip_, entry);
    there_.resize(kBlock);
    for (std::uint64_t at = 0;;) {
      auto data = content.Next(buffer_);
      if (!data) return {};
      std::span<std::byte> room = std::span(there_).first(data->size());
      for (std::size_t filled = 0; filled < room.size();) {
        auto got = file->Read(at + filled, room.subspan(filled));
        if (!got || *got == 0) return false;
        filled += *got;
      }
      if (data->empty()) return true;
      if (std::memcmp(room.data(), data->data(), room.size()) != 0) return false;
      at += data->size();
    }
  }

  bool MakeFolder(const std::string& folder) {
    auto known = folders_.find(folder);
    if (known != folders_.end()) return known->second;
    return folders_[folder] = platform::ops::MakeFolder(folder) == Status::Done;
  }

  // The folder below the target for a path "a\b\", with a backslash at its end. Where a file or a link has
  // the name, the folder gets a number like a file does.
  std::optional<std::string> SubFolder(std::string_view path) {
    auto known = subFolders_.find(core::Fold(path));
    if (known != subFolders_.end()) return known->second;
    std::string folder = target_;
    std::size_t done = 0;
    while (done < path.size()) {
      std::size_t end = path.find('\\', done);
      std::string first = folder + std::string(path.substr(done, end - done)), free = first;
      for (int number = 2;; ++number) {
        EntryKind kind = Files().Look(free).kind;
        if (kind == EntryKind::Folder) break;
        // What can't be looked at lies behind a link, whatever its number.
        if (kind == EntryKind::Unreadable) return {};
        if (kind == EntryKind::Missing) {
          if (Files().CreateFolder(free) != Status::Done) return {};
          break;
        }
        free = Numbered(first, number);
      }
      folder = free + "\\";
      done = end + 1;
    }
    subFolders_[core::Fold(path)] = folder;
    return folder;
  }

  static constexpr char kDamaged[] = "its content is damaged, or packed in an unknown way";

  zip_t* zip_;
  bool keepPaths_;
  std::string target_;  // with its backslash; empty for none
  std::vector<zip_uint64_t> chosen_;
  std::unordered_map<std::string, int> names_;
  std::unordered_map<std::string, bool> folders_;
  std::unordered_map<std::string, std::string> subFolders_;
  std::vector<std::byte> buffer_, there_;
  double asked_ = 0, failed_ = 0;
  std::string firstPath_, firstReason_;
};

// No two entries of an honest archive share their bytes. Some that do hold a thousand times what they seem
// to.
bool Overlaps(zip_t* zip, std::uint64_t length) {
  auto count = static_cast<zip_uint64_t>(zip_get_num_entries(zip, 0));
  std::uint64_t left = length;
  for (zip_uint64_t i = 0; i < count; ++i) {
    zip_stat_t stat;
    if (zip_stat_index(zip, i, 0, &stat) != 0 || stat.comp_size > left) return true;
    left -= stat.comp_size;
  }
  return false;
}

}  // namespace

long AbaleZip::Unzip() {
  if (!KeepPaths && TargetFolder.empty()) return Fail(kFailed, "There is no folder to extract into.");
  ArchiveFile file(ZipFilename, ZipFilename);
  Archive archive(file, ZIP_RDONLY);
  if (!archive.IsOpen()) return Fail(kFailed, WhyNotOpen(ZipFilename, file, archive));
  if (Overlaps(archive.Zip(), file.Length()))
    return Fail(kFailed, "The archive " + ZipFilename + " is damaged: its entries share their bytes.");
  Extraction extraction(archive.Zip(), KeepPaths, TargetFolder);
  extraction.Choose(FilesToProcess.Paths());
  std::string problem = extraction.Prepare();
  if (problem.empty()) {
    extraction.Run();
    problem = extraction.Failures();
  }
  return problem.empty() ? kDone : Fail(kFailed, problem);
}

}  // namespace backup
