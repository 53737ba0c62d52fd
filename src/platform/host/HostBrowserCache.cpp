#include "platform/host/HostBrowserCache.h"

#include <algorithm>
#include <span>

#include "platform/WriteBeside.h"

namespace platform {

namespace {

// Rewriting a shorter index isn't worth it.
constexpr std::size_t kLinesKept = 256;

std::span<const std::byte> BytesOf(std::string_view text) {
  return std::as_bytes(std::span(text));
}

// A path below the cache folder that stays below it.
bool IsBelow(std::string_view file) {
  if (file.empty() || file.find_first_of(":/") != std::string_view::npos) return false;
  while (!file.empty()) {
    std::size_t end = std::min(file.find('\\'), file.size());
    std::string_view name = file.substr(0, end);
    if (name.empty() || name == "." || name == ".." || end + 1 == file.size()) return false;
    file.remove_prefix(std::min(end + 1, file.size()));
  }
  return true;
}

}  // namespace

void HostBrowserCache::TakeLine(std::string_view line) {
  ++lines_;
  if (line.empty()) return;
  std::string_view rest = line.substr(1);
  std::size_t tab = rest.find('\t');
  std::string key(rest.substr(0, tab));
  if (line[0] == '+')
    entries_.insert_or_assign(
        key, Entry{std::string(tab == std::string_view::npos ? std::string_view() : rest.substr(tab + 1)),
                   lines_});
  else if (line[0] == '-')
    entries_.erase(key);
}

Status HostBrowserCache::Refresh() {
  EntryInfo info = files_.Look(index_);
  if (info.kind != EntryKind::Missing && known_ && info.size == size_ && info.modified == modified_)
    return Status::Done;
  entries_.clear();
  lines_ = 0;
  wholeSize_ = 0;
  known_ = false;
  if (info.kind == EntryKind::Missing) return Status::Done;
  if (info.kind != EntryKind::File) return Status::Failed;

  Status status;
  auto file = files_.Open(index_, OpenMode::Read, status);
  if (!file) return status;
  std::string text;
  std::uint64_t offset = 0;
  std::vector<std::byte> buffer(256 * 1024);
  while (true) {
    auto read = file->Read(offset, buffer);
    if (!read) return Status::Failed;
    if (*read == 0) break;
    offset += *read;
    text.append(reinterpret_cast<const char*>(buffer.data()), *read);
    std::size_t start = 0;
    for (std::size_t end; (end = text.find('\n', start)) != std::string::npos; start = end + 1)
      TakeLine(std::string_view(text).substr(start, end - start));
    text.erase(0, start);
    wholeSize_ = offset - text.size();
  }
  known_ = offset == info.size;
  size_ = info.size;
  modified_ = info.modified;
  return Status::Done;
}

void HostBrowserCache::NoteState() {
  EntryInfo info = files_.Look(index_);
  known_ = info.kind == EntryKind::File && info.size == wholeSize_;
  size_ = info.size;
  modified_ = info.modified;
}

Status HostBrowserCache::List(std::vector<std::string>& keys) {
  Status status = Refresh();
  if (status != Status::Done) return status;
  std::vector<std::pair<std::size_t, const std::string*>> order;
  order.reserve(entries_.size());
  for (const auto& [key, entry] : entries_) order.emplace_back(entry.number, &key);
  std::sort(order.begin(), order.end());
  for (const auto& [number, key] : order) keys.push_back(*key);
  return Status::Done;
}

Status HostBrowserCache::RemoveEntryFile(const std::string& file) {
  // What points elsewhere isn't the cache's to remove.
  if (!IsBelow(file)) return Status::Done;
  std::string path = folder_ + "\\" + file;
  Status status = files_.RemoveFile(path, true);
  return status == Status::Missing ? Status::Done : status;
}

Status HostBrowserCache::Remove(std::string_view key) {
  Status status = Refresh();
  if (status != Status::Done) return status;
  auto found = entries_.find(std::string(key));
  if (found == entries_.end()) return Status::Missing;
  status = RemoveEntryFile(found->second.file);
  if (status != Status::Done) return status;
  status = AppendLine("-" + found->first + "\n");
  if (status != Status::Done) return status;
  entries_.erase(found);
  ++lines_;
  status = Status::Done;
  if (lines_ > kLinesKept && lines_ > 3 * entries_.size()) status = Rewrite();
  NoteState();
  return status;
}

Status HostBrowserCache::AppendLine(std::string_view line) {
  Status status;
  auto file = files_.Open(index_, OpenMode::Modify, status);
  if (!file) return status;
  // An unfinished line would run together with this one.
  if (file->Size() != wholeSize_) status = file->Truncate(wholeSize_);
  if (status == Status::Done) status = file->Write(wholeSize_, BytesOf(line));
  if (status == Status::Done)
    wholeSize_ += line.size();
  else
    known_ = false;
  return status;
}

Status HostBrowserCache::Rewrite() {
  std::vector<std::pair<std::size_t, const std::string*>> order;
  for (const auto& [key, entry] : entries_) order.emplace_back(entry.number, &key);
  std::sort(order.begin(), order.end());
  std::string text;
  for (const auto& [number, key] : order) text += '+' + *key + '\t' + entries_[*key].file + '\n';

  WriteBeside file(files_, index_);
  file.Append(BytesOf(text));
  if (Status status = file.Finish(); status != Status::Done) return status;
  std::size_t number = 0;
  for (const auto& [old, key] : order) entries_[*key].number = ++number;
  lines_ = entries_.size();
  wholeSize_ = text.size();
  return Status::Done;
}

}  // namespace platform
