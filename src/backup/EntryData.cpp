#include "backup/EntryData.h"

#include <algorithm>
#include <limits>

namespace backup {

namespace {

// Between 1601 and 1970, in units of 100 nanoseconds.
constexpr std::int64_t kEpochDistance = 116444736000000000;

template <class Bytes>
void PutLittleEndian(Bytes& bytes, std::size_t offset, std::uint64_t value, int size) {
  for (int i = 0; i < size; ++i)
    bytes[offset + static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(value >> 8 * i);
}

std::uint64_t GetLittleEndian(std::span<const std::uint8_t> bytes, std::size_t offset, int size) {
  std::uint64_t value = 0;
  for (int i = 0; i < size; ++i) value |= std::uint64_t{bytes[offset + static_cast<std::size_t>(i)]} << 8 * i;
  return value;
}

std::uint64_t ToFileTime(platform::Moment moment) {
  // Rounded down, so that a date before 1970 keeps its order too.
  std::int64_t units = moment / 100 - (moment % 100 < 0 ? 1 : 0);
  return static_cast<std::uint64_t>(units + kEpochDistance);
}

std::optional<platform::Moment> FromFileTime(std::uint64_t units) {
  // Zero means that the date isn't known. Moments reach from 1677 to 2262.
  constexpr std::int64_t limit = std::numeric_limits<platform::Moment>::max() / 100;
  if (units == 0 || units > static_cast<std::uint64_t>(kEpochDistance + limit) ||
      units < static_cast<std::uint64_t>(kEpochDistance - limit))
    return {};
  return (static_cast<std::int64_t>(units) - kEpochDistance) * 100;
}

constexpr std::array<std::uint32_t, 256> kCrcTable = [] {
  std::array<std::uint32_t, 256> table{};
  for (std::uint32_t i = 0; i < 256; ++i) {
    std::uint32_t crc = i;
    for (int bit = 0; bit < 8; ++bit) crc = crc & 1 ? crc >> 1 ^ 0xEDB88320u : crc >> 1;
    table[i] = crc;
  }
  return table;
}();

std::uint32_t ContinueCrc(std::uint32_t crc, std::uint8_t byte) {
  return kCrcTable[(crc ^ byte) & 0xFF] ^ crc >> 8;
}

}  // namespace

std::string ToEntryName(std::string_view path) {
  std::string name(path);
  std::replace(name.begin(), name.end(), '\\', '/');
  return name;
}

std::string FromEntryName(std::string_view name) {
  std::string path(name);
  std::replace(path.begin(), path.end(), '/', '\\');
  return path;
}

bool IsPlainUtf8(std::string_view name) {
  auto at = [name](std::size_t i) { return i < name.size() ? static_cast<unsigned char>(name[i]) : 0u; };
  for (std::size_t i = 0; i < name.size();) {
    unsigned first = at(i);
    if (first < 0x20) return false;
    if (first < 0x80) {
      ++i;
      continue;
    }
    std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4) return false;
    for (std::size_t k = 1; k < length; ++k)
      if ((at(i + k) & 0xC0) != 0x80) return false;
    unsigned second = at(i + 1);
    if ((first == 0xE0 && second < 0xA0) || (first == 0xED && second > 0x9F) ||
        (first == 0xF0 && second < 0x90) || (first == 0xF4 && second > 0x8F))
      return false;
    i += length;
  }
  return true;
}

std::string Numbered(std::string_view path, int number) {
  std::size_t name = path.rfind('\\') + 1;  // 0 where there is none
  std::size_t dot = path.rfind('.');
  if (dot == path.npos || dot <= name) dot = path.size();
  std::string numbered(path.substr(0, dot));
  numbered += " (" + std::to_string(number) + ")";
  return numbered.append(path.substr(dot));
}

NtfsField PackDates(const platform::EntryInfo& info) {
  NtfsField field{};
  PutLittleEndian(field, 4, 1, 2);
  PutLittleEndian(field, 6, 24, 2);
  PutLittleEndian(field, 8, ToFileTime(info.modified), 8);
  PutLittleEndian(field, 16, ToFileTime(info.accessed), 8);
  PutLittleEndian(field, 24, ToFileTime(info.created), 8);
  return field;
}

Dates UnpackNtfsField(std::span<const std::uint8_t> field) {
  Dates dates;
  for (std::size_t offset = 4; offset + 4 <= field.size();) {
    std::uint64_t tag = GetLittleEndian(field, offset, 2), size = GetLittleEndian(field, offset + 2, 2);
    offset += 4;
    if (size > field.size() - offset) break;
    if (tag == 1 && size >= 24) {
      dates.modified = FromFileTime(GetLittleEndian(field, offset, 8));
      dates.accessed = FromFileTime(GetLittleEndian(field, offset + 8, 8));
      dates.created = FromFileTime(GetLittleEndian(field, offset + 16, 8));
    }
    offset += size;
  }
  return dates;
}

Dates UnpackTimestampField(std::span<const std::uint8_t> field) {
  Dates dates;
  if (field.empty()) return dates;
  std::size_t offset = 1;
  auto take = [&](int flag, std::optional<platform::Moment>& date) {
    if (!(field[0] & flag) || offset + 4 > field.size()) return;
    auto seconds = static_cast<std::int32_t>(GetLittleEndian(field, offset, 4));
    date = platform::Moment{seconds} * 1'000'000'000;
    offset += 4;
  };
  take(1, dates.modified);
  take(2, dates.accessed);
  take(4, dates.created);
  return dates;
}

CheckField PackCheck(bool rawName, std::string_view entryName, std::span<const std::uint8_t> ntfsField,
                     std::uint32_t attributes) {
  std::uint32_t crc = 0xFFFFFFFFu;
  for (char c : entryName) crc = ContinueCrc(crc, static_cast<std::uint8_t>(c));
  for (std::uint8_t byte : ntfsField) crc = ContinueCrc(crc, byte);
  for (int i = 0; i < 4; ++i) crc = ContinueCrc(crc, static_cast<std::uint8_t>(attributes >> 8 * i));
  CheckField field{};
  field[0] = rawName ? 1 : 0;
  PutLittleEndian(field, 1, crc ^ 0xFFFFFFFFu, 4);
  return field;
}

}  // namespace backup
