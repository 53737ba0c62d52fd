// An archive that is read, and its entries. For the ZIP control alone.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <zip.h>

#include "backup/ArchiveFile.h"
#include "backup/EntryData.h"

namespace backup {

class Archive {
 public:
  // Without success IsOpen says so, and Problem why.
  explicit Archive(ArchiveFile& file);
  ~Archive();
  Archive(const Archive&) = delete;
  Archive& operator=(const Archive&) = delete;

  bool IsOpen() const { return zip_ != nullptr; }
  zip_t* Zip() const { return zip_; }
  zip_uint64_t Count() const { return static_cast<zip_uint64_t>(zip_get_num_entries(zip_, 0)); }

  // libzip's error code and text of the failed open.
  int ErrorCode() const { return errorCode_; }
  std::string Problem() const { return errorText_; }

 private:
  zip_t* zip_ = nullptr;
  int errorCode_ = ZIP_ER_OK;
  std::string errorText_;
};

struct Entry {
  zip_uint64_t index = 0;
  std::string path;  // at the border; may be anything that somebody put into the archive
  std::string comment;
  std::uint64_t size = 0, compressedSize = 0;
  std::uint32_t crc = 0;
  std::uint16_t method = 0;
  std::uint32_t attributes = 0;  // of the bits 1, 2, 4 and 32
  std::optional<std::uint32_t> permissions;
  Dates dates;
  bool damaged = false;  // the directory is damaged here
  bool encrypted = false;
  bool folder = false;   // stands for a folder
  bool special = false;  // a link, or another thing that isn't a file
  bool older = false;    // renamed, because a newer entry took its path
  // With the user's own key: this program stored it for him. Then the SHA-256 of its packed data is known.
  bool marked = false;
  std::optional<Sha256::Digest> digest;
};
// `key` is what the user's own archives are marked with.
Entry ReadEntry(zip_t* zip, zip_uint64_t index, std::string_view key);

// The entries of an archive by path. Which entry a path means is said by its very bytes; where none has
// these, case doesn't matter.
class PathIndex {
 public:
  explicit PathIndex(zip_t* zip);
  // The latest entry of that path, -1 for none.
  std::int64_t Find(const std::string& path) const;

 private:
  std::unordered_map<std::string, std::int64_t> exact_, folded_;
};

// A path's text at the border, from the archive's name of an entry.
std::string EntryPath(zip_t* zip, zip_uint64_t index);

}  // namespace backup
