#include "platform/host/HostSizesAhead.h"

#include <climits>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <utility>

#include "platform/CoarseClock.h"

namespace platform {

namespace {

// Larger folders are handed over in pieces.
constexpr int kBatch = 256;
// So many files are left to the judging thread when it has caught up: it takes longer over each, so it finds
// the ones behind them done.
constexpr int kLead = 256;
// The judging tells so rarely how far it is, where all is known, that the two processors don't wait for each
// other's memory.
constexpr int kTell = 64;
constexpr std::int64_t kHolds = 2'000'000'000;  // nanoseconds

std::int64_t Now() {
  return CoarseNow().time_since_epoch().count();
}

// 1 more than the size of a plain file; 0 for all else, and for a file too large to be said.
std::uint32_t SizeAt(int folder, const char* name) {
  struct stat found;
  if (fstatat(folder, name, &found, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT) != 0 || !S_ISREG(found.st_mode))
    return 0;
  return found.st_size < UINT32_MAX ? static_cast<std::uint32_t>(found.st_size) + 1 : 0;
}

const char* Behind(const char* name) {
  return name + std::char_traits<char>::length(name) + 1;
}

}  // namespace

HostSizesAhead::HostSizesAhead(const HostPaths& paths) : paths_(paths), next_(std::make_unique<Batch>()) {
  try {
    thread_ = std::thread([this] {
      try {
        Work();
      } catch (...) {
        // No memory left: nothing more is known ahead.
      }
    });
  } catch (const std::system_error&) {
    // Without a thread nothing is known ahead.
  }
}

HostSizesAhead::~HostSizesAhead() {
  {
    std::lock_guard lock(mutex_);
    ends_ = true;
  }
  more_.notify_one();
  if (thread_.joinable()) thread_.join();
}

void HostSizesAhead::Folder(std::string_view path) {
  HandOver();
  // A folder of a longer path can't be opened in one step, and isn't looked at.
  next_->folder = path.size() < PATH_MAX ? path : std::string_view();
}

void HostSizesAhead::File(std::string_view name, std::uint64_t /*size*/) {
  if (next_->count == kBatch) {
    std::string folder = next_->folder;
    Folder(folder);
  }
  next_->names.append(name).push_back('\0');
  ++next_->count;
}

void HostSizesAhead::Listed() {
  HandOver();
}

void HostSizesAhead::HandOver() {
  if (next_->count == 0) return;
  auto following = std::make_unique<Batch>();
  following->first = next_->first + next_->count;
  next_->sizes = std::make_unique<std::atomic<std::uint32_t>[]>(static_cast<std::size_t>(next_->count));
  {
    std::lock_guard lock(mutex_);
    batches_.push_back(std::move(next_));
  }
  more_.notify_one();
  next_ = std::move(following);
}

void HostSizesAhead::Work() {
  HostPaths::OpenedDrive drive;
  int skipTo = 0;
  for (std::size_t next = 0;; ++next) {
    Batch* batch;
    {
      std::unique_lock lock(mutex_);
      more_.wait(lock, [&] { return ends_ || next < batches_.size(); });
      if (ends_) return;
      batch = batches_[next].get();
    }
    if (batch->first >= skipTo && !LookAtAll(*batch, drive))
      skipTo = judged_.load(std::memory_order_relaxed) + kLead;
  }
}

bool HostSizesAhead::LookAtAll(Batch& batch, HostPaths::OpenedDrive& drive) {
  if (batch.first <= judged_.load(std::memory_order_relaxed)) return false;
  batch.since.store(Now(), std::memory_order_relaxed);
  UniqueFd folder = paths_.OpenListed(batch.folder, drive);
  if (!folder) return true;
  const char* name = batch.names.c_str();
  for (int i = 0; i < batch.count; ++i, name = Behind(name)) {
    if (ends_.load(std::memory_order_relaxed)) return true;
    if (batch.first + i <= judged_.load(std::memory_order_relaxed)) return false;
    batch.sizes[static_cast<std::size_t>(i)].store(SizeAt(folder.Get(), name), std::memory_order_relaxed);
  }
  return true;
}

bool HostSizesAhead::IsFilled(int file) {
  if (!GoTo(file)) return false;
  bool filled = Known(file) > 1;
  if (filled && file >= told_ + kTell) Tell(file);
  return filled;
}

std::optional<std::uint64_t> HostSizesAhead::SizeOf(int file) {
  if (!GoTo(file)) return std::nullopt;
  const Batch& batch = *place_.batch;
  std::uint32_t known = Known(file);
  if (known != 0 && Now() - batch.since.load(std::memory_order_relaxed) < kHolds) return known - 1;
  Tell(file);
  return LookAt(file - batch.first);
}

std::uint32_t HostSizesAhead::Known(int file) const {
  return place_.batch->sizes[static_cast<std::size_t>(file - place_.batch->first)].load(
      std::memory_order_relaxed);
}

void HostSizesAhead::Tell(int file) {
  told_ = file;
  judged_.store(file, std::memory_order_relaxed);
}

// False for a file that wasn't told of, or that lies before the last one.
bool HostSizesAhead::GoTo(int file) {
  if (place_.batch && file < place_.batch->first + place_.batch->count) return file >= place_.batch->first;
  while (judgedBatch_ < batches_.size() &&
         file >= batches_[judgedBatch_]->first + batches_[judgedBatch_]->count)
    ++judgedBatch_;
  place_.folder.Close();
  place_.opened = 0;
  place_.batch = judgedBatch_ < batches_.size() ? batches_[judgedBatch_].get() : nullptr;
  if (!place_.batch) return false;
  place_.name = place_.batch->names.c_str();
  place_.number = 0;
  return file >= place_.batch->first;
}

std::optional<std::uint64_t> HostSizesAhead::LookAt(int number) {
  // Another folder may have taken this one's place while the judging stood still.
  if (std::int64_t now = Now(); now - place_.opened >= kHolds || place_.opened == 0) {
    place_.folder = paths_.OpenListed(place_.batch->folder, place_.drive);
    place_.opened = now;
  }
  if (!place_.folder) return std::nullopt;
  if (number < place_.number) {
    place_.name = place_.batch->names.c_str();
    place_.number = 0;
  }
  for (; place_.number < number; ++place_.number) place_.name = Behind(place_.name);
  std::uint32_t size = SizeAt(place_.folder.Get(), place_.name);
  if (size == 0) return std::nullopt;
  return size - 1;
}

}  // namespace platform
