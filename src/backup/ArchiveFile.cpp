#include "backup/ArchiveFile.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "platform/Desktop.h"
#include "platform/Machine.h"

namespace backup {

using platform::Status;

namespace {
constexpr std::size_t kWindow = 256 * 1024;
}  // namespace

ArchiveFile::ArchiveFile(std::string path)
    : files_(platform::CurrentMachine().Files()), path_(std::move(path)) {
  zip_error_init(&error_);
}

ArchiveFile::~ArchiveFile() {
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
      return ZIP_SOURCE_SUPPORTS_SEEKABLE;
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

}  // namespace backup
