// A thread that looks at files while another one lists and judges them.
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

#include "platform/FileSystem.h"
#include "platform/host/HostPaths.h"

namespace platform {

// Folders go over to the thread one by one, in the order of the listing. Where the judging catches up, the
// thread leaves it the files at hand and goes on a little further on, so that both look at files and neither
// waits.
class HostSizesAhead : public SizesAhead {
 public:
  // `paths` must live longer.
  explicit HostSizesAhead(const HostPaths& paths);
  // Ends the thread, which looks at one more file at most.
  ~HostSizesAhead() override;

  bool WantsSizes() const override { return false; }
  void Folder(std::string_view path) override;
  void File(std::string_view name, std::uint64_t size) override;
  void Listed() override;
  bool IsFilled(int file) override;
  // Looks at the file itself where the thread hasn't, or not lately.
  std::optional<std::uint64_t> SizeOf(int file) override;

 private:
  struct Batch {
    std::string folder;
    std::string names;  // each ended by a zero
    int first = 0;      // number of its first file
    int count = 0;
    // Of each file, 1 more than its size; 0 while it isn't known.
    std::unique_ptr<std::atomic<std::uint32_t>[]> sizes;
    // Not later than any of them was looked at.
    std::atomic<std::int64_t> since = 0;
  };
  // The judging thread's own way through a batch.
  struct Place {
    Batch* batch = nullptr;
    HostPaths::OpenedDrive drive;
    UniqueFd folder;
    std::int64_t opened = 0;
    const char* name = nullptr;  // of the file `number` of the batch
    int number = 0;
  };
  void HandOver();
  void Work();
  // False if the judging has caught up.
  bool LookAtAll(Batch& batch, HostPaths::OpenedDrive& drive);
  bool GoTo(int file);
  std::uint32_t Known(int file) const;
  void Tell(int file);
  std::optional<std::uint64_t> LookAt(int number);

  const HostPaths& paths_;

  // What the one thread writes for each file doesn't share a cache line with what the other reads for each.
  static constexpr std::size_t kLine = 64;

  // Of the listing and judging thread.
  alignas(kLine) std::unique_ptr<Batch> next_;  // being filled
  std::size_t judgedBatch_ = 0;
  int told_ = -1;
  Place place_;

  // Of both.
  alignas(kLine) std::atomic<int> judged_ = -1;
  std::atomic<bool> ends_ = false;
  alignas(kLine) std::mutex mutex_;
  std::condition_variable more_;
  std::deque<std::unique_ptr<Batch>> batches_;  // grows at its end alone
  std::thread thread_;
};

}  // namespace platform
