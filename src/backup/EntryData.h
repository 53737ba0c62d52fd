// What an entry of an archive holds beside its content: the name, the dates and a check of both.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "backup/Sha256.h"
#include "platform/FileSystem.h"

namespace backup {

// Paths are "C:\folder\name" at the border of the archive and "C:/folder/name" inside it.
std::string ToEntryName(std::string_view path);
std::string FromEntryName(std::string_view name);

// A name that an archive can hold as UTF-8. One that isn't valid UTF-8, or that holds control characters, is
// stored as the bytes that it has, without the UTF-8 flag, and marked in the check field.
bool IsPlainUtf8(std::string_view name);

// "C:\a\b.txt" and 2 give "C:\a\b (2).txt". A dot at the name's front begins no extension.
std::string Numbered(std::string_view path, int number);

struct Dates {
  std::optional<platform::Moment> modified, accessed, created;
};

// The NTFS extra field: a reserved word of 32 bits, tag 1, size 24, then the three dates in units of 100
// nanoseconds since 1601, all little-endian (PKWARE's APPNOTE, 4.5.5).
inline constexpr std::uint16_t kNtfsField = 0x000A;
using NtfsField = std::array<std::uint8_t, 32>;
NtfsField PackDates(const platform::EntryInfo& info);
// What it holds; a field that is damaged or of another kind gives no dates.
Dates UnpackNtfsField(std::span<const std::uint8_t> field);

// The extended timestamp that other programs write: a byte of flags (1 modified, 2 accessed, 4 created), then
// a signed count of seconds since 1970 for each bit set, as far as they are there.
inline constexpr std::uint16_t kTimestampField = 0x5455;
Dates UnpackTimestampField(std::span<const std::uint8_t> field);

// What the central directory says of an entry.
struct EntryFacts {
  std::string_view name;       // inside the archive, as it stands there
  std::string_view ntfsField;  // empty for none
  std::uint32_t attributes = 0;
  std::uint64_t size = 0, packedSize = 0;
  std::uint32_t crc = 0;
  std::uint16_t method = 0;
};

// A field of our own in the central directory, because the format protects a file's content with a checksum,
// but neither its name nor its dates, and nothing against who means harm: a byte of flags (1: the name is raw
// bytes, not UTF-8; 2: an older entry, renamed because a newer one took its path; 4: marked), then the CRC-32
// of the entry's name, of its NTFS field and of its attribute word (4 bytes). With a mark follow the SHA-256
// of the entry's packed data and 16 bytes of the HMAC of all this and of the entry's facts with a key that
// only the user has. Numbers are little-endian.
inline constexpr std::uint16_t kCheckField = 0x4272;

// `flags` are kOlder or 0. Without a digest, or with an empty key, the field has no mark.
std::string PackCheck(const EntryFacts& facts, std::uint8_t flags, const Sha256::Digest* digest,
                      std::string_view key);

struct CheckResult {
  static constexpr std::uint8_t kRaw = 1, kOlder = 2, kMarked = 4;
  bool there = false;  // there is a field at all
  bool sound = false;  // it fits name, dates and attributes
  bool rawName = false, older = false;
  bool marked = false;                   // with this key, for just these facts
  std::optional<Sha256::Digest> digest;  // what the packed data of a marked entry must have
};
CheckResult ReadCheck(std::string_view field, const EntryFacts& facts, std::string_view key);

}  // namespace backup
