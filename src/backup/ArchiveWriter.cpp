#include "backup/ArchiveWriter.h"

#include <algorithm>
#include <cstring>
#include <zlib.h>

#include "backup/Bytes.h"
#include "backup/ZipReasons.h"
#include "platform/Desktop.h"
#include "platform/Machine.h"

namespace backup {

using platform::EntryKind;
using platform::Status;

namespace {

constexpr std::size_t kBlock = 1024 * 1024;

[[noreturn]] void RaiseNoArchive() {
  throw platform::RuntimeError(321, "Invalid file format");
}

void Check(Status status) {
  if (status != Status::Done) throw FailureOf(status);
}

// Reads all of the buffer.
void ReadExactly(platform::File& file, std::uint64_t offset, std::span<std::byte> buffer) {
  while (!buffer.empty()) {
    auto got = file.Read(offset, buffer);
    if (!got || *got == 0) throw platform::DeviceIoError();
    offset += *got;
    buffer = buffer.subspan(*got);
  }
}

std::span<std::byte> Writable(std::string& text) {
  return std::as_writable_bytes(std::span(text));
}

EntryFacts FactsOf(const CentralEntry& entry) {
  return {entry.name,       entry.ntfsField, entry.attributes, entry.size,
          entry.packedSize, entry.crc,       entry.method};
}

}  // namespace

ArchiveWriter::ArchiveWriter(const std::string& target, std::string key)
    : files_(platform::CurrentMachine().Files()),
      target_(target),
      key_(std::move(key)),
      before_(files_.Look(target)),
      byName_(64, Hash{this}, Same{this}) {
  if (before_.kind == EntryKind::Missing) return;
  if (before_.kind != EntryKind::File) throw platform::PathFileAccess();
  if (before_.size > 0) ReadOld(before_);
}

std::string_view ArchiveWriter::NameOf(std::size_t number) const {
  return ReadCentral(Record(number))->name;
}

void ArchiveWriter::ReadOld(const platform::EntryInfo& info) {
  Status status = Status::Failed;
  auto file = files_.Open(target_, platform::OpenMode::Read, status);
  Check(file ? Status::Done : status);
  std::string tail(static_cast<std::size_t>(std::min<std::uint64_t>(info.size, kTail)), '\0');
  ReadExactly(*file, info.size - tail.size(), Writable(tail));
  auto place = FindDirectory(tail, info.size);
  if (!place) RaiseNoArchive();
  place_ = *place;
  directory_.resize(static_cast<std::size_t>(place_.size));
  ReadExactly(*file, place_.offset, Writable(directory_));
  for (std::size_t at = 0; at < directory_.size();) {
    auto entry = ReadCentral(std::string_view(directory_).substr(at));
    if (!entry || entry->offset >= place_.offset) RaiseNoArchive();
    records_.push_back({at, static_cast<std::uint32_t>(entry->length)});
    byName_.insert(records_.size() - 1);
    at += entry->length;
  }
  if (records_.size() != place_.count) RaiseNoArchive();
}

void ArchiveWriter::CopyOld() {
  if (place_.offset == 0) return;
  Status status = Status::Failed;
  auto file = files_.Open(target_, platform::OpenMode::Read, status);
  Check(file ? Status::Done : status);
  std::vector<std::byte> block(kBlock);
  for (std::uint64_t at = 0; at < place_.offset;) {
    platform::CurrentDesktop().Breathe();
    auto part =
        std::span(block).first(static_cast<std::size_t>(std::min<std::uint64_t>(kBlock, place_.offset - at)));
    ReadExactly(*file, at, part);
    Check(out_->Out().Write(at, part));
    at += part.size();
  }
  pendingAt_ = place_.offset;
}

void ArchiveWriter::Start() {
  out_.emplace(files_, target_);
  Check(out_->State());
  pending_.reserve(kBlock);
  CopyOld();
}

void ArchiveWriter::WriteOut() {
  if (pending_.empty()) return;
  platform::CurrentDesktop().Breathe();
  Check(out_->Out().Write(pendingAt_, pending_));
  pendingAt_ += pending_.size();
  pending_.clear();
}

void ArchiveWriter::Add(std::span<const std::byte> data) {
  while (!data.empty()) {
    auto part = data.first(std::min(data.size(), kBlock - pending_.size()));
    pending_.insert(pending_.end(), part.begin(), part.end());
    data = data.subspan(part.size());
    if (pending_.size() == kBlock) WriteOut();
  }
}

void ArchiveWriter::Patch(std::uint64_t offset, std::string_view bytes) {
  if (offset < pendingAt_) {
    auto size = static_cast<std::size_t>(std::min<std::uint64_t>(bytes.size(), pendingAt_ - offset));
    Check(out_->Out().Write(offset, std::as_bytes(std::span(bytes.substr(0, size)))));
    bytes.remove_prefix(size);
    offset += size;
  }
  if (!bytes.empty()) std::memcpy(pending_.data() + (offset - pendingAt_), bytes.data(), bytes.size());
}

void ArchiveWriter::Begin(NewEntry& entry) {
  if (!out_) Start();
  entry.offset = Position();
  Append(LocalHeader(CentralRecord(entry)));
}

void ArchiveWriter::Drop(const NewEntry& entry) {
  if (entry.offset >= pendingAt_) {
    pending_.resize(static_cast<std::size_t>(entry.offset - pendingAt_));
  } else {
    pending_.clear();
    pendingAt_ = entry.offset;
    // Nothing may stand behind the archive's end.
    Check(out_->Out().Truncate(entry.offset));
  }
}

void ArchiveWriter::AddRecord(std::string_view record) {
  records_.push_back({directory_.size(), static_cast<std::uint32_t>(record.size())});
  directory_ += record;
  byName_.insert(records_.size() - 1);
}

void ArchiveWriter::End(const NewEntry& entry, const Sha256::Digest& digest) {
  std::string record = CentralRecord(entry);
  Patch(entry.offset, LocalHeader(record));
  if (auto older = Find(entry.name)) MakeRoom(*older);
  std::string check = PackCheck(FactsOf(*ReadCentral(record)), 0, &digest, key_);
  AddRecord(ChangedRecord(record, entry.name, entry.offset, check));
}

std::optional<std::size_t> ArchiveWriter::Find(std::string_view name) const {
  auto found = byName_.find(name);
  return found == byName_.end() ? std::nullopt : std::optional(*found);
}

// Copies an entry behind the others under another name, since its header has no room for a longer one.
void ArchiveWriter::MakeRoom(std::size_t older) {
  std::string record(Record(older)), path = FromEntryName(NameOf(older)), name;
  CentralEntry entry = *ReadCentral(record);
  if (entry.flags & 1) RaiseNoArchive();  // what is encrypted may depend on where its sizes stand
  int& number = numbers_.try_emplace(path, 1).first->second;
  do {
    name = ToEntryName(Numbered(path, ++number));
  } while (Find(name));

  std::string front(kLocalFront, '\0');
  ReadWritten(entry.offset, Writable(front));
  std::size_t header = LocalHeaderLength(front);
  if (header == 0) RaiseNoArchive();

  CheckResult old = ReadCheck(entry.checkField, FactsOf(entry), key_);
  std::uint64_t offset = Position();
  std::string changed = ChangedRecord(record, name, offset, {});
  Append(LocalHeader(changed));
  CopyWithin(entry.offset + header, entry.packedSize);
  // An entry of somebody else's stays one, marked only as what it is.
  const Sha256::Digest* digest = old.marked ? &*old.digest : nullptr;
  std::string check = PackCheck(FactsOf(*ReadCentral(changed)), CheckResult::kOlder, digest, key_);
  byName_.erase(older);
  records_[older].size = 0;
  AddRecord(ChangedRecord(changed, name, offset, check));
}

void ArchiveWriter::ReadWritten(std::uint64_t offset, std::span<std::byte> buffer) {
  if (offset + buffer.size() > pendingAt_) WriteOut();
  ReadExactly(out_->Out(), offset, buffer);
}

void ArchiveWriter::CopyWithin(std::uint64_t from, std::uint64_t size) {
  std::vector<std::byte> block(static_cast<std::size_t>(std::min<std::uint64_t>(kBlock, size)));
  while (size > 0) {
    platform::CurrentDesktop().Breathe();
    auto part = std::span(block).first(static_cast<std::size_t>(std::min<std::uint64_t>(block.size(), size)));
    ReadWritten(from, part);
    Add(part);
    from += part.size();
    size -= part.size();
  }
}

bool ArchiveWriter::Finish() {
  if (!out_) return false;
  place_ = {Position(), 0, 0};
  directoryCrc_ = static_cast<std::uint32_t>(crc32_z(0, nullptr, 0));
  for (std::size_t i = 0; i < records_.size(); ++i) {
    if (records_[i].size == 0) continue;
    std::string_view record = Record(i);
    Append(record);
    directoryCrc_ = static_cast<std::uint32_t>(
        crc32_z(directoryCrc_, reinterpret_cast<const Bytef*>(record.data()), record.size()));
    place_.size += record.size();
    ++place_.count;
  }
  Append(EndOfArchive(place_));
  WriteOut();
  Check(out_->Flush());
  platform::EntryInfo now = files_.Look(target_);
  if (now.kind != before_.kind || now.size != before_.size || now.modified != before_.modified)
    throw platform::PathFileAccess();  // somebody else has written to it
  Check(out_->Finish(true));
  return true;
}

}  // namespace backup
