#include "backup/Filling.h"

#include <algorithm>
#include <span>
#include <zlib.h>

#include "backup/MarkKey.h"
#include "core/Text.h"
#include "platform/Desktop.h"
#include "platform/Guard.h"
#include "platform/Machine.h"
#include "platform/RuntimeError.h"

namespace backup {

using platform::EntryInfo;
using platform::EntryKind;
using platform::Status;

namespace {

constexpr int kAttempts = 3;
constexpr std::size_t kLongestName = 65535;

platform::FileSystem& Files() {
  return platform::CurrentMachine().Files();
}

bool Same(const EntryInfo& a, const EntryInfo& b) {
  return a.kind == EntryKind::File && b.kind == EntryKind::File && a.size == b.size &&
         a.modified == b.modified;
}

// The number of bytes read, less than asked for only at the file's end; nothing on a failure.
std::optional<std::size_t> ReadFully(platform::File& file, std::uint64_t offset,
                                     std::span<std::byte> buffer) {
  std::size_t done = 0;
  while (done < buffer.size()) {
    auto got = file.Read(offset + done, buffer.subspan(done));
    if (!got) return {};
    if (*got == 0) break;
    done += *got;
  }
  return done;
}

}  // namespace

Filling::Filling(const std::string& target)
    : target_(target), writer_(target, MarkKey(true)), firstNew_(writer_.Count()) {}

bool Filling::Store(const platform::CountedList& paths, const Naming& naming,
                    std::vector<std::string>& leftOut) {
  leftOut_ = &leftOut;
  std::string path;
  for (int i = 0; i < paths.UpperBound(); ++i) {
    platform::CurrentDesktop().Breathe();
    if (stop_.Stopped()) return false;
    paths.Get(i, path);
    EntryInfo info = platform::MayActOn(path) ? Files().Look(path) : EntryInfo();
    if (IsLink(info.kind)) continue;
    std::string name;
    Status status = Status::Failed;
    std::unique_ptr<platform::File> file;
    if (info.kind == EntryKind::File && !core::Equals(path, target_))
      file = Files().Open(path, platform::OpenMode::Read, status);
    if (file) name = ToEntryName(naming(path));
    if (name.empty() || name.size() > kLongestName)
      leftOut.push_back(path);
    else if (!IsStored(path, name, info))
      StoreOne(path, name, info, std::move(file));
    WriteDone(false);
  }
  WriteDone(true);
  while (!underway_.empty()) EndFront();
  return !stop_.Stopped();
}

// The same file once more, as it was.
bool Filling::IsStored(const std::string& path, const std::string& name, const EntryInfo& info) const {
  auto same = [&](const std::string& storedPath, const EntryInfo& stored) {
    return storedPath == path && Same(stored, info);
  };
  for (const Underway& underway : underway_)
    if (underway.entry.name == name) return same(underway.path, underway.entry.info);
  auto record = writer_.Find(name);
  if (!record || *record < firstNew_) return false;
  std::int64_t place = storedOf_[*record - firstNew_];
  if (place < 0) return false;
  const StoredFile& file = stored_[static_cast<std::size_t>(place)];
  return file.size == info.size && file.modified == info.modified &&
         storedPaths_[static_cast<int>(place)] == path;
}

void Filling::StoreOne(const std::string& path, const std::string& name, const EntryInfo& info,
                       std::unique_ptr<platform::File> file) {
  Underway& underway = underway_.emplace_back();
  underway.path = path;
  underway.entry.name = name;
  underway.entry.info = info;
  if (info.size <= kPiece ? StoreWhole(underway, std::move(file)) : StoreInPieces(underway, *file)) return;
  underway.failed = underway.allGiven = true;
  if (underway_.size() == 1 && underway.taken == underway.given) EndFront();
}

// A small file is read as a whole before anything is done with it, so that one that somebody is writing to
// can be read again. False if it can't be had as it was at one moment.
bool Filling::StoreWhole(Underway& underway, std::unique_ptr<platform::File> file) {
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    EntryInfo before = underway.entry.info;
    if (before.size > kPiece) break;
    std::vector<std::byte> raw(static_cast<std::size_t>(before.size));
    std::byte beyond;
    auto got = ReadFully(*file, 0, raw);
    auto more = got == raw.size() ? file->Read(raw.size(), std::span(&beyond, 1)) : std::nullopt;
    EntryInfo after = Files().Look(underway.path);
    if (more == std::size_t{0} && Same(before, after)) {
      Give(std::move(raw), true, true);
      return true;
    }
    if (after.kind != EntryKind::File) break;
    underway.entry.info = after;
    // Another file may have taken the name; what is open still is the one before.
    Status status = Status::Failed;
    file = Files().Open(underway.path, platform::OpenMode::Read, status);
    if (!file) break;
  }
  return false;
}

bool Filling::StoreInPieces(Underway& underway, platform::File& file) {
  std::uint64_t size = underway.entry.info.size;
  for (std::uint64_t at = 0; at < size;) {
    std::vector<std::byte> raw(static_cast<std::size_t>(std::min<std::uint64_t>(kPiece, size - at)));
    auto got = ReadFully(file, at, raw);
    bool last = at + raw.size() == size;
    std::byte beyond;
    bool sound = got == raw.size() && (!last || (file.Read(size, std::span(&beyond, 1)) == std::size_t{0} &&
                                                 Same(underway.entry.info, Files().Look(underway.path))));
    if (!sound || stop_.Stopped()) return false;
    std::size_t given = raw.size();
    Give(std::move(raw), at == 0, last);
    at += given;
  }
  return true;
}

void Filling::Give(std::vector<std::byte> raw, bool first, bool last) {
  ++underway_.back().given;
  underway_.back().allGiven = last;
  workers_.Give(std::make_unique<PackJob>(std::move(raw), first, last));
  platform::CurrentDesktop().Breathe();
  WriteDone(false);
}

// Writes what has been packed; all of it, or as much as there is and as is needed to go on.
void Filling::WriteDone(bool all) {
  while (!workers_.Empty()) {
    std::unique_ptr<Job> job = all || workers_.Full() ? workers_.Take() : workers_.TakeDone();
    if (!job) return;
    Write(static_cast<PackJob&>(*job));
  }
}

void Filling::Write(PackJob& job) {
  // What failed before its first piece was given.
  while (underway_.front().given == 0) EndFront();
  Underway& front = underway_.front();
  NewEntry& entry = front.entry;
  bool single = job.first && job.last;
  front.failed = front.failed || job.failed;
  if (job.first) {
    entry.deflated = job.deflated;
    front.firstPiece = pieces_.size();
    writer_.Begin(entry);
  }
  std::span<const std::byte> content = job.Content();
  if (!front.failed) {
    pieces_.push_back({writer_.Position(), static_cast<std::uint32_t>(content.size()),
                       static_cast<std::uint32_t>(job.raw.size()), job.crc, job.deflated});
    entry.crc = job.first ? job.crc
                          : static_cast<std::uint32_t>(
                                crc32_combine(entry.crc, job.crc, static_cast<z_off_t>(job.raw.size())));
    entry.size += job.raw.size();
    entry.packedSize += content.size();
    writer_.Add(content);
    if (!single) digest_.Add(content);
    if (job.last) front.digest = single ? job.digest : digest_.Finish();
  }
  ++front.taken;
  if (front.allGiven && front.taken == front.given) EndFront();
}

void Filling::EndFront() {
  Underway front = std::move(underway_.front());
  underway_.pop_front();
  if (front.failed) {
    if (front.taken > 0) {
      writer_.Drop(front.entry);
      pieces_.resize(front.firstPiece);
      digest_.Finish();
    }
    leftOut_->push_back(front.path);
    return;
  }
  writer_.End(front.entry, front.digest);
  std::size_t name = front.path.rfind('\\') + 1;
  storedPaths_.AddIn(std::string_view(front.path).substr(0, name), std::string_view(front.path).substr(name));
  storedOf_.resize(writer_.Count() - firstNew_, -1);
  storedOf_.back() = static_cast<std::int64_t>(stored_.size());
  stored_.push_back({front.entry.info.size, front.entry.info.modified, writer_.Count() - 1, front.firstPiece,
                     pieces_.size() - front.firstPiece});
}

bool Filling::Finish(BackupPromise* promise) {
  if (stop_.Stopped()) return false;
  if (stored_.empty()) return true;
  writer_.Finish();
  if (!promise) return true;
  std::vector<bool> sound = ReadBack(target_, writer_, stored_, pieces_);
  if (stop_.Stopped()) return false;
  for (std::size_t i = 0; i < sound.size(); ++i)
    if (sound[i]) promise->Add(storedPaths_[static_cast<int>(i)], stored_[i].size, stored_[i].modified);
  return true;
}

}  // namespace backup
