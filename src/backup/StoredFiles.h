// The files that go into an archive, as libzip reads them. For the ZIP control alone.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <span>
#include <string>
#include <vector>
#include <zip.h>

#include "platform/CountedList.h"
#include "platform/FileSystem.h"

namespace backup {

// libzip reads the files when the archive is written, one after the other, and gives up on the whole archive
// if one can't be read. So a source from here never fails: a file that can't be had as it was at one moment
// reads as far as it goes and is noted, and the caller takes its entry out before the archive is put in
// place.
//
// Outlives the libzip archive that its sources were added to.
class StoredFiles {
 public:
  // `paths` must not change meanwhile.
  explicit StoredFiles(const platform::CountedList& paths);
  StoredFiles(const StoredFiles&) = delete;
  StoredFiles& operator=(const StoredFiles&) = delete;

  // A source for the file paths[index]. `info` is what is known of it now. Null with `error` set if libzip
  // has no memory.
  zip_source_t* Source(int index, const platform::EntryInfo& info, zip_error_t* error);
  // Tells at which place in the archive the last source's entry stands.
  void EnteredAs(zip_uint64_t entry) { files_.back().entry = entry; }

  struct Stored {
    StoredFiles* owner;
    int index;  // in the list of paths
    std::uint64_t size;
    platform::Moment modified;
    zip_uint64_t entry = 0;
    bool failed = false;
  };
  const std::deque<Stored>& Files() const { return files_; }
  bool AnyFailed() const { return anyFailed_; }

 private:
  static zip_int64_t Callback(void* stored, void* data, zip_uint64_t length, zip_source_cmd_t command);
  zip_int64_t Do(Stored& stored, void* data, zip_uint64_t length, zip_source_cmd_t command);
  void Open(Stored& stored);
  bool ReadWhole(const platform::EntryInfo& before);
  zip_int64_t Read(Stored& stored, std::byte* data, std::uint64_t length);
  void Fail(Stored& stored);

  platform::FileSystem& fileSystem_;
  const platform::CountedList& paths_;
  std::deque<Stored> files_;
  bool anyFailed_ = false;

  // The file that is being read.
  std::unique_ptr<platform::File> file_;
  std::string path_;
  std::vector<std::byte> buffer_;
  std::size_t bufferAt_ = 0, bufferSize_ = 0, sinceBreath_ = 0;
  std::uint64_t fileAt_ = 0, fileSize_ = 0;
};

}  // namespace backup
