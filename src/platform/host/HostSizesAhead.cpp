#include "platform/host/HostSizesAhead.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <utility>

namespace platform {

namespace {

// Larger folders are handed over in pieces.
constexpr int kBatch = 4096;
// So many files are left to the judging thread when it has caught up: it takes longer over each, so it finds
// the ones behind them done.
constexpr int kLead = 128;
// The judging tells so rarely how far it is that the two processors don't wait for each other's memory.
constexpr int kTell = 32;
// After so many questions one in so many must have had an answer.
constexpr int kTrial = 2048, kUseful = 4;

}  // namespace

HostSizesAhead::HostSizesAhead(const HostPaths& paths) : paths_(paths) {
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
  next_.folder = path;
}

void HostSizesAhead::File(std::string_view name, std::uint64_t /*size*/) {
  if (next_.count == kBatch) {
    std::string folder = next_.folder;
    Folder(folder);
  }
  next_.names.append(name).push_back('\0');
  ++next_.count;
}

void HostSizesAhead::Listed() {
  HandOver();
}

void HostSizesAhead::HandOver() {
  if (next_.count == 0) return;
  int following = next_.first + next_.count;
  next_.filled = std::make_unique<std::atomic<bool>[]>(static_cast<std::size_t>(next_.count));
  {
    std::lock_guard lock(mutex_);
    batches_.push_back(std::move(next_));
  }
  more_.notify_one();
  next_ = Batch();
  next_.first = following;
}

bool HostSizesAhead::IsFilled(int file) {
  if (file >= told_ + kTell) {
    told_ = file;
    judged_.store(file, std::memory_order_relaxed);
  }
  while (judgedBatch_ < batches_.size() &&
         file >= batches_[judgedBatch_].first + batches_[judgedBatch_].count)
    ++judgedBatch_;
  if (judgedBatch_ == batches_.size()) return false;
  const Batch& batch = batches_[judgedBatch_];
  bool filled = file >= batch.first &&
                batch.filled[static_cast<std::size_t>(file - batch.first)].load(std::memory_order_relaxed);
  ++asked_;
  if (filled) ++answered_;
  if (asked_ > kTrial && asked_ / kUseful > answered_) ends_ = true;
  return filled;
}

void HostSizesAhead::Work() {
  int skipTo = 0;
  for (std::size_t next = 0;; ++next) {
    Batch* batch;
    {
      std::unique_lock lock(mutex_);
      more_.wait(lock, [&] { return ends_ || next < batches_.size(); });
      if (ends_) return;
      batch = &batches_[next];
    }
    Look(*batch, skipTo);
  }
}

void HostSizesAhead::Look(Batch& batch, int& skipTo) {
  if (batch.first + batch.count <= judged_.load(std::memory_order_relaxed)) return;
  UniqueFd folder = paths_.OpenListed(batch.folder);
  if (!folder) return;
  const char* name = batch.names.c_str();
  for (int i = 0; i < batch.count; ++i, name += std::char_traits<char>::length(name) + 1) {
    int file = batch.first + i, judged = judged_.load(std::memory_order_relaxed);
    if (file <= judged) skipTo = judged + kLead;
    if (file < skipTo) continue;
    if (ends_.load(std::memory_order_relaxed)) return;
    struct stat found;
    bool filled = fstatat(folder.Get(), name, &found, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT) == 0 &&
                  S_ISREG(found.st_mode) && found.st_size > 0;
    batch.filled[static_cast<std::size_t>(i)].store(filled, std::memory_order_relaxed);
  }
}

}  // namespace platform
