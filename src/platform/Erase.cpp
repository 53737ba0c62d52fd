#include "platform/Erase.h"

#include <algorithm>
#include <cstring>
#include <random>
#include <vector>

#include "platform/Desktop.h"
#include "platform/Guard.h"
#include "platform/Machine.h"
#include "platform/RandomName.h"

namespace platform::ops {

namespace {

constexpr std::size_t kBlock = 1024 * 1024;

void FillRandomly(std::span<std::byte> bytes) {
  static std::mt19937_64 random{(std::uint64_t{std::random_device{}()} << 32) | std::random_device{}()};
  for (std::size_t i = 0; i < bytes.size(); i += sizeof(std::uint64_t)) {
    std::uint64_t number = random();
    std::memcpy(bytes.data() + i, &number, std::min(sizeof number, bytes.size() - i));
  }
}

class Eraser {
 public:
  Eraser(HeldFile& file, int passes, long clusterSize)
      : file_(file),
        size_(file.Size()),
        passes_(std::clamp(passes, 1, 35)),
        cluster_(clusterSize < 1 ? 1 : static_cast<std::uint64_t>(clusterSize)),
        block_(static_cast<std::size_t>(std::min<std::uint64_t>(kBlock, RoundedUp()))) {}

  // Done, Overwritten, or what kept it from writing the first byte.
  Status OverwriteAll() {
    for (int pass = 1; pass <= passes_; ++pass) {
      // A name that it has got since is no name that may lose its content.
      Status status = file_.Names() == 1 ? Pass(pass == passes_) : Status::Refused;
      if (status == Status::Done) continue;
      if (file_.Size() > size_) file_.Truncate(size_);
      return begun_ ? Status::Overwritten : status;
    }
    return Status::Done;
  }

 private:
  std::uint64_t RoundedUp() const { return (size_ + cluster_ - 1) / cluster_ * cluster_; }

  // On the disk when it ends.
  Status Pass(bool zeros) {
    if (zeros) std::fill(block_.begin(), block_.end(), std::byte{0});
    bool atEnd = size_ == 0;
    for (std::uint64_t offset = 0; offset < size_;) {
      auto stretch = file_.NextStretch(offset);
      if (!stretch) break;
      std::uint64_t end = std::min(stretch->end, size_);
      if (Status status = Write(stretch->begin, end, zeros); status != Status::Done) return status;
      atEnd = end == size_;
      offset = end;
    }
    // The rest of the last cluster holds what other files have left there; where the disk is full, it stays.
    if (atEnd) Write(size_, RoundedUp(), zeros);
    return file_.Flush();
  }

  Status Write(std::uint64_t offset, std::uint64_t end, bool zeros) {
    while (offset < end) {
      auto part = static_cast<std::size_t>(std::min<std::uint64_t>(block_.size(), end - offset));
      if (!zeros) FillRandomly({block_.data(), part});
      begun_ = true;
      if (Status status = file_.Write(offset, {block_.data(), part}); status != Status::Done) return status;
      offset += part;
      CurrentDesktop().Breathe();
    }
    return Status::Done;
  }

  HeldFile& file_;
  std::uint64_t size_;
  int passes_;
  std::uint64_t cluster_;
  std::vector<std::byte> block_;
  bool begun_ = false;
};

Status RenameToNothing(HeldFile& file) {
  for (int attempt = 0; attempt < 16; ++attempt)
    if (Status status = file.Rename(RandomName(12)); status != Status::Exists) return status;
  return Status::Exists;
}

// Its own name, or the nearest to it where somebody has taken that.
void RenameBack(HeldFile& file, const std::string& name) {
  std::string back = name;
  for (int number = 2; file.Rename(back) == Status::Exists && number < 100; ++number)
    back = name + " (" + std::to_string(number) + ")";
}

}  // namespace

Status Erase(const std::string& path, int passes, long clusterSize) {
  if (!MayActOn(path)) return Status::Refused;
  FileSystem& files = CurrentMachine().Files();
  if (IsLink(files.Look(path).kind)) return files.RemoveFile(path);
  Status status;
  auto file = files.Hold(path, status);
  if (!file) return status;
  if (file->Names() != 1) return Status::Refused;
  // Who may rename it may remove it.
  if ((status = RenameToNothing(*file)) != Status::Done) return status;
  status = Eraser(*file, passes, clusterSize).OverwriteAll();
  if (status == Status::Done) {
    bool gone = file->Truncate(0) == Status::Done && file->Remove() == Status::Done;
    if (gone) return Status::Done;
    status = Status::Overwritten;
  }
  RenameBack(*file, path.substr(path.rfind('\\') + 1));
  return status;
}

Status Overwrite(const std::string& path, int passes, long clusterSize) {
  if (!MayActOn(path)) return Status::Refused;
  Status status;
  auto file = CurrentMachine().Files().Hold(path, status);
  if (!file) return status;
  if (file->Names() != 1) return Status::Refused;
  status = Eraser(*file, passes, clusterSize).OverwriteAll();
  if (status == Status::Done) status = file->Truncate(0);
  return status == Status::Done ? file->Flush() : status;
}

}  // namespace platform::ops
