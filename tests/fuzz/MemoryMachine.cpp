#include "fuzz/MemoryMachine.h"

#include <algorithm>
#include <cstring>

#include "platform/FolderLayout.h"
#include "platform/PathText.h"
#include "support/NoDesktop.h"

namespace fuzz {

using platform::EntryInfo;
using platform::EntryKind;
using platform::Moment;
using platform::OpenMode;
using platform::Status;

namespace {

constexpr std::uint64_t kFree = 16 << 20;

test::NoDesktop desktop(platform::BoxAnswer::No);

class MemoryFile : public platform::File {
 public:
  explicit MemoryFile(std::shared_ptr<std::string> content) : shared_(std::move(content)) {}
  std::optional<std::size_t> Read(std::uint64_t offset, std::span<std::byte> buffer) override {
    if (offset >= content_.size()) return 0;
    std::size_t size = std::min(buffer.size(), content_.size() - static_cast<std::size_t>(offset));
    std::memcpy(buffer.data(), content_.data() + offset, size);
    return size;
  }
  Status Write(std::uint64_t offset, std::span<const std::byte> data) override {
    if (offset + data.size() > 2 * kFree) return Status::Full;
    std::size_t end = static_cast<std::size_t>(offset) + data.size();
    if (end > content_.size()) content_.resize(end);
    if (!data.empty()) std::memcpy(content_.data() + offset, data.data(), data.size());
    return Status::Done;
  }
  std::uint64_t Size() override { return content_.size(); }
  Status Truncate(std::uint64_t size) override {
    content_.resize(static_cast<std::size_t>(size));
    return Status::Done;
  }
  Status Flush() override { return Status::Done; }

 private:
  std::shared_ptr<std::string> shared_;
  std::string& content_ = *shared_;
};

}  // namespace

MemoryMachine::MemoryMachine() {
  platform::SetCurrentMachine(this);
  platform::SetCurrentDesktop(&desktop);
  nodes_["c:"] = {"C:", EntryKind::Folder, {}, 0, 0, 0, 0};
}

MemoryMachine::~MemoryMachine() {
  platform::SetCurrentMachine(nullptr);
  platform::SetCurrentDesktop(nullptr);
}

std::string Folded(std::string_view text) {
  std::string folded(text);
  for (char& c : folded)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
  return folded;
}

MemoryMachine::Node* MemoryMachine::Find(std::string_view path) {
  if (platform::IsDriveRoot(path)) path.remove_suffix(1);
  auto found = nodes_.find(Folded(path));
  return found == nodes_.end() ? nullptr : &found->second;
}

Status MemoryMachine::Way(std::string_view path) {
  if (!platform::IsPlainPath(path)) return Status::Refused;
  if (platform::IsDriveRoot(path)) return Status::Done;
  for (std::size_t end = path.find('\\'); end != path.npos; end = path.find('\\', end + 1)) {
    Node* node = Find(path.substr(0, end));
    if (!node || node->kind == EntryKind::File) return Status::Missing;
    if (node->kind != EntryKind::Folder) return Status::Refused;
  }
  return Status::Done;
}

void MemoryMachine::Put(const std::string& path, const std::string& content) {
  for (std::size_t end = path.find('\\', 3); end != path.npos; end = path.find('\\', end + 1))
    CreateFolder(std::string_view(path).substr(0, end));
  nodes_[Folded(path)] = {path, EntryKind::File, std::make_shared<std::string>(content), 0, 1, 1, 1};
}

void MemoryMachine::PutLink(const std::string& path) {
  nodes_[Folded(path)] = {path, EntryKind::FolderLink, {}, 0, 1, 1, 1};
}

std::vector<platform::Identity> MemoryMachine::Ancestry(std::string_view path) {
  std::vector<platform::Identity> way;
  for (path = platform::WithoutBackslash(path); Find(path); path = path.substr(0, path.rfind('\\'))) {
    way.push_back({1, {reinterpret_cast<std::uintptr_t>(Find(path)), 0}});
    if (path.find('\\') == path.npos || platform::IsDriveRoot(path)) break;
  }
  return way;
}

EntryInfo MemoryMachine::Look(std::string_view path) {
  EntryInfo info;
  Status way = Way(path);
  if (way == Status::Refused && platform::IsPlainPath(path)) info.kind = EntryKind::Unreadable;
  Node* node = way == Status::Done ? Find(path) : nullptr;
  if (!node) return info;
  info.kind = node->kind;
  info.size = node->content ? node->content->size() : 0;
  info.attributes = node->attributes;
  info.created = node->created;
  info.accessed = node->accessed;
  info.modified = node->modified;
  info.identity = platform::Identity{1, {reinterpret_cast<std::uintptr_t>(node), 0}};
  return info;
}

MemoryMachine::Node* MemoryMachine::At(std::string_view path, Status& status) {
  status = Way(path);
  Node* node = status == Status::Done ? Find(path) : nullptr;
  if (!node && status == Status::Done) status = Status::Missing;
  return node;
}

Status MemoryMachine::RemoveFile(std::string_view path, bool readOnlyToo) {
  Status status;
  Node* node = At(path, status);
  if (!node) return status;
  if (node->kind == EntryKind::Folder) return Status::Refused;
  if ((node->attributes & platform::kReadOnly) && !readOnlyToo) return Status::Denied;
  nodes_.erase(Folded(path));
  return Status::Done;
}

Status MemoryMachine::RemoveFolder(std::string_view path, bool /*readOnlyToo*/) {
  if (Status way = Way(path); way != Status::Done) return way;
  auto found = nodes_.find(Folded(path));
  if (found == nodes_.end()) return Status::Missing;
  if (found->second.kind == EntryKind::File || platform::IsDriveRoot(path)) return Status::Refused;
  auto next = nodes_.lower_bound(Folded(path) + "\\");
  if (next != nodes_.end() && next->first.starts_with(Folded(path) + "\\")) return Status::NotEmpty;
  nodes_.erase(found);
  return Status::Done;
}

Status MemoryMachine::SetAttributes(std::string_view path, std::uint32_t attributes,
                                    std::optional<platform::Identity> only) {
  if (only && Look(path).identity != only) return Status::Refused;
  Status status;
  if (Node* node = At(path, status)) node->attributes = attributes;
  return status;
}

Status MemoryMachine::SetTimes(std::string_view path, std::optional<Moment> created,
                               std::optional<Moment> accessed, std::optional<Moment> modified) {
  Status status;
  if (Node* node = At(path, status)) {
    node->created = created.value_or(node->created);
    node->accessed = accessed.value_or(node->accessed);
    node->modified = modified.value_or(node->modified);
  }
  return status;
}

Status MemoryMachine::Rename(std::string_view from, std::string_view to, bool replace) {
  if (Status way = Way(from); way != Status::Done) return way;
  if (Status way = Way(to); way != Status::Done) return way;
  Node* node = Find(from);
  if (!node) return Status::Missing;
  if (node->kind == EntryKind::Folder || platform::IsDriveRoot(to)) return Status::Refused;
  if (Node* there = Find(to); there && there != node) {
    if (!replace) return Status::Exists;
    if (there->kind != EntryKind::File) return Status::Refused;
  }
  Node moved = std::move(*node);
  nodes_.erase(Folded(from));
  moved.path = to;
  nodes_[Folded(to)] = std::move(moved);
  return Status::Done;
}

Status MemoryMachine::CreateFolder(std::string_view path) {
  if (Status way = Way(path); way != Status::Done) return way;
  if (Find(path)) return Status::Exists;
  nodes_[Folded(path)] = {std::string(path), EntryKind::Folder, {}, 0, 1, 1, 1};
  return Status::Done;
}

std::unique_ptr<platform::File> MemoryMachine::Open(std::string_view path, OpenMode mode, Status& status) {
  status = Way(path);
  if (status == Status::Done && platform::IsDriveRoot(path)) status = Status::Refused;
  if (status != Status::Done) return nullptr;
  Node* node = Find(path);
  if (node && mode == OpenMode::CreateNew) status = Status::Exists;
  if (!node && (mode == OpenMode::Read || mode == OpenMode::Modify)) status = Status::Missing;
  if (node && node->kind != EntryKind::File && status == Status::Done) status = Status::Refused;
  if (status != Status::Done) return nullptr;
  if (!node) {
    node = &nodes_[Folded(path)];
    *node = {std::string(path), EntryKind::File, std::make_shared<std::string>(), 0, 1, 1, 1};
  }
  if (mode == OpenMode::CreateOrEmpty) node->content->clear();
  return std::make_unique<MemoryFile>(node->content);
}

Status MemoryMachine::TestLock(std::string_view path) {
  return Find(path) ? Status::Done : Status::Missing;
}

Status MemoryMachine::Walk(std::string_view root, const platform::WalkOptions& options,
                           platform::TreeVisitor& visitor) {
  root = platform::WithoutBackslash(root);
  if (Status way = Way(root); way != Status::Done) return way;
  Node* folder = Find(root);
  if (!folder) return Status::Missing;
  if (folder->kind != EntryKind::Folder) return Status::Refused;
  std::string front = Folded(platform::IsDriveRoot(root) ? root.substr(0, 2) : root) + "\\";
  std::vector<std::string> folders;
  std::string path(root);
  if (!path.ends_with('\\')) path += '\\';
  if (!visitor.Folder(path)) return Status::Done;
  for (auto it = nodes_.lower_bound(front); it != nodes_.end() && it->first.starts_with(front); ++it) {
    if (it->first.find('\\', front.size()) != std::string::npos) continue;
    const Node& node = it->second;
    std::string name = node.path.substr(node.path.rfind('\\') + 1);
    if (node.kind == EntryKind::Folder)
      folders.push_back(path + name);
    else if (!visitor.Entry(name, node.kind, options.sizes && node.content ? node.content->size() : 0))
      return Status::Done;
  }
  if (options.recursive)
    for (const std::string& sub : folders) Walk(sub, options, visitor);
  return Status::Done;
}

std::optional<platform::DriveInfo> MemoryMachine::Info(std::string_view root) {
  if (Folded(root) != "c:\\") return {};
  platform::DriveInfo info;
  info.free = static_cast<double>(kFree);
  info.total = info.free * 4;
  return info;
}

Status MemoryMachine::Move(std::string_view path) {
  Status status;
  Node* node = At(path, status);
  if (!node) return status;
  if (node->kind == EntryKind::Folder) return Status::Refused;
  recycled_.emplace(Folded(path), node->content ? *node->content : "");
  nodes_.erase(Folded(path));
  return Status::Done;
}

platform::DateTime MemoryMachine::ToLocal(Moment moment) {
  Moment seconds = moment / 1'000'000'000;
  platform::DateTime time{1970, 1, 1, 0, 0, 0};
  time.second = static_cast<int>((seconds % 60 + 60) % 60);
  return time;
}

std::string MemoryMachine::ShortDate(const platform::DateTime& date) {
  return std::to_string(date.month) + "/" + std::to_string(date.day) + "/" + std::to_string(date.year);
}
std::string MemoryMachine::LongTime(const platform::DateTime& time) {
  return std::to_string(time.hour) + ":" + std::to_string(time.minute) + ":" + std::to_string(time.second);
}

std::string MemoryMachine::Folder(platform::KnownFolder folder) {
  static const platform::FolderLayout layout("User");
  return layout.Path(folder);
}

}  // namespace fuzz
