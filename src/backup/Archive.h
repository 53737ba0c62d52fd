// An open archive and its entries. For the ZIP control alone.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <zip.h>

#include "backup/ArchiveFile.h"
#include "backup/EntryData.h"

namespace backup {

// An archive opened by libzip; changes that weren't written are dropped at its end.
class Archive {
 public:
  // `flags` are libzip's. Without success IsOpen says so, and Problem why.
  Archive(ArchiveFile& file, int flags);
  ~Archive();
  Archive(const Archive&) = delete;
  Archive& operator=(const Archive&) = delete;

  bool IsOpen() const { return zip_ != nullptr; }
  zip_t* Zip() const { return zip_; }
  zip_uint64_t Count() const { return static_cast<zip_uint64_t>(zip_get_num_entries(zip_, 0)); }
  // Writes the changes. False on a failure.
  bool Close();

  // libzip's error code and text of the failed open or close.
  int ErrorCode() const { return errorCode_; }
  std::string Problem() const;

 private:
  void Take(zip_error_t* error);

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
  std::uint32_t attributes = 0;  // of the bits 1, 2, 4 and 32
  Dates dates;
  bool damaged = false;  // the directory is damaged here
  bool encrypted = false;
  bool folder = false;   // stands for a folder
  bool special = false;  // a link, or another thing that isn't a file
};
Entry ReadEntry(zip_t* zip, zip_uint64_t index);

// What stands in the check field of an entry as it is now; called when an entry is added or renamed.
bool WriteCheck(zip_t* zip, zip_uint64_t index, bool rawName, std::string_view entryName);

// Gives an entry the name of a path.
bool RenameEntry(zip_t* zip, zip_uint64_t index, const std::string& path);

// The entries of an archive by path, without regard to case.
class PathIndex {
 public:
  explicit PathIndex(zip_t* zip) : zip_(zip) {}
  void Add(std::string_view path, zip_uint64_t index);
  void Remove(std::string_view path, zip_uint64_t index);
  // The entry of that path, -1 for none; the latest added if there are several.
  std::int64_t Find(std::string_view path) const;

 private:
  zip_t* zip_;
  std::unordered_multimap<std::size_t, zip_uint64_t> byHash_;
};

// A path's text at the border, from the archive's name of an entry.
std::string EntryPath(zip_t* zip, zip_uint64_t index);

}  // namespace backup
