#include "backup/ArchiveFile.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <span>

#include "platform/Desktop.h"
#include "platform/LibPath.h"
#include "platform/Machine.h"
#include "platform/RandomName.h"

namespace backup {

using platform::Status;

namespace {
constexpr std::size_t kWindow = 256 * 1024;
constexpr std::size_t kPending = 1024 * 1024;
}  // namespace

ArchiveFile::ArchiveFile(std::string path, std::string target)
    : files_(platform::CurrentMachine().Files()), path_(std::move(path)), target_(std::move(target)) {
  zip_error_init(&error_);
}

ArchiveFile::~ArchiveFile() {
  Discard();
  zip_error_fini(&error_);
}

zip_source_t* ArchiveFile::Source(zip_error_t* error) {
  return zip_source_function_create(Callback, this, error);
}

zip_int64_t ArchiveFile::Callback(void* self, void* data, zip_uint64_t length, zip_source_cmd_t command) {
  auto* file = static_cast<ArchiveFile*>(self);
  // No exception may pass through libzip.
  try {
    return file->Do(data, length, command);
  } catch (...) {
    zip_error_set(&file->error_, ZIP_ER_MEMORY, 0);
    return -1;
  }
}

zip_int64_t ArchiveFile::Fail(int error, Status status) {
  if (failure_ == Status::Done) failure_ = status;
  // libzip tells a file that isn't there by this pair alone.
  if (status == Status::Missing)
    zip_error_set(&error_, ZIP_ER_READ, ENOENT);
  else
    zip_error_set(&error_, error, EIO);
  return -1;
}

zip_int64_t ArchiveFile::Do(void* data, zip_uint64_t length, zip_source_cmd_t command) {
  switch (command) {
    case ZIP_SOURCE_SUPPORTS:
      return ZIP_SOURCE_SUPPORTS_WRITABLE | ZIP_SOURCE_MAKE_COMMAND_BITMASK(ZIP_SOURCE_BEGIN_WRITE_CLONING);
    case ZIP_SOURCE_OPEN:
      return Open();
    case ZIP_SOURCE_READ:
      return Read(static_cast<std::byte*>(data), length);
    case ZIP_SOURCE_CLOSE:
      in_.reset();
      return 0;
    case ZIP_SOURCE_STAT:
      return Stat(data, length);
    case ZIP_SOURCE_ERROR:
      return zip_error_to_data(&error_, data, length);
    case ZIP_SOURCE_FREE:
      return 0;
    case ZIP_SOURCE_SEEK: {
      zip_int64_t to = zip_source_seek_compute_offset(readAt_, length_, data, length, &error_);
      if (to < 0) return -1;
      readAt_ = static_cast<std::uint64_t>(to);
      return 0;
    }
    case ZIP_SOURCE_TELL:
      return static_cast<zip_int64_t>(readAt_);

    case ZIP_SOURCE_BEGIN_WRITE:
      return BeginWrite(0);
    case ZIP_SOURCE_BEGIN_WRITE_CLONING:
      return BeginWrite(length);
    case ZIP_SOURCE_WRITE:
      return Write(static_cast<const std::byte*>(data), length);
    case ZIP_SOURCE_SEEK_WRITE: {
      // libzip only goes back to what it has written, and to the end of it again.
      zip_int64_t to = zip_source_seek_compute_offset(writeAt_, writeEnd_, data, length, &error_);
      if (to < 0) return -1;
      writeAt_ = static_cast<std::uint64_t>(to);
      return 0;
    }
    case ZIP_SOURCE_TELL_WRITE:
      return static_cast<zip_int64_t>(writeAt_);
    case ZIP_SOURCE_COMMIT_WRITE:
      return Commit();
    case ZIP_SOURCE_ROLLBACK_WRITE:
      Discard();
      return 0;
    case ZIP_SOURCE_REMOVE:
      // Asked for an archive that has no entries left. Nothing here may remove the target.
      return 0;
    default:
      zip_error_set(&error_, ZIP_ER_OPNOTSUPP, 0);
      return -1;
  }
}

zip_int64_t ArchiveFile::Open() {
  Status status = Status::Failed;
  in_ = files_.Open(path_, platform::OpenMode::Read, status);
  if (!in_) return Fail(ZIP_ER_OPEN, status);
  length_ = in_->Size();
  readAt_ = windowAt_ = 0;
  windowSize_ = 0;
  return 0;
}

zip_int64_t ArchiveFile::Stat(void* data, zip_uint64_t length) {
  if (length < sizeof(zip_stat_t)) {
    zip_error_set(&error_, ZIP_ER_INVAL, 0);
    return -1;
  }
  auto* stat = static_cast<zip_stat_t*>(data);
  zip_stat_init(stat);
  if (in_) {
    stat->size = length_;
  } else {
    platform::EntryInfo info = files_.Look(path_);
    if (info.kind == platform::EntryKind::Missing) {
      // Not a failure of the disk: a new archive begins like this.
      zip_error_set(&error_, ZIP_ER_READ, ENOENT);
      return -1;
    }
    if (info.kind != platform::EntryKind::File)
      return Fail(ZIP_ER_OPEN,
                  info.kind == platform::EntryKind::Unreadable ? Status::Denied : Status::Refused);
    stat->size = info.size;
  }
  stat->valid = ZIP_STAT_SIZE;
  return sizeof(zip_stat_t);
}

zip_int64_t ArchiveFile::Read(std::byte* data, std::uint64_t length) {
  std::uint64_t done = 0;
  while (done < length) {
    if (readAt_ >= windowAt_ && readAt_ < windowAt_ + windowSize_) {
      std::size_t from = static_cast<std::size_t>(readAt_ - windowAt_);
      std::size_t size = static_cast<std::size_t>(std::min<std::uint64_t>(length - done, windowSize_ - from));
      std::memcpy(data + done, window_.data() + from, size);
      readAt_ += size;
      done += size;
      continue;
    }
    window_.resize(kWindow);
    platform::CurrentDesktop().Breathe();
    auto got = in_->Read(readAt_, window_);
    windowSize_ = 0;
    if (!got) return Fail(ZIP_ER_READ, Status::Failed);
    if (*got == 0) break;
    windowAt_ = readAt_;
    windowSize_ = *got;
  }
  return static_cast<zip_int64_t>(done);
}

zip_int64_t ArchiveFile::BeginWrite(std::uint64_t keep) {
  Status status = Status::Exists;
  for (int attempt = 0; attempt < 10 && status == Status::Exists; ++attempt) {
    temporary_ = target_ + "." + platform::RandomName(6) + kTemporarySuffix;
    out_ = files_.Open(temporary_, platform::OpenMode::CreateNew, status);
  }
  if (!out_) {
    temporary_.clear();
    return Fail(ZIP_ER_TMPOPEN, status);
  }
  writeAt_ = writeEnd_ = pendingAt_ = 0;
  pending_.clear();
  pending_.reserve(kPending);

  // What stays as it is, in one sweep.
  std::vector<std::byte> block(keep == 0 ? 0 : kPending);
  for (std::uint64_t at = 0; at < keep;) {
    platform::CurrentDesktop().Breathe();
    std::size_t size = static_cast<std::size_t>(std::min<std::uint64_t>(block.size(), keep - at));
    auto got = in_ ? in_->Read(at, std::span(block).first(size)) : std::nullopt;
    status = got && *got > 0 ? out_->Write(at, std::span(block).first(*got)) : Status::Failed;
    if (status != Status::Done) {
      Discard();
      return Fail(ZIP_ER_WRITE, status);
    }
    at += *got;
  }
  writeAt_ = writeEnd_ = pendingAt_ = keep;
  return 0;
}

zip_int64_t ArchiveFile::Write(const std::byte* data, std::uint64_t length) {
  // After a failure the rest is lost anyway; libzip may try a second way through the same archive.
  if (!out_) return Fail(ZIP_ER_WRITE, Status::Failed);
  for (std::uint64_t done = 0; done < length;) {
    bool fits = writeAt_ >= pendingAt_ && writeAt_ <= pendingAt_ + pending_.size() &&
                writeAt_ - pendingAt_ < kPending;
    if (!fits) {
      if (!WriteOut()) return -1;
      pendingAt_ = writeAt_;
    }
    std::size_t from = static_cast<std::size_t>(writeAt_ - pendingAt_);
    std::size_t size = static_cast<std::size_t>(std::min<std::uint64_t>(length - done, kPending - from));
    if (from + size > pending_.size()) pending_.resize(from + size);
    std::memcpy(pending_.data() + from, data + done, size);
    writeAt_ += size;
    writeEnd_ = std::max(writeEnd_, writeAt_);
    done += size;
  }
  return static_cast<zip_int64_t>(length);
}

bool ArchiveFile::WriteOut() {
  if (pending_.empty()) return true;
  platform::CurrentDesktop().Breathe();
  Status status = out_->Write(pendingAt_, pending_);
  pending_.clear();
  if (status == Status::Done) return true;
  Fail(ZIP_ER_WRITE, status);
  return false;
}

zip_int64_t ArchiveFile::Commit() {
  if (!out_ || !WriteOut()) return -1;
  if (HoldBack && HoldBack()) {
    out_.reset();
    return 0;
  }
  Status status = out_->Flush();
  if (status != Status::Done) return Fail(ZIP_ER_WRITE, status);
  out_.reset();
  in_.reset();
  platform::EntryInfo now = files_.Look(target_);
  if (now.kind != expected_.kind || now.size != expected_.size || now.modified != expected_.modified)
    return Fail(ZIP_ER_RENAME, Status::Exists);
  status = files_.Rename(temporary_, target_, true);
  if (status != Status::Done) return Fail(ZIP_ER_RENAME, status);
  temporary_.clear();
  // The archive is in place. A folder that can't be flushed is no reason to call it lost.
  files_.FlushFolder(platform::LibPath().GetFolder(target_));
  return 0;
}

void ArchiveFile::Discard() {
  out_.reset();
  pending_.clear();
  if (temporary_.empty()) return;
  files_.RemoveFile(temporary_);
  temporary_.clear();
}

}  // namespace backup
