#include "backup/StoredFiles.h"

#include <algorithm>
#include <cstring>

#include "platform/Desktop.h"
#include "platform/Machine.h"

namespace backup {

using platform::EntryInfo;
using platform::EntryKind;

namespace {

// A file up to this size is read as a whole before its first byte is handed on, so that one that somebody is
// writing to can be read again.
constexpr std::size_t kWhole = 4 * 1024 * 1024;
constexpr int kAttempts = 3;
// Deflating as much takes some ten milliseconds.
constexpr std::size_t kBreath = 256 * 1024;

bool Same(const EntryInfo& info, std::uint64_t size, platform::Moment modified) {
  return info.kind == EntryKind::File && info.size == size && info.modified == modified;
}

}  // namespace

StoredFiles::StoredFiles(const platform::CountedList& paths)
    : fileSystem_(platform::CurrentMachine().Files()), paths_(paths) {}

zip_source_t* StoredFiles::Source(int index, const EntryInfo& info, zip_error_t* error) {
  files_.push_back({this, index, info.size, info.modified});
  return zip_source_function_create(Callback, &files_.back(), error);
}

zip_int64_t StoredFiles::Callback(void* stored, void* data, zip_uint64_t length, zip_source_cmd_t command) {
  auto* file = static_cast<Stored*>(stored);
  // No exception may pass through libzip.
  try {
    return file->owner->Do(*file, data, length, command);
  } catch (...) {
    return -1;
  }
}

zip_int64_t StoredFiles::Do(Stored& stored, void* data, zip_uint64_t length, zip_source_cmd_t command) {
  switch (command) {
    case ZIP_SOURCE_SUPPORTS:
      return ZIP_SOURCE_SUPPORTS_READABLE;
    case ZIP_SOURCE_OPEN:
      Open(stored);
      return 0;
    case ZIP_SOURCE_READ:
      return Read(stored, static_cast<std::byte*>(data), length);
    case ZIP_SOURCE_CLOSE:
      file_.reset();
      return 0;
    case ZIP_SOURCE_STAT: {
      if (length < sizeof(zip_stat_t)) return -1;
      auto* stat = static_cast<zip_stat_t*>(data);
      zip_stat_init(stat);
      stat->size = stored.size;
      stat->valid = ZIP_STAT_SIZE;
      return sizeof(zip_stat_t);
    }
    case ZIP_SOURCE_ERROR: {
      int codes[2] = {ZIP_ER_MEMORY, 0};
      if (length < sizeof codes) return -1;
      std::memcpy(data, codes, sizeof codes);
      return sizeof codes;
    }
    case ZIP_SOURCE_FREE:
      return 0;
    default:
      return -1;
  }
}

void StoredFiles::Fail(Stored& stored) {
  stored.failed = anyFailed_ = true;
  file_.reset();
  bufferAt_ = bufferSize_ = 0;
  fileAt_ = fileSize_ = 0;
}

void StoredFiles::Open(Stored& stored) {
  platform::CurrentDesktop().Breathe();
  paths_.Get(stored.index, path_);
  buffer_.resize(kWhole);
  bufferAt_ = bufferSize_ = 0;
  fileAt_ = fileSize_ = 0;
  platform::Status status = platform::Status::Failed;
  file_ = fileSystem_.Open(path_, platform::OpenMode::Read, status);
  if (!file_) return Fail(stored);

  EntryInfo before;
  before.kind = EntryKind::File;
  before.size = stored.size;
  before.modified = stored.modified;
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    if (before.size > kWhole) {
      // Read in pieces: only as the file that was looked at first.
      if (!Same(before, stored.size, stored.modified)) return Fail(stored);
      fileSize_ = before.size;
      return;
    }
    bool whole = ReadWhole(before);
    EntryInfo after = fileSystem_.Look(path_);
    if (whole && Same(after, before.size, before.modified)) {
      file_.reset();
      return;
    }
    if (after.kind != EntryKind::File) break;
    before = after;
  }
  Fail(stored);
}

// Fills the buffer with the whole file. False if it isn't as long as expected, or can't be read.
bool StoredFiles::ReadWhole(const EntryInfo& before) {
  bufferSize_ = 0;
  std::byte beyond;
  while (true) {
    bool full = bufferSize_ == before.size;
    std::span<std::byte> room =
        full ? std::span(&beyond, 1) : std::span(buffer_).subspan(bufferSize_, before.size - bufferSize_);
    auto got = file_->Read(bufferSize_, room);
    if (!got) return false;
    if (*got == 0) return full;
    if (full) return false;
    bufferSize_ += *got;
  }
}

zip_int64_t StoredFiles::Read(Stored& stored, std::byte* data, std::uint64_t length) {
  if (bufferAt_ == bufferSize_ && file_) {
    bufferAt_ = bufferSize_ = 0;
    std::uint64_t left = fileSize_ - fileAt_;
    if (left == 0) {
      if (!Same(fileSystem_.Look(path_), stored.size, stored.modified)) Fail(stored);
      file_.reset();
      return 0;
    }
    auto got = file_->Read(
        fileAt_, std::span(buffer_).first(static_cast<std::size_t>(std::min<std::uint64_t>(kWhole, left))));
    if (!got || *got == 0) {
      Fail(stored);
      return 0;
    }
    bufferSize_ = *got;
    fileAt_ += *got;
  }
  std::size_t size = static_cast<std::size_t>(std::min<std::uint64_t>(length, bufferSize_ - bufferAt_));
  std::memcpy(data, buffer_.data() + bufferAt_, size);
  bufferAt_ += size;
  sinceBreath_ += size;
  if (sinceBreath_ >= kBreath) {
    platform::CurrentDesktop().Breathe();
    sinceBreath_ = 0;
  }
  return static_cast<zip_int64_t>(size);
}

}  // namespace backup
