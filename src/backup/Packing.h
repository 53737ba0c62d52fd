// What the threads do to an archive's content: deflate it, and unpack it again. For the ZIP control alone.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "backup/Sha256.h"
#include "backup/Workers.h"

namespace backup {

// A file is packed in pieces of this many bytes, each by itself, so that a large one keeps all cores busy.
// Put together they are one stream of the format.
inline constexpr std::size_t kPiece = 4 * 1024 * 1024;

// Packs one piece of a file.
class PackJob : public Job {
 public:
  // `first` and `last` tell that the piece is the file's first or last one.
  PackJob(std::vector<std::byte> raw, bool first, bool last);
  void Do() noexcept override;
  std::size_t Weight() const override { return raw.size() + kOwnWeight; }

  std::vector<std::byte> raw;
  bool first, last;
  // The result. A file of a single piece that deflating doesn't make smaller stays as it is.
  bool failed = false;  // there was no memory
  bool deflated = false;
  std::vector<std::byte> packed;  // empty if it isn't deflated: then `raw` is what goes into the archive
  std::uint32_t crc = 0;          // of `raw`
  Sha256::Digest digest{};        // of what goes into the archive, for a file of a single piece

  std::span<const std::byte> Content() const { return deflated ? packed : raw; }

 private:
  static constexpr std::size_t kOwnWeight = 512;
  void Deflate();
};

// A piece of an archive's content, as it was written.
struct Piece {
  std::uint64_t offset = 0;  // in the archive
  std::uint32_t packedSize = 0, size = 0;
  std::uint32_t crc = 0;  // of what it unpacks to
  bool deflated = false;
};

// Unpacks a piece of a known size and compares its checksum.
class UnpackJob : public Job {
 public:
  UnpackJob(std::vector<std::byte> content, const Piece& expected)
      : packed(std::move(content)), piece(expected) {}
  void Do() noexcept override;
  std::size_t Weight() const override { return packed.size() + piece.size + kOwnWeight; }

  std::vector<std::byte> packed;
  Piece piece;
  // Whether the digest of the packed bytes is wanted.
  bool digested = false;
  // The result.
  bool sound = false;
  std::vector<std::byte> raw;  // kept only where `keep` is set
  bool keep = false;
  Sha256::Digest digest{};

 private:
  static constexpr std::size_t kOwnWeight = 512;
};

}  // namespace backup
