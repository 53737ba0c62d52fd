#include "backup/ZipFormat.h"

#include <algorithm>
#include <ctime>
#include <limits>

#include "backup/Bytes.h"

namespace backup {

namespace {

constexpr std::uint32_t kLocal = 0x04034B50, kCentral = 0x02014B50, kEnd = 0x06054B50, kEnd64 = 0x06064B50,
                        kLocator64 = 0x07064B50;
constexpr std::uint32_t kMax32 = std::numeric_limits<std::uint32_t>::max();
constexpr std::uint16_t kMax16 = std::numeric_limits<std::uint16_t>::max();
constexpr std::uint16_t kUtf8 = 1 << 11, kDeflate = 8, kZip64Field = 1;
constexpr std::size_t kCentralFront = 46, kEndLength = 22, kEnd64Length = 56, kLocatorLength = 20;
constexpr std::uint16_t kVersion = 20, kVersion64 = 45;
constexpr std::uint16_t kMadeOnDos = 0, kMadeOnUnix = 3 << 8;
constexpr std::uint32_t kUnixFile = 0100000;

// Date and time in the local zone, as the format has them since the beginning; steps of two seconds.
std::uint32_t DosTime(platform::Moment moment) {
  auto seconds = static_cast<std::time_t>(moment / 1'000'000'000 - (moment % 1'000'000'000 < 0 ? 1 : 0));
  std::tm* local = std::localtime(&seconds);
  if (!local || local->tm_year < 80) return 1u << 21 | 1u << 16;
  if (local->tm_year > 207) return 127u << 25 | 12u << 21 | 31u << 16;
  auto bits = [](int value, int shift) { return static_cast<std::uint32_t>(value) << shift; };
  return bits(local->tm_year - 80, 25) | bits(local->tm_mon + 1, 21) | bits(local->tm_mday, 16) |
         bits(local->tm_hour, 11) | bits(local->tm_min, 5) | bits(local->tm_sec / 2, 0);
}

void PutExtra(std::string& bytes, std::uint16_t id, std::string_view data) {
  Put(bytes, id, 2);
  Put(bytes, data.size(), 2);
  bytes += data;
}

std::uint16_t NameFlag(std::string_view name) {
  return IsPlainUtf8(name) ? kUtf8 : 0;
}

std::uint32_t Small(std::uint64_t value) {
  return static_cast<std::uint32_t>(std::min<std::uint64_t>(value, kMax32));
}

// Calls `take(id, data)` for each extra field.
template <class Take>
void EachExtra(std::string_view extra, Take take) {
  while (extra.size() >= 4) {
    auto id = static_cast<std::uint16_t>(Get(extra, 0, 2));
    std::size_t size = static_cast<std::size_t>(Get(extra, 2, 2));
    if (size > extra.size() - 4) return;
    take(id, extra.substr(4, size));
    extra.remove_prefix(4 + size);
  }
}

}  // namespace

std::string CentralRecord(const NewEntry& entry) {
  bool large = entry.info.size >= kLargeEntry, far = entry.offset >= kMax32;
  std::string extra;
  if (large || far) {
    std::string values;
    if (large) {
      Put(values, entry.size, 8);
      Put(values, entry.packedSize, 8);
    }
    if (far) Put(values, entry.offset, 8);
    PutExtra(extra, kZip64Field, values);
  }
  NtfsField dates = PackDates(entry.info);
  PutExtra(extra, kNtfsField, AsText(dates));

  std::uint32_t word = entry.info.attributes &
                       (platform::kReadOnly | platform::kHidden | platform::kSystem | platform::kArchive);
  bool unixRights = entry.info.permissions.has_value();
  if (unixRights) word |= (kUnixFile | (*entry.info.permissions & 0777)) << 16;

  std::string record;
  Put(record, kCentral, 4);
  Put(record, (unixRights ? kMadeOnUnix : kMadeOnDos) | kVersion64, 2);
  Put(record, large || far ? kVersion64 : kVersion, 2);
  Put(record, NameFlag(entry.name), 2);
  Put(record, entry.deflated ? kDeflate : 0, 2);
  Put(record, DosTime(entry.info.modified), 4);
  Put(record, entry.crc, 4);
  Put(record, large ? kMax32 : Small(entry.packedSize), 4);
  Put(record, large ? kMax32 : Small(entry.size), 4);
  Put(record, entry.name.size(), 2);
  Put(record, extra.size(), 2);
  Put(record, 0, 2);  // comment
  Put(record, 0, 2);  // disk
  Put(record, 0, 2);  // internal attributes
  Put(record, word, 4);
  Put(record, Small(entry.offset), 4);
  return record + entry.name + extra;
}

std::optional<CentralEntry> ReadCentral(std::string_view bytes) {
  if (bytes.size() < kCentralFront || Get(bytes, 0, 4) != kCentral) return {};
  CentralEntry entry;
  entry.flags = static_cast<std::uint16_t>(Get(bytes, 8, 2));
  entry.method = static_cast<std::uint16_t>(Get(bytes, 10, 2));
  entry.crc = static_cast<std::uint32_t>(Get(bytes, 16, 4));
  entry.packedSize = Get(bytes, 20, 4);
  entry.size = Get(bytes, 24, 4);
  std::size_t name = Get(bytes, 28, 2), extra = Get(bytes, 30, 2), comment = Get(bytes, 32, 2);
  entry.attributes = static_cast<std::uint32_t>(Get(bytes, 38, 4));
  entry.offset = Get(bytes, 42, 4);
  entry.length = kCentralFront + name + extra + comment;
  if (entry.length > bytes.size()) return {};
  entry.name = bytes.substr(kCentralFront, name);
  bool whole = true;
  EachExtra(bytes.substr(kCentralFront + name, extra), [&](std::uint16_t id, std::string_view data) {
    if (id == kNtfsField) entry.ntfsField = data;
    if (id == kCheckField) entry.checkField = data;
    if (id != kZip64Field) return;
    std::size_t at = 0;
    for (std::uint64_t* value : {&entry.size, &entry.packedSize, &entry.offset}) {
      if (*value != kMax32) continue;
      if (at + 8 > data.size()) {
        whole = false;
        return;
      }
      *value = Get(data, at, 8);
      at += 8;
    }
  });
  if (!whole) return {};
  return entry;
}

std::string LocalHeader(std::string_view record) {
  std::optional<CentralEntry> entry = ReadCentral(record);
  bool large = Get(record, 20, 4) == kMax32 || Get(record, 24, 4) == kMax32;
  std::string extra;
  if (large) {
    std::string sizes;
    Put(sizes, entry->size, 8);
    Put(sizes, entry->packedSize, 8);
    PutExtra(extra, kZip64Field, sizes);
  }
  if (!entry->ntfsField.empty()) PutExtra(extra, kNtfsField, entry->ntfsField);

  std::string header;
  Put(header, kLocal, 4);
  Put(header, large ? kVersion64 : kVersion, 2);
  Put(header, entry->flags, 2);
  Put(header, entry->method, 2);
  Put(header, Get(record, 12, 4), 4);  // date and time
  Put(header, entry->crc, 4);
  Put(header, large ? kMax32 : entry->packedSize, 4);
  Put(header, large ? kMax32 : entry->size, 4);
  Put(header, entry->name.size(), 2);
  Put(header, extra.size(), 2);
  header += entry->name;
  return header + extra;
}

std::string ChangedRecord(std::string_view record, std::string_view name, std::uint64_t offset,
                          std::string_view check) {
  std::size_t oldName = Get(record, 28, 2), oldExtra = Get(record, 30, 2);
  std::optional<CentralEntry> old = ReadCentral(record);
  std::string extra, values;
  // All of them, whether they fit elsewhere or not; whoever reads takes the ones that he needs.
  bool large = Get(record, 20, 4) == kMax32 || Get(record, 24, 4) == kMax32, far = offset >= kMax32;
  if (large) {
    Put(values, old->size, 8);
    Put(values, old->packedSize, 8);
  }
  if (far) Put(values, offset, 8);
  if (!values.empty()) PutExtra(extra, kZip64Field, values);
  EachExtra(record.substr(kCentralFront + oldName, oldExtra), [&](std::uint16_t id, std::string_view data) {
    if (id != kZip64Field && id != kCheckField) PutExtra(extra, id, data);
  });
  if (!check.empty()) PutExtra(extra, kCheckField, check);

  std::string changed(record.substr(0, kCentralFront));
  auto flags = static_cast<std::uint16_t>(Get(record, 8, 2));
  // The sizes are known: no data descriptor follows.
  flags = static_cast<std::uint16_t>((flags & ~(kUtf8 | 1u << 3)) | NameFlag(name));
  PutAt(changed, 8, flags, 2);
  if (large) {
    PutAt(changed, 20, kMax32, 4);
    PutAt(changed, 24, kMax32, 4);
  }
  PutAt(changed, 28, name.size(), 2);
  PutAt(changed, 30, extra.size(), 2);
  PutAt(changed, 42, Small(offset), 4);
  changed += name;
  changed += extra;
  changed += record.substr(kCentralFront + oldName + oldExtra);
  return changed;
}

std::size_t LocalHeaderLength(std::string_view front) {
  if (front.size() < kLocalFront || Get(front, 0, 4) != kLocal) return 0;
  return kLocalFront + static_cast<std::size_t>(Get(front, 26, 2) + Get(front, 28, 2));
}

std::optional<DirectoryPlace> FindDirectory(std::string_view tail, std::uint64_t length) {
  std::size_t end = tail.size() < kEndLength ? tail.npos : tail.size() - kEndLength;
  while (end != tail.npos &&
         (Get(tail, end, 4) != kEnd || Get(tail, end + 20, 2) != tail.size() - end - kEndLength))
    end = end == 0 ? tail.npos : end - 1;
  if (end == tail.npos || Get(tail, end + 4, 4) != 0) return {};  // disks' numbers
  DirectoryPlace place{Get(tail, end + 16, 4), Get(tail, end + 12, 4), Get(tail, end + 10, 2)};
  std::uint64_t behind = length - tail.size() + end;
  if (end >= kLocatorLength && Get(tail, end - kLocatorLength, 4) == kLocator64) {
    std::uint64_t at = Get(tail, end - kLocatorLength + 8, 8), front = length - tail.size();
    if (at < front || at - front > tail.size() || tail.size() - (at - front) < kEnd64Length) return {};
    std::string_view end64 = tail.substr(static_cast<std::size_t>(at - front));
    if (Get(end64, 0, 4) != kEnd64 || Get(end64, 16, 8) != 0) return {};
    place = {Get(end64, 48, 8), Get(end64, 40, 8), Get(end64, 32, 8)};
    behind = at;
  }
  if (place.offset > behind || place.size != behind - place.offset) return {};
  return place;
}

std::string EndOfArchive(const DirectoryPlace& place) {
  std::string end;
  std::uint64_t at = place.offset + place.size;
  bool large = place.offset >= kMax32 || place.size >= kMax32 || place.count >= kMax16;
  if (large) {
    Put(end, kEnd64, 4);
    Put(end, kEnd64Length - 12, 8);
    Put(end, kVersion64, 2);
    Put(end, kVersion64, 2);
    Put(end, 0, 8);  // disks
    Put(end, place.count, 8);
    Put(end, place.count, 8);
    Put(end, place.size, 8);
    Put(end, place.offset, 8);
    Put(end, kLocator64, 4);
    Put(end, 0, 4);
    Put(end, at, 8);
    Put(end, 1, 4);
  }
  auto count = std::min<std::uint64_t>(place.count, kMax16);
  Put(end, kEnd, 4);
  Put(end, 0, 4);
  Put(end, count, 2);
  Put(end, count, 2);
  Put(end, Small(place.size), 4);
  Put(end, Small(place.offset), 4);
  Put(end, 0, 2);
  return end;
}

}  // namespace backup
