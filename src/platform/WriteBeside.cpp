#include "platform/WriteBeside.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "platform/RandomName.h"

namespace platform {

namespace {

constexpr std::size_t kRandom = 6, kAttempts = 16;
// A name has room for so many bytes on every disk, if the rest of the name is added.
constexpr std::size_t kLongest = 200;

std::size_t FolderLength(std::string_view path) {
  return path.rfind('\\') + 1;
}

// Cut where a character ends, and without a tilde, by which garbage files are known wherever it stands.
std::string Front(std::string_view name) {
  std::size_t end = std::min(name.size(), kLongest);
  while (end > 0 && end < name.size() && (static_cast<unsigned char>(name[end]) & 0xC0) == 0x80) --end;
  std::string front(name.substr(0, end));
  std::replace(front.begin(), front.end(), '~', '_');
  return front;
}

class Leftovers : public TreeVisitor {
 public:
  explicit Leftovers(std::string target) : target_(std::move(target)) {}
  bool Folder(std::string_view) override { return true; }
  bool Entry(std::string_view name, EntryKind kind, std::uint64_t) override {
    std::string_view writtenFor;
    if (kind == EntryKind::File && WriteBeside::IsName(name, &writtenFor) && writtenFor == target_)
      names.emplace_back(name);
    return true;
  }
  std::vector<std::string> names;

 private:
  std::string target_;
};

}  // namespace

WriteBeside::WriteBeside(FileSystem& files, std::string target) : files_(files), target_(std::move(target)) {
  std::size_t folder = FolderLength(target_);
  std::string front = target_.substr(0, folder) + Front(std::string_view(target_).substr(folder));
  for (std::size_t attempt = 0; attempt < kAttempts && state_ == Status::Exists; ++attempt) {
    path_ = front + '.' + RandomName(kRandom) + std::string(kSuffix);
    file_ = files_.Open(path_, OpenMode::CreateNew, state_);
  }
  there_ = file_ != nullptr;
}

WriteBeside::~WriteBeside() {
  Discard();
}

Status WriteBeside::Append(std::span<const std::byte> bytes) {
  if (state_ != Status::Done) return state_;
  if (!file_) return state_ = Status::Failed;
  state_ = file_->Write(end_, bytes);
  end_ += bytes.size();
  return state_;
}

Status WriteBeside::Flush() {
  if (state_ != Status::Done) return state_;
  state_ = file_ ? file_->Flush() : Status::Failed;
  file_.reset();
  return state_;
}

Status WriteBeside::Finish(bool replace) {
  if (file_) Flush();
  if (state_ == Status::Done && !there_) state_ = Status::Failed;
  if (state_ == Status::Done && replace) {
    // A rename would take the place of a link as well.
    EntryKind kind = files_.Look(target_).kind;
    if (kind != EntryKind::Missing && kind != EntryKind::File) state_ = Status::Refused;
  }
  if (state_ == Status::Done) state_ = files_.Rename(path_, target_, replace);
  if (state_ != Status::Done) return state_;
  there_ = false;
  // The file is in place. A folder that can't be flushed is no reason to call it lost.
  files_.FlushFolder(std::string_view(target_).substr(0, FolderLength(target_)));
  return Status::Done;
}

void WriteBeside::Keep() {
  file_.reset();
  there_ = false;
}

void WriteBeside::Discard() {
  file_.reset();
  if (there_) files_.RemoveFile(path_);
  there_ = false;
}

bool WriteBeside::IsName(std::string_view name, std::string_view* target) {
  constexpr std::size_t kAdded = 1 + kRandom + kSuffix.size();
  if (name.size() <= kAdded || !name.ends_with(kSuffix)) return false;
  std::string_view random = name.substr(name.size() - kAdded, 1 + kRandom);
  bool form = random[0] == '.' && std::all_of(random.begin() + 1, random.end(), [](char c) {
                return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z');
              });
  if (form && target) *target = name.substr(0, name.size() - kAdded);
  return form;
}

void WriteBeside::RemoveLeftovers(FileSystem& files, std::string_view target) {
  std::size_t folder = FolderLength(target);
  Leftovers leftovers(Front(target.substr(folder)));
  files.Walk(target.substr(0, folder), {.recursive = false}, leftovers);
  for (const std::string& name : leftovers.names)
    files.RemoveFile(std::string(target.substr(0, folder)) + name);
}

}  // namespace platform
