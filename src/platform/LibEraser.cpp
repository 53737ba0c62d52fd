#include "platform/LibEraser.h"

#include <algorithm>
#include <cstring>
#include <random>
#include <vector>

#include "platform/Desktop.h"
#include "platform/Guard.h"
#include "platform/Machine.h"
#include "platform/RandomName.h"
#include "platform/ReadOnlyLift.h"

namespace platform {

namespace {

constexpr std::size_t kBlock = 1024 * 1024;

void FillRandomly(std::span<std::byte> bytes) {
  static std::mt19937_64 random{(std::uint64_t{std::random_device{}()} << 32) | std::random_device{}()};
  for (std::size_t i = 0; i < bytes.size(); i += sizeof(std::uint64_t)) {
    std::uint64_t number = random();
    std::memcpy(bytes.data() + i, &number, std::min(sizeof number, bytes.size() - i));
  }
}

// One pass over the whole length, on the disk when it ends.
bool Overwrite(File& file, std::uint64_t length, bool zeros, std::vector<std::byte>& block) {
  if (zeros) std::fill(block.begin(), block.end(), std::byte{0});
  for (std::uint64_t offset = 0; offset < length;) {
    auto part = static_cast<std::size_t>(std::min<std::uint64_t>(block.size(), length - offset));
    if (!zeros) FillRandomly({block.data(), part});
    if (file.Write(offset, {block.data(), part}) != Status::Done) return false;
    offset += part;
    CurrentDesktop().Breathe();
  }
  return file.Flush() == Status::Done;
}

// Leaves the file's length as it was where it can't be overwritten.
bool OverwriteAll(const std::string& path, short passes, long clusterSize) {
  Status status;
  auto file = CurrentMachine().Files().Open(path, OpenMode::Modify, status);
  if (!file) return false;
  std::uint64_t size = file->Size();
  std::uint64_t cluster = clusterSize < 1 ? 1 : static_cast<std::uint64_t>(clusterSize);
  std::uint64_t length = (size + cluster - 1) / cluster * cluster;
  if (length == 0) return true;
  std::vector<std::byte> block(static_cast<std::size_t>(std::min<std::uint64_t>(kBlock, length)));
  int count = std::clamp<int>(passes, 1, 35);
  for (int pass = 1; pass <= count; ++pass)
    if (!Overwrite(*file, length, pass == count, block)) {
      file->Truncate(size);
      return false;
    }
  return true;
}

bool Empty(const std::string& path) {
  Status status;
  auto file = CurrentMachine().Files().Open(path, OpenMode::Modify, status);
  return file && file->Truncate(0) == Status::Done && file->Flush() == Status::Done;
}

// The new path, or an empty one where no name could be had.
std::string RenameToNothing(const std::string& path) {
  std::string folder = path.substr(0, path.rfind('\\') + 1);
  for (int attempt = 0; attempt < 16; ++attempt) {
    std::string renamed = folder + RandomName(12);
    Status status = CurrentMachine().Files().Rename(path, renamed, false);
    if (status == Status::Done) return renamed;
    if (status != Status::Exists) break;
  }
  return {};
}

}  // namespace

long LibEraser::EraseFile(const std::string& path, short passes, long clusterSize) const {
  if (!MayActOn(path)) return 0;
  FileSystem& files = CurrentMachine().Files();
  EntryInfo info = files.Look(path);
  if (IsLink(info.kind)) return RemoveFileAnyway(path) == Status::Done ? 1 : 0;
  if (info.kind != EntryKind::File || info.names > 1) return 0;

  ReadOnlyLift lift(path, info);
  if (!OverwriteAll(path, passes, clusterSize)) return 0;
  std::string renamed = RenameToNothing(path);
  if (renamed.empty()) return 0;
  if (!Empty(renamed) || files.RemoveFile(renamed) != Status::Done) {
    files.Rename(renamed, path, false);
    return 0;
  }
  lift.WorkDone();
  return 1;
}

long LibEraser::OverwriteFile(const std::string& path, short passes, long clusterSize) const {
  if (!MayActOn(path)) return 0;
  EntryInfo info = CurrentMachine().Files().Look(path);
  if (info.kind != EntryKind::File || info.names > 1) return 0;
  ReadOnlyLift lift(path, info);
  return OverwriteAll(path, passes, clusterSize) && Empty(path) ? 1 : 0;
}

}  // namespace platform
