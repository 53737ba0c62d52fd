#include "backup/EntryData.h"

#include <algorithm>
#include <limits>
#include <zlib.h>

#include "backup/Bytes.h"
#include "platform/Utf.h"

namespace backup {

namespace {

// Between 1601 and 1970, in units of 100 nanoseconds.
constexpr std::int64_t kEpochDistance = 116444736000000000;

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

constexpr std::size_t kShortCheck = 5, kMark = 16, kMarkedCheck = kShortCheck + 32 + kMark;

std::uint32_t ContinueCrc(std::uint32_t crc, std::string_view bytes) {
  return static_cast<std::uint32_t>(crc32_z(crc, reinterpret_cast<const Bytef*>(bytes.data()), bytes.size()));
}

std::uint32_t CrcOf(const EntryFacts& facts) {
  std::string word;
  Put(word, facts.attributes, 4);
  return ContinueCrc(ContinueCrc(ContinueCrc(0, facts.name), facts.ntfsField), word);
}

// `front` is the field up to the mark.
std::string MarkOf(std::string_view front, const EntryFacts& facts, std::string_view key) {
  std::string text(front);
  Put(text, facts.attributes, 4);
  Put(text, facts.size, 8);
  Put(text, facts.packedSize, 8);
  Put(text, facts.crc, 4);
  Put(text, facts.method, 2);
  Put(text, facts.ntfsField.size(), 4);
  text += facts.ntfsField;
  text += facts.name;
  Sha256::Digest mark = HmacSha256(key, text);
  return std::string(AsText(mark).substr(0, kMark));
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
  return platform::IsUtf8(name) &&
         std::none_of(name.begin(), name.end(), [](char c) { return c >= 0 && c < 0x20; });
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
  PutAt(field, 4, 1, 2);
  PutAt(field, 6, 24, 2);
  PutAt(field, 8, ToFileTime(info.modified), 8);
  PutAt(field, 16, ToFileTime(info.accessed), 8);
  PutAt(field, 24, ToFileTime(info.created), 8);
  return field;
}

Dates UnpackNtfsField(std::span<const std::uint8_t> field) {
  Dates dates;
  for (std::size_t offset = 4; offset + 4 <= field.size();) {
    std::uint64_t tag = Get(AsText(field), offset, 2), size = Get(AsText(field), offset + 2, 2);
    offset += 4;
    if (size > field.size() - offset) break;
    if (tag == 1 && size >= 24) {
      dates.modified = FromFileTime(Get(AsText(field), offset, 8));
      dates.accessed = FromFileTime(Get(AsText(field), offset + 8, 8));
      dates.created = FromFileTime(Get(AsText(field), offset + 16, 8));
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
    auto seconds = static_cast<std::int32_t>(Get(AsText(field), offset, 4));
    date = platform::Moment{seconds} * 1'000'000'000;
    offset += 4;
  };
  take(1, dates.modified);
  take(2, dates.accessed);
  take(4, dates.created);
  return dates;
}

std::string PackCheck(const EntryFacts& facts, std::uint8_t flags, const Sha256::Digest* digest,
                      std::string_view key) {
  bool marked = digest && !key.empty();
  if (!IsPlainUtf8(facts.name)) flags |= CheckResult::kRaw;
  if (marked) flags |= CheckResult::kMarked;
  std::string field;
  Put(field, flags, 1);
  Put(field, CrcOf(facts), 4);
  if (!marked) return field;
  field += AsText(*digest);
  return field + MarkOf(field, facts, key);
}

CheckResult ReadCheck(std::string_view field, const EntryFacts& facts, std::string_view key) {
  CheckResult result;
  if (field.empty()) return result;
  result.there = true;
  auto flags = static_cast<std::uint8_t>(field[0]);
  bool hasMark = flags & CheckResult::kMarked;
  result.rawName = flags & CheckResult::kRaw;
  result.older = flags & CheckResult::kOlder;
  result.sound = field.size() == (hasMark ? kMarkedCheck : kShortCheck) && Get(field, 1, 4) == CrcOf(facts);
  if (!result.sound || !hasMark) return result;
  Sha256::Digest digest;
  std::copy_n(field.begin() + kShortCheck, digest.size(), digest.begin());
  result.digest = digest;
  result.marked = !key.empty() && MarkOf(field.substr(0, kMarkedCheck - kMark), facts, key) ==
                                      field.substr(kMarkedCheck - kMark);
  return result;
}

}  // namespace backup
