// An archive that is being written. For the ZIP control alone.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "backup/Sha256.h"
#include "backup/ZipFormat.h"
#include "platform/WriteBeside.h"

namespace backup {

// Writes what the archive holds already and then new entries beside its place, and puts it there in one step
// once it lies on the disk. So a kill, a full disk or any failure leaves what was there. Every failure raises
// platform::RuntimeError. Lets the stop control in.
class ArchiveWriter {
 public:
  // `key` is what the entries are marked with; empty for no mark.
  ArchiveWriter(const std::string& target, std::string key);

  // A new entry; then its data in pieces; then End with what the data turned out to be, or Drop.
  // An older entry of the very same name is renamed to " (2)", " (3)" and so on before its extension.
  void Begin(NewEntry& entry);
  void Add(std::span<const std::byte> data);
  void End(const NewEntry& entry, const Sha256::Digest& digest);
  void Drop(const NewEntry& entry);

  // Where the next byte goes.
  std::uint64_t Position() const { return pendingAt_ + pending_.size(); }
  // The newest entry of that name, as a number that Record takes; nothing if there is none.
  std::optional<std::size_t> Find(std::string_view name) const;
  // Its record in the directory; empty if the entry has been renamed.
  std::string_view Record(std::size_t number) const {
    return std::string_view(directory_).substr(records_[number].at, records_[number].size);
  }
  std::size_t Count() const { return records_.size(); }

  // Puts the archive in place, if there was anything new. True if it did.
  bool Finish();
  // Of the archive that was put in place: where its directory lies, and the directory's CRC-32.
  const DirectoryPlace& Directory() const { return place_; }
  std::uint32_t DirectoryCrc() const { return directoryCrc_; }

 private:
  struct Slot {
    std::size_t at;      // in directory_
    std::uint32_t size;  // 0 for an entry that has another record now
  };
  struct Hash {
    using is_transparent = void;
    const ArchiveWriter* writer;
    std::size_t operator()(std::string_view name) const { return std::hash<std::string_view>()(name); }
    std::size_t operator()(std::size_t number) const { return (*this)(writer->NameOf(number)); }
  };
  struct Same {
    using is_transparent = void;
    const ArchiveWriter* writer;
    bool operator()(std::size_t a, std::size_t b) const { return writer->NameOf(a) == writer->NameOf(b); }
    bool operator()(std::string_view a, std::size_t b) const { return a == writer->NameOf(b); }
    bool operator()(std::size_t a, std::string_view b) const { return writer->NameOf(a) == b; }
  };
  std::string_view NameOf(std::size_t number) const;

  void ReadOld(const platform::EntryInfo& info);
  void CopyOld();
  void Start();
  void WriteOut();
  void Patch(std::uint64_t offset, std::string_view bytes);
  void Append(std::string_view bytes) { Add(std::as_bytes(std::span(bytes))); }
  void AddRecord(std::string_view record);
  void MakeRoom(std::size_t older);
  void CopyWithin(std::uint64_t from, std::uint64_t size);
  void ReadWritten(std::uint64_t offset, std::span<std::byte> buffer);

  platform::FileSystem& files_;
  std::string target_, key_;
  platform::EntryInfo before_;
  std::optional<platform::WriteBeside> out_;  // once there is something to write
  // Bytes from pendingAt_ onward that aren't in the file yet.
  std::uint64_t pendingAt_ = 0;
  std::vector<std::byte> pending_;

  std::string directory_;
  std::vector<Slot> records_;
  std::unordered_set<std::size_t, Hash, Same> byName_;
  std::unordered_map<std::string, int> numbers_;  // the last one that a path was renamed to
  DirectoryPlace place_;                          // of the old archive, then of the new one
  std::uint32_t directoryCrc_ = 0;
};

}  // namespace backup
