#include "backup/ReadBack.h"

#include <algorithm>
#include <memory>
#include <span>
#include <utility>
#include <zlib.h>

#include "backup/Bytes.h"
#include "backup/StopWatch.h"
#include "platform/Desktop.h"
#include "platform/Machine.h"

namespace backup {

namespace {

constexpr std::size_t kWindow = 1024 * 1024;

// Reads forward through a file.
class Window {
 public:
  explicit Window(std::unique_ptr<platform::File> file) : file_(std::move(file)) {}
  // The bytes there, valid until the next call; fewer where the file ends or can't be read.
  std::span<const std::byte> At(std::uint64_t offset, std::size_t size) {
    if (offset < at_ || offset - at_ > size_ || size_ - (offset - at_) < size) Fill(offset, size);
    std::size_t from = static_cast<std::size_t>(offset - at_);
    return std::span(bytes_).subspan(from, std::min(size, size_ - from));
  }

 private:
  void Fill(std::uint64_t offset, std::size_t size) {
    platform::CurrentDesktop().Breathe();
    bytes_.resize(std::max(kWindow, size));
    at_ = offset;
    for (size_ = 0; size_ < bytes_.size();) {
      auto got = file_->Read(at_ + size_, std::span(bytes_).subspan(size_));
      if (!got || *got == 0) return;
      size_ += *got;
    }
  }
  std::unique_ptr<platform::File> file_;
  std::uint64_t at_ = 0;
  std::size_t size_ = 0;
  std::vector<std::byte> bytes_;
};

bool IsDirectorySound(Window& window, const ArchiveWriter& writer) {
  DirectoryPlace place = writer.Directory();
  std::string end = EndOfArchive(place);
  uLong crc = crc32_z(0, nullptr, 0);
  for (std::uint64_t at = 0; at < place.size;) {
    std::size_t size = static_cast<std::size_t>(std::min<std::uint64_t>(kWindow, place.size - at));
    std::span<const std::byte> bytes = window.At(place.offset + at, size);
    if (bytes.size() != size) return false;
    crc = crc32_z(crc, reinterpret_cast<const Bytef*>(bytes.data()), size);
    at += size;
  }
  // One byte more than there may be.
  return crc == writer.DirectoryCrc() && AsText(window.At(place.offset + place.size, end.size() + 1)) == end;
}

}  // namespace

std::vector<bool> ReadBack(const std::string& archive, const ArchiveWriter& writer,
                           const std::vector<StoredFile>& files, const std::vector<Piece>& pieces) {
  platform::Status status = platform::Status::Failed;
  auto file = platform::CurrentMachine().Files().Open(archive, platform::OpenMode::Read, status);
  if (!file) return {};
  Window window(std::move(file));
  if (!IsDirectorySound(window, writer)) return {};

  StopWatch stop;
  std::vector<bool> sound(files.size(), true);
  Workers workers;
  std::size_t given = 0, piecesTaken = 0, taken = 0;
  auto take = [&](std::unique_ptr<Job> job) {
    while (piecesTaken == files[taken].pieces) {
      ++taken;
      piecesTaken = 0;
    }
    ++piecesTaken;
    if (!static_cast<UnpackJob&>(*job).sound) sound[taken] = false;
  };
  for (; given < files.size(); ++given) {
    if (stop.Stopped()) return {};
    const StoredFile& stored = files[given];
    // Without a record it has been renamed, because a newer one took its name.
    std::string_view record = writer.Record(stored.record);
    std::string header = record.empty() ? std::string() : LocalHeader(record);
    std::uint64_t front = pieces[stored.firstPiece].offset - header.size();
    sound[given] = !header.empty() && AsText(window.At(front, header.size())) == header;
    for (std::size_t i = 0; i < stored.pieces; ++i) {
      const Piece& piece = pieces[stored.firstPiece + i];
      std::span<const std::byte> bytes = window.At(piece.offset, piece.packedSize);
      workers.Give(std::make_unique<UnpackJob>(std::vector<std::byte>(bytes.begin(), bytes.end()), piece));
      while (workers.Full()) take(workers.Take());
      while (auto job = workers.TakeDone()) take(std::move(job));
    }
  }
  while (auto job = workers.Take()) take(std::move(job));
  return sound;
}

}  // namespace backup
