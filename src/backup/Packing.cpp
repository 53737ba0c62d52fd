#include "backup/Packing.h"

#include <algorithm>
#include <zlib.h>

namespace backup {

namespace {

// zlib's and every other ZIP program's default.
constexpr int kLevel = 6;
constexpr int kRawDeflate = -15;

Bytef* Bytes(std::byte* bytes) {
  return reinterpret_cast<Bytef*>(bytes);
}

std::uint32_t Crc(std::span<const std::byte> data) {
  return static_cast<std::uint32_t>(crc32_z(0, reinterpret_cast<const Bytef*>(data.data()), data.size()));
}

// Packs all of `raw` at once. False without memory.
bool DeflateAll(std::span<const std::byte> raw, int level, int flush, std::vector<std::byte>& packed) {
  z_stream stream{};
  if (deflateInit2(&stream, level, Z_DEFLATED, kRawDeflate, 8, Z_DEFAULT_STRATEGY) != Z_OK) return false;
  // Room for the end of the block that a flush writes as well.
  packed.resize(deflateBound(&stream, static_cast<uLong>(raw.size())) + 16);
  stream.next_in = Bytes(const_cast<std::byte*>(raw.data()));
  stream.avail_in = static_cast<uInt>(raw.size());
  stream.next_out = Bytes(packed.data());
  stream.avail_out = static_cast<uInt>(packed.size());
  int result = deflate(&stream, flush);
  bool done = flush == Z_FINISH ? result == Z_STREAM_END
                                : result == Z_OK && stream.avail_in == 0 && stream.avail_out > 0;
  packed.resize(packed.size() - stream.avail_out);
  deflateEnd(&stream);
  return done;
}

// Pictures, music and archives don't get smaller, and finding that out takes as long as packing text does. So
// a large piece is tried at three places first.
bool LooksPacked(std::span<const std::byte> raw) {
  constexpr std::size_t sample = 8 * 1024;
  if (raw.size() < 8 * sample) return false;
  std::vector<std::byte> packed;
  for (std::size_t at : {std::size_t{0}, raw.size() / 2, raw.size() - sample}) {
    if (!DeflateAll(raw.subspan(at, sample), 1, Z_FINISH, packed)) return false;
    if (packed.size() < sample - sample / 32) return false;
  }
  return true;
}

}  // namespace

PackJob::PackJob(std::vector<std::byte> content, bool isFirst, bool isLast)
    : raw(std::move(content)), first(isFirst), last(isLast) {}

void PackJob::Do() noexcept {
  try {
    crc = Crc(raw);
    Deflate();
    if (!first || !last) return;
    Sha256 sha;
    sha.Add(Content());
    digest = sha.Finish();
  } catch (...) {
    failed = true;
  }
}

void PackJob::Deflate() {
  bool single = first && last, looksPacked = LooksPacked(raw);
  if (raw.empty() || (single && looksPacked)) return;
  // A piece in the middle ends at a whole byte and begins without knowing what was before.
  if (!DeflateAll(raw, looksPacked ? 0 : kLevel, last ? Z_FINISH : Z_FULL_FLUSH, packed)) {
    failed = true;
    return;
  }
  deflated = !single || packed.size() < raw.size();
}

void UnpackJob::Do() noexcept {
  try {
    if (digested) {
      Sha256 sha;
      sha.Add(packed);
      digest = sha.Finish();
    }
    if (!piece.deflated) {
      sound = packed.size() == piece.size && Crc(packed) == piece.crc;
      if (sound && keep) raw = std::move(packed);
      return;
    }
    // One byte beyond, so that more than there may be is noticed.
    raw.resize(std::size_t{piece.size} + 1);
    z_stream stream{};
    if (inflateInit2(&stream, kRawDeflate) != Z_OK) return;
    stream.next_in = Bytes(packed.data());
    stream.avail_in = static_cast<uInt>(packed.size());
    stream.next_out = Bytes(raw.data());
    stream.avail_out = static_cast<uInt>(raw.size());
    int result = inflate(&stream, Z_SYNC_FLUSH);
    bool whole = (result == Z_STREAM_END || result == Z_OK) && stream.avail_in == 0 && stream.avail_out == 1;
    inflateEnd(&stream);
    raw.resize(piece.size);
    sound = whole && Crc(raw) == piece.crc;
  } catch (...) {
    sound = false;
  }
  if (!keep || !sound) std::vector<std::byte>().swap(raw);
}

}  // namespace backup
