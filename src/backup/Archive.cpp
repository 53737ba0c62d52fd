#include "backup/Archive.h"

#include <algorithm>
#include <functional>
#include <span>

#include "core/Text.h"

namespace backup {

namespace {

// A field of the central directory, or with ZIP_FL_LOCAL of the entry's own header; empty if it isn't there.
std::span<const std::uint8_t> Field(zip_t* zip, zip_uint64_t index, std::uint16_t id, zip_flags_t where) {
  zip_uint16_t length = 0;
  const zip_uint8_t* data = zip_file_extra_field_get_by_id(zip, index, id, 0, &length, where);
  return data ? std::span(data, length) : std::span<const std::uint8_t>();
}

// The kinds of things in the upper half of a Unix attribute word.
constexpr std::uint32_t kUnixKind = 0170000, kUnixFile = 0100000, kUnixFolder = 0040000;
constexpr std::uint32_t kReparsePoint = 0x400;

}  // namespace

Archive::Archive(ArchiveFile& file, int flags) {
  zip_error_t error;
  zip_error_init(&error);
  if (zip_source_t* source = file.Source(&error)) {
    zip_ = zip_open_from_source(source, flags, &error);
    if (!zip_) zip_source_free(source);
    // libzip takes a file of no bytes for an archive of no entries. Only what is about to be filled may be
    // that.
    if (zip_ && (flags & ZIP_RDONLY) && file.Length() == 0) {
      zip_discard(zip_);
      zip_ = nullptr;
      zip_error_set(&error, ZIP_ER_NOZIP, 0);
    }
  }
  if (!zip_) Take(&error);
  zip_error_fini(&error);
}

Archive::~Archive() {
  if (zip_) zip_discard(zip_);
}

bool Archive::Close() {
  if (zip_close(zip_) == 0) {
    zip_ = nullptr;
    return true;
  }
  Take(zip_get_error(zip_));
  return false;
}

void Archive::Take(zip_error_t* error) {
  errorCode_ = zip_error_code_zip(error);
  errorText_ = zip_error_strerror(error);
}

std::string Archive::Problem() const {
  return errorText_;
}

std::string EntryPath(zip_t* zip, zip_uint64_t index) {
  std::span<const std::uint8_t> check = Field(zip, index, kCheckField, ZIP_FL_CENTRAL);
  bool raw = check.size() == CheckField().size() && (check[0] & 1);
  const char* name = zip_get_name(zip, index, raw ? ZIP_FL_ENC_RAW : ZIP_FL_ENC_GUESS);
  return FromEntryName(name ? name : "");
}

Entry ReadEntry(zip_t* zip, zip_uint64_t index) {
  Entry entry;
  entry.index = index;
  entry.path = EntryPath(zip, index);
  zip_uint32_t commentLength = 0;
  if (const char* comment = zip_file_get_comment(zip, index, &commentLength, ZIP_FL_ENC_GUESS))
    entry.comment.assign(comment, commentLength);

  zip_stat_t stat;
  if (zip_stat_index(zip, index, 0, &stat) != 0) {
    entry.damaged = true;
    return entry;
  }
  entry.size = stat.size;
  entry.compressedSize = stat.comp_size;
  entry.crc = stat.crc;
  entry.encrypted = (stat.valid & ZIP_STAT_ENCRYPTION_METHOD) && stat.encryption_method != ZIP_EM_NONE;
  entry.folder = entry.path.ends_with('\\');

  zip_uint8_t system = 0;
  zip_uint32_t word = 0;
  zip_file_get_external_attributes(zip, index, 0, &system, &word);
  if (system == ZIP_OPSYS_UNIX || system == ZIP_OPSYS_OS_X) {
    std::uint32_t kind = word >> 16 & kUnixKind;
    entry.special = kind != 0 && kind != kUnixFile && kind != kUnixFolder;
  }
  entry.special = entry.special || (word & kReparsePoint);
  entry.attributes =
      word & (platform::kReadOnly | platform::kHidden | platform::kSystem | platform::kArchive);

  std::span<const std::uint8_t> ntfs = Field(zip, index, kNtfsField, ZIP_FL_CENTRAL);
  if (!ntfs.empty()) {
    entry.dates = UnpackNtfsField(ntfs);
  } else {
    entry.dates = UnpackTimestampField(Field(zip, index, kTimestampField, ZIP_FL_LOCAL));
    if (!entry.dates.modified && (stat.valid & ZIP_STAT_MTIME))
      entry.dates.modified = platform::Moment{stat.mtime} * 1'000'000'000;
  }

  std::span<const std::uint8_t> check = Field(zip, index, kCheckField, ZIP_FL_CENTRAL);
  if (!check.empty()) {
    const char* name = zip_get_name(zip, index, ZIP_FL_ENC_RAW);
    CheckField expected = PackCheck(check[0] & 1, name ? name : "", ntfs, word);
    entry.damaged = !std::ranges::equal(check, expected);
  }
  return entry;
}

bool WriteCheck(zip_t* zip, zip_uint64_t index, bool rawName, std::string_view entryName) {
  zip_uint8_t system = 0;
  zip_uint32_t word = 0;
  zip_file_get_external_attributes(zip, index, 0, &system, &word);
  CheckField check = PackCheck(rawName, entryName, Field(zip, index, kNtfsField, ZIP_FL_CENTRAL), word);
  return zip_file_extra_field_set(zip, index, kCheckField, 0, check.data(),
                                  static_cast<zip_uint16_t>(check.size()), ZIP_FL_CENTRAL) == 0;
}

bool RenameEntry(zip_t* zip, zip_uint64_t index, const std::string& path) {
  std::string name = ToEntryName(path);
  bool raw = !IsPlainUtf8(name);
  bool checked = !Field(zip, index, kCheckField, ZIP_FL_CENTRAL).empty();
  if (zip_file_rename(zip, index, name.c_str(), raw ? ZIP_FL_ENC_GUESS : ZIP_FL_ENC_UTF_8) != 0) return false;
  // An entry of another program stays without a check, unless its name needs the mark.
  return !(checked || raw) || WriteCheck(zip, index, raw, name);
}

void PathIndex::Add(std::string_view path, zip_uint64_t index) {
  byHash_.emplace(std::hash<std::string>()(core::Fold(path)), index);
}

void PathIndex::Remove(std::string_view path, zip_uint64_t index) {
  auto [first, last] = byHash_.equal_range(std::hash<std::string>()(core::Fold(path)));
  for (; first != last; ++first)
    if (first->second == index) {
      byHash_.erase(first);
      return;
    }
}

std::int64_t PathIndex::Find(std::string_view path) const {
  std::string folded = core::Fold(path);
  auto [first, last] = byHash_.equal_range(std::hash<std::string>()(folded));
  std::int64_t found = -1;
  for (; first != last; ++first)
    if (static_cast<std::int64_t>(first->second) > found &&
        core::Fold(EntryPath(zip_, first->second)) == folded)
      found = static_cast<std::int64_t>(first->second);
  return found;
}

}  // namespace backup
