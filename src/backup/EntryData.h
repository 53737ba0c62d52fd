// What an entry of an archive holds beside its content: the name, the dates and a check of both.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

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

// A field of our own in the central directory, because the format protects a file's content with a checksum,
// but neither its name nor its dates: a byte of flags (1: the name is raw bytes, not UTF-8), then the CRC-32
// of the entry's name, of its NTFS field and of its attribute word (4 bytes), little-endian.
inline constexpr std::uint16_t kCheckField = 0x4272;
using CheckField = std::array<std::uint8_t, 5>;
CheckField PackCheck(bool rawName, std::string_view entryName, std::span<const std::uint8_t> ntfsField,
                     std::uint32_t attributes);

}  // namespace backup
