#include "backup/Archive.h"

#include <span>

#include "backup/Bytes.h"
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

Archive::Archive(ArchiveFile& file) {
  zip_error_t error;
  zip_error_init(&error);
  if (zip_source_t* source = file.Source(&error)) {
    zip_ = zip_open_from_source(source, ZIP_RDONLY, &error);
    if (!zip_) zip_source_free(source);
    // libzip takes a file of no bytes for an archive of no entries.
    if (zip_ && file.Length() == 0) {
      zip_discard(zip_);
      zip_ = nullptr;
      zip_error_set(&error, ZIP_ER_NOZIP, 0);
    }
  }
  if (!zip_) {
    errorCode_ = zip_error_code_zip(&error);
    errorText_ = zip_error_strerror(&error);
  }
  zip_error_fini(&error);
}

Archive::~Archive() {
  if (zip_) zip_discard(zip_);
}

std::string EntryPath(zip_t* zip, zip_uint64_t index) {
  std::span<const std::uint8_t> check = Field(zip, index, kCheckField, ZIP_FL_CENTRAL);
  bool raw = !check.empty() && (check[0] & CheckResult::kRaw);
  const char* name = zip_get_name(zip, index, raw ? ZIP_FL_ENC_RAW : ZIP_FL_ENC_GUESS);
  return FromEntryName(name ? name : "");
}

Entry ReadEntry(zip_t* zip, zip_uint64_t index, std::string_view key) {
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
  entry.method = stat.comp_method;
  entry.encrypted = (stat.valid & ZIP_STAT_ENCRYPTION_METHOD) && stat.encryption_method != ZIP_EM_NONE;
  entry.folder = entry.path.ends_with('\\');

  zip_uint8_t system = 0;
  zip_uint32_t word = 0;
  zip_file_get_external_attributes(zip, index, 0, &system, &word);
  if (system == ZIP_OPSYS_UNIX || system == ZIP_OPSYS_OS_X) {
    std::uint32_t kind = word >> 16 & kUnixKind;
    entry.special = kind != 0 && kind != kUnixFile && kind != kUnixFolder;
    if (kind == kUnixFile) entry.permissions = word >> 16 & 0777;
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

  const char* name = zip_get_name(zip, index, ZIP_FL_ENC_RAW);
  CheckResult check = ReadCheck(
      AsText(Field(zip, index, kCheckField, ZIP_FL_CENTRAL)),
      {name ? name : "", AsText(ntfs), word, entry.size, entry.compressedSize, entry.crc, entry.method}, key);
  entry.damaged = check.there && !check.sound;
  entry.older = check.older;
  entry.marked = check.marked;
  entry.digest = check.digest;
  return entry;
}

PathIndex::PathIndex(zip_t* zip) {
  zip_int64_t count = zip_get_num_entries(zip, 0);
  for (zip_int64_t i = 0; i < count; ++i) {
    std::string path = EntryPath(zip, static_cast<zip_uint64_t>(i));
    folded_[core::Fold(path)] = i;
    exact_[std::move(path)] = i;
  }
}

std::int64_t PathIndex::Find(const std::string& path) const {
  auto found = exact_.find(path);
  if (found != exact_.end()) return found->second;
  found = folded_.find(core::Fold(path));
  return found == folded_.end() ? -1 : found->second;
}

}  // namespace backup
