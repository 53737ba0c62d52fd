#include "backup/Extraction.h"

#include <algorithm>
#include <cstring>

#include "backup/ZipReasons.h"
#include "core/Numbers.h"
#include "core/Text.h"
#include "platform/Desktop.h"
#include "platform/Guard.h"
#include "platform/LibPath.h"
#include "platform/Machine.h"
#include "platform/Operations.h"

namespace backup {

using platform::EntryInfo;
using platform::EntryKind;
using platform::Status;

namespace {

constexpr std::size_t kBlock = 256 * 1024;
constexpr std::size_t kMostParts = 256, kMostFolders = 5;
constexpr int kMostNumbers = 100'000;
constexpr char kDamaged[] = "its content is damaged, or packed in an unknown way";

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
  // With `packed` as it lies in the archive.
  Content(zip_t* zip, const Entry& entry, bool packed = false)
      : file_(zip_fopen_index(zip, entry.index, packed ? ZIP_FL_COMPRESSED : 0)),
        left_(packed ? entry.compressedSize : entry.size) {}
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

}  // namespace

Extraction::Extraction(zip_t* zip, bool keepPaths, const std::string& target, std::string key)
    : zip_(zip),
      keepPaths_(keepPaths),
      target_(platform::LibPath().AddBackslash(target)),
      key_(std::move(key)),
      buffer_(kBlock) {}

void Extraction::Choose(const platform::CountedList& pending) {
  auto count = static_cast<zip_uint64_t>(zip_get_num_entries(zip_, 0));
  if (pending.Empty()) {
    for (zip_uint64_t i = 0; i < count; ++i) chosen_.push_back(i);
    return;
  }
  PathIndex index(zip_);
  std::set<std::int64_t> taken;
  std::string path;
  for (int i = 0; i < pending.UpperBound(); ++i) {
    platform::CurrentDesktop().Breathe();
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

std::string Extraction::Prepare(Foreign& foreign) {
  std::map<std::string, double> needed;
  std::set<std::string> folders;
  for (zip_uint64_t index : chosen_) {
    platform::CurrentDesktop().Breathe();
    if (stop_.Stopped()) return {};
    Entry entry = ReadEntry(zip_, index, key_);
    std::string path = WholePath(entry);
    if (path.empty()) continue;
    needed[platform::LibPath().GetDriveRoot(path)] += static_cast<double>(entry.size);
    if (!entry.folder) ++names_[core::Fold(keepPaths_ ? std::string_view(path) : LastName(entry.path))];
    if (!target_.empty() || entry.marked || forbidden_.Hold(path)) continue;
    ++foreign.count;
    if (folders.size() < kMostFolders) folders.insert(path.substr(0, path.rfind('\\') + 1));
  }
  foreign.folders.assign(folders.begin(), folders.end());
  for (const auto& [root, size] : needed) {
    auto drive = platform::CurrentMachine().GetDrives().Info(root);
    // What lies in its place already with the same size may stay there, so it is only now looked at one by
    // one. A file system that doesn't know its size doesn't know its room either.
    if (drive && drive->total > 0 && size > drive->free && (!keepPaths_ || StillNeeded(root) > drive->free))
      return "Drive " + root + " does not have enough free space for the " + core::NumberText(size) +
             " bytes that the archive holds.";
  }
  return {};
}

bool Extraction::Run(bool foreignToo) {
  for (zip_uint64_t index : chosen_) {
    platform::CurrentDesktop().Breathe();
    if (stop_.Stopped()) break;
    Entry entry = ReadEntry(zip_, index, key_);
    ++asked_;
    std::string reason = WhyNot(entry, foreignToo);
    if (reason.empty())
      Extract(entry, WholePath(entry));
    else
      NoteFailure(entry.path, reason);
    TakeDone(false);
  }
  TakeDone(true);
  bool flushed = placing_.Finish();
  for (const Placing::Failure& failure : placing_.TakeFailures()) NoteFailure(failure.shown, failure.reason);
  if (!flushed && failed_ == 0) NoteFailure(target_, "a folder couldn't be brought onto the disk");
  return !stop_.Stopped();
}

std::string Extraction::Failures() const {
  if (failed_ == 0) return {};
  return core::NumberText(failed_) + " of " + core::NumberText(asked_) + " files could not be " +
         (keepPaths_ ? "restored" : "extracted") + ". The first is " + firstPath_ + ": " + firstReason_ + ".";
}

void Extraction::NoteFailure(const std::string& path, const std::string& reason) {
  if (failed_++ > 0) return;
  firstPath_ = path;
  firstReason_ = reason;
}

// Where an entry goes if its own path decides; empty if that is no path that may be written to.
std::string Extraction::WholePath(const Entry& entry) const {
  std::string_view path = entry.path;
  if (static_cast<std::size_t>(std::count(path.begin(), path.end(), '\\')) >= kMostParts) return {};
  if (entry.folder) path.remove_suffix(1);
  std::string whole = target_.empty() ? std::string(path) : target_ + std::string(WithoutDrive(path));
  if (!platform::MayActOn(whole)) whole.clear();
  return whole;
}

double Extraction::StillNeeded(const std::string& root) {
  double size = 0;
  for (zip_uint64_t index : chosen_) {
    platform::CurrentDesktop().Breathe();
    if (stop_.Stopped()) break;
    Entry entry = ReadEntry(zip_, index, key_);
    std::string path = WholePath(entry);
    if (path.empty() || platform::LibPath().GetDriveRoot(path) != root) continue;
    EntryInfo there = Files().Look(path);
    if (there.kind != EntryKind::File || there.size != entry.size) size += static_cast<double>(entry.size);
  }
  return size;
}

// Why an entry isn't even tried; empty if it is.
std::string Extraction::WhyNot(const Entry& entry, bool foreignToo) {
  if (entry.damaged) return "its entry is damaged";
  if (entry.special) return "it is a link";
  if (entry.encrypted) return "it is encrypted";
  std::string path = WholePath(entry);
  if (path.empty()) return "its name is not valid for a file";
  if (entry.marked || !target_.empty() || !keepPaths_) return {};
  if (forbidden_.Hold(path)) return "nothing that isn't from your own backups is written there";
  return foreignToo ? "" : "it isn't from your own backups";
}

void Extraction::Extract(const Entry& entry, const std::string& path) {
  if (entry.folder) {
    // When extracting, folders come with the files that need one.
    if (keepPaths_ && !MakeFolder(path)) NoteFailure(entry.path, "its folder can't be created");
    return;
  }
  if (Give(entry, path)) return;
  // The order of the entries decides who gets which name.
  TakeDone(true);
  Place(entry, path, nullptr);
}

// Gives a small entry to the threads. False for one that must be read piece by piece.
bool Extraction::Give(const Entry& entry, const std::string& path) {
  bool deflated = entry.method == ZIP_CM_DEFLATE;
  if (entry.size > kPiece || entry.compressedSize > kPiece + kPiece / 4 ||
      (!deflated && (entry.method != ZIP_CM_STORE || entry.size != entry.compressedSize)))
    return false;
  std::vector<std::byte> packed(static_cast<std::size_t>(entry.compressedSize) + 1);
  auto read = Content(zip_, entry, true).Next(packed);
  if (!read) {
    NoteFailure(entry.path, kDamaged);
    return true;
  }
  packed.resize(read->size());
  Piece piece{0, static_cast<std::uint32_t>(packed.size()), static_cast<std::uint32_t>(entry.size), entry.crc,
              deflated};
  auto job = std::make_unique<UnpackJob>(std::move(packed), piece);
  job->keep = true;
  job->digested = entry.marked;
  underway_.push_back({entry, path});
  workers_.Give(std::move(job));
  return true;
}

void Extraction::TakeDone(bool all) {
  while (!workers_.Empty()) {
    std::unique_ptr<Job> job = all || workers_.Full() ? workers_.Take() : workers_.TakeDone();
    if (!job) return;
    auto& unpacked = static_cast<UnpackJob&>(*job);
    Underway front = std::move(underway_.front());
    underway_.pop_front();
    if (!unpacked.sound || (front.entry.marked && unpacked.digest != front.entry.digest))
      NoteFailure(front.entry.path, kDamaged);
    else
      Place(front.entry, front.path, &unpacked.raw);
  }
}

void Extraction::Place(const Entry& entry, const std::string& path, const std::vector<std::byte>* content) {
  Placing::Way way;
  std::optional<std::string> place = PlaceOf(entry, path, way);
  if (!place) return NoteFailure(entry.path, "its folder can't be created");
  bool repeated = keepPaths_ && names_[core::Fold(*place)] > 1;
  auto self = std::tuple(core::Fold(*place), entry.size, entry.crc);
  if (repeated) placing_.Settle();
  // What another entry of such a path has brought is not this one.
  if (keepPaths_ && !(repeated && there_.contains(self))) {
    std::optional<bool> same = IsThere(*place, entry, content);
    if (!same) return NoteFailure(entry.path, kDamaged);
    if (repeated && *same) there_.insert(self);
    if (*same) return;
  }
  if (repeated && way == Placing::Way::Replace) {
    auto other = there_.lower_bound({std::get<0>(self), 0, 0});
    bool isFirst = other == there_.end() || std::get<0>(*other) != std::get<0>(self);
    way = isFirst ? Placing::Way::OwnOrReplace : Placing::Way::OwnOrFree;
    there_.insert(self);
  }
  Placing::Writing writing = placing_.Begin(*place, entry.path, way);
  std::string reason = Write(writing, entry, content);
  if (!reason.empty()) return NoteFailure(entry.path, reason);
  placing_.Accept(std::move(writing), entry);
}

// Where a file goes and how it gets there; nothing if there is no folder for it.
std::optional<std::string> Extraction::PlaceOf(const Entry& entry, const std::string& path,
                                               Placing::Way& way) {
  using enum Placing::Way;
  if (keepPaths_) {
    if (!MakeFolder(platform::LibPath().GetFolder(path))) return {};
    way = entry.older ? Free : Replace;
    return path;
  }
  way = Free;
  std::string_view inside = WithoutDrive(entry.path), name = LastName(inside);
  if (!MakeFolder(target_)) return {};
  if (names_[core::Fold(name)] < 2) return target_ + std::string(name);
  std::optional<std::string> folder = SubFolder(inside.substr(0, inside.size() - name.size()));
  if (folder) *folder += name;
  return folder;
}

// Whether the file that an entry would become is there already. Nothing if the entry is damaged.
std::optional<bool> Extraction::IsThere(const std::string& path, const Entry& entry,
                                        const std::vector<std::byte>* content) {
  EntryInfo info = Files().Look(path);
  if (info.kind != EntryKind::File || info.size != entry.size) return false;
  Status status = Status::Failed;
  auto file = Files().Open(path, platform::OpenMode::Read, status);
  if (!file) return false;
  std::optional<Content> packed;
  if (!content) packed.emplace(zip_, entry);
  compared_.resize(kBlock);
  for (std::uint64_t at = 0;;) {
    std::span<const std::byte> data;
    if (content) {
      std::size_t from = static_cast<std::size_t>(at);
      data = std::span(*content).subspan(from, std::min(kBlock, content->size() - from));
    } else {
      auto next = packed->Next(buffer_);
      if (!next) return {};
      data = *next;
    }
    if (data.empty()) return true;
    std::span<std::byte> room = std::span(compared_).first(data.size());
    for (std::size_t filled = 0; filled < room.size();) {
      auto got = file->Read(at + filled, room.subspan(filled));
      if (!got || *got == 0) return false;
      filled += *got;
    }
    if (std::memcmp(room.data(), data.data(), room.size()) != 0) return false;
    at += data.size();
  }
}

// Why it failed; empty if it is done.
std::string Extraction::Write(Placing::Writing& writing, const Entry& entry,
                              const std::vector<std::byte>* content) {
  if (writing.State() != Status::Done) return Reason(writing.State());
  if (content) return Reason(writing.Write(*content));
  if (entry.marked && !HasDigest(entry)) return kDamaged;
  Content packed(zip_, entry);
  while (!stop_.Stopped()) {
    auto data = packed.Next(buffer_);
    if (!data) return kDamaged;
    if (data->empty()) return {};
    Status status = writing.Write(*data);
    if (status != Status::Done) return Reason(status);
  }
  return "the work was stopped";
}

bool Extraction::HasDigest(const Entry& entry) {
  Content packed(zip_, entry, true);
  Sha256 sha;
  while (!stop_.Stopped()) {
    auto data = packed.Next(buffer_);
    if (!data) return false;
    if (data->empty()) return sha.Finish() == entry.digest;
    sha.Add(*data);
  }
  return false;
}

bool Extraction::MakeFolder(const std::string& folder) {
  auto known = folders_.find(folder);
  if (known != folders_.end()) return known->second;
  return folders_[folder] = platform::ops::MakeFolder(folder) == Status::Done;
}

// The folder below the target for a path "a\b\", with a backslash at its end. Where a file or a link has the
// name, the folder gets a number like a file does.
std::optional<std::string> Extraction::SubFolder(std::string_view path) {
  // What was extracted before may have such a name.
  if (!subFolders_.contains(core::Fold(path))) placing_.Settle();
  std::string folder = target_;
  for (std::size_t done = 0; done < path.size();) {
    std::size_t end = path.find('\\', done);
    auto [known, isNew] = subFolders_.try_emplace(core::Fold(path.substr(0, end + 1)));
    if (isNew) {
      std::string first = folder + std::string(path.substr(done, end - done)), free = first;
      EntryKind kind = Files().Look(free).kind;
      for (int number = 2; kind != EntryKind::Folder && kind != EntryKind::Missing; ++number) {
        // What can't be looked at lies behind a link, whatever its number.
        if (kind == EntryKind::Unreadable || number > kMostNumbers) return {};
        free = Numbered(first, number);
        kind = Files().Look(free).kind;
      }
      if (kind == EntryKind::Missing && Files().CreateFolder(free) != Status::Done) return {};
      known->second = free + "\\";
    }
    if (known->second.empty()) return {};  // it couldn't be made before
    folder = known->second;
    done = end + 1;
  }
  return folder;
}

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

}  // namespace backup
