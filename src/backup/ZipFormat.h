// The records of a ZIP archive (PKWARE's APPNOTE) as they are written, and the ones of an archive that is
// added to. For the ZIP control alone.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "backup/EntryData.h"

namespace backup {

// What the headers of a new entry say.
struct NewEntry {
  std::string name;  // inside the archive: "C:/folder/name"
  platform::EntryInfo info;
  bool deflated = false;
  std::uint32_t crc = 0;
  std::uint64_t size = 0, packedSize = 0;
  std::uint64_t offset = 0;  // of its own header
};

// An entry that may become this large has 64-bit sizes in its own header.
inline constexpr std::uint64_t kLargeEntry = 0xF0000000;

// The entry's record in the central directory, without the check field (see ChangedRecord). Its length
// depends on the name and on `info.size` and `offset` alone.
std::string CentralRecord(const NewEntry& entry);

// The header that stands ahead of an entry's data, as its record in the central directory tells. No data
// descriptor follows the data.
std::string LocalHeader(std::string_view record);

// The record of an entry in a central directory.
struct CentralEntry {
  std::string_view name;
  std::uint16_t flags = 0, method = 0;
  std::uint32_t crc = 0, attributes = 0;
  std::uint64_t size = 0, packedSize = 0, offset = 0;
  std::string_view ntfsField, checkField;  // without id and length; empty where there is none
  std::size_t length = 0;                  // of the whole record
};
// The record at the front of `bytes`; nothing if there is no whole one.
std::optional<CentralEntry> ReadCentral(std::string_view bytes);

// A record with another name, offset and check field, which an empty text takes out. The name is marked as
// UTF-8 if it is plain.
std::string ChangedRecord(std::string_view record, std::string_view name, std::uint64_t offset,
                          std::string_view check);

// How long an entry's own header is, from its first 30 bytes; 0 if these are none.
std::size_t LocalHeaderLength(std::string_view front);
inline constexpr std::size_t kLocalFront = 30;

// Where the central directory of an archive lies.
struct DirectoryPlace {
  std::uint64_t offset = 0, size = 0, count = 0;
};
// From the end of the archive, which is `length` bytes long: `tail` are its last bytes, at least kTail of
// them or all. Nothing if this isn't the end of an archive that lies in one file and begins at its front.
std::optional<DirectoryPlace> FindDirectory(std::string_view tail, std::uint64_t length);
inline constexpr std::size_t kTail = 22 + 65535 + 20 + 56;

// What stands behind the central directory.
std::string EndOfArchive(const DirectoryPlace& place);

}  // namespace backup
