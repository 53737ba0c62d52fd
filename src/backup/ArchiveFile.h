// An archive on disk as libzip reads it. For the ZIP control alone.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>
#include <zip.h>

#include "platform/FileSystem.h"

namespace backup {

// Reads one file through the platform. Outlives the libzip archive that is opened from its source. Lets the
// stop control in between its blocks.
class ArchiveFile {
 public:
  explicit ArchiveFile(std::string path);
  ~ArchiveFile();
  ArchiveFile(const ArchiveFile&) = delete;
  ArchiveFile& operator=(const ArchiveFile&) = delete;

  // A source for zip_open_from_source. Null with `error` set if libzip has no memory.
  zip_source_t* Source(zip_error_t* error);

  // The first failure of the disk itself; Done if there was none.
  platform::Status Failure() const { return failure_; }
  // The length of the file; 0 before it is opened.
  std::uint64_t Length() const { return length_; }

 private:
  static zip_int64_t Callback(void* self, void* data, zip_uint64_t length, zip_source_cmd_t command);
  zip_int64_t Do(void* data, zip_uint64_t length, zip_source_cmd_t command);
  zip_int64_t Fail(int error, platform::Status status);

  zip_int64_t Open();
  zip_int64_t Read(std::byte* data, std::uint64_t length);
  zip_int64_t Stat(void* data, zip_uint64_t length);

  platform::FileSystem& files_;
  std::string path_;
  platform::Status failure_ = platform::Status::Done;
  zip_error_t error_;

  // A window of the file.
  std::unique_ptr<platform::File> in_;
  std::uint64_t length_ = 0, readAt_ = 0, windowAt_ = 0;
  std::size_t windowSize_ = 0;
  std::vector<std::byte> window_;
};

}  // namespace backup
