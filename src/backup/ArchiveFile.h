// An archive on disk as libzip reads and writes it. For the ZIP control alone.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>
#include <zip.h>

#include "platform/FileSystem.h"

namespace backup {

// Reads one file, and writes what is to be at `target` beside it, under a temporary name, which takes the
// target's place in one step once it lies on the disk as a whole. So a kill, a full disk or any failure
// leaves what was there.
//
// Outlives the libzip archive that is opened from its source. Lets the stop control in between its blocks.
class ArchiveFile {
 public:
  ArchiveFile(std::string path, std::string target);
  ~ArchiveFile();  // removes the temporary file, if it was neither put in place nor taken over
  ArchiveFile(const ArchiveFile&) = delete;
  ArchiveFile& operator=(const ArchiveFile&) = delete;

  // A source for zip_open_from_source. Null with `error` set if libzip has no memory.
  zip_source_t* Source(zip_error_t* error);

  // Asked when all has been written: True leaves the temporary file beside the target, unfinished business of
  // the caller, who finds it under Temporary().
  std::function<bool()> HoldBack;
  const std::string& Temporary() const { return temporary_; }

  // What the target must still be when it is replaced, as it was looked at before the work began. Otherwise
  // the replacement is refused: somebody else has written to it.
  void Expect(const platform::EntryInfo& info) { expected_ = info; }

  // The first failure of the disk itself; Done if there was none.
  platform::Status Failure() const { return failure_; }
  // The length of the file that is read; 0 before it is opened.
  std::uint64_t Length() const { return length_; }

  // The end of a temporary file's name, behind a dot and six random characters: "name.zip.1A2B3C.part".
  static constexpr char kTemporarySuffix[] = ".part";

 private:
  static zip_int64_t Callback(void* self, void* data, zip_uint64_t length, zip_source_cmd_t command);
  zip_int64_t Do(void* data, zip_uint64_t length, zip_source_cmd_t command);
  zip_int64_t Fail(int error, platform::Status status);

  zip_int64_t Open();
  zip_int64_t Read(std::byte* data, std::uint64_t length);
  zip_int64_t Stat(void* data, zip_uint64_t length);
  zip_int64_t BeginWrite(std::uint64_t keep);
  zip_int64_t Write(const std::byte* data, std::uint64_t length);
  bool WriteOut();
  zip_int64_t Commit();
  void Discard();

  platform::FileSystem& files_;
  std::string path_, target_, temporary_;
  platform::EntryInfo expected_;
  platform::Status failure_ = platform::Status::Done;
  zip_error_t error_;

  // Reading: a window of the file.
  std::unique_ptr<platform::File> in_;
  std::uint64_t length_ = 0, readAt_ = 0, windowAt_ = 0;
  std::size_t windowSize_ = 0;
  std::vector<std::byte> window_;

  // Writing: bytes that stand for writtenAt_ onward and aren't on the disk yet. libzip goes back to an
  // entry's header once it has its data; as long as both lie in here, that costs nothing.
  std::unique_ptr<platform::File> out_;
  std::uint64_t writeAt_ = 0, writeEnd_ = 0, pendingAt_ = 0;
  std::vector<std::byte> pending_;
};

}  // namespace backup
