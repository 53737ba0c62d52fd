#include "backup/Sha256.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace backup {

namespace {

// The first 32 bits of the fractional parts of the cube roots of the first 64 primes.
constexpr std::array<std::uint32_t, 64> kRound = {
    0x428a2f98, 0x71374491, 0xb5c0fbcf, 0xe9b5dba5, 0x3956c25b, 0x59f111f1, 0x923f82a4, 0xab1c5ed5,
    0xd807aa98, 0x12835b01, 0x243185be, 0x550c7dc3, 0x72be5d74, 0x80deb1fe, 0x9bdc06a7, 0xc19bf174,
    0xe49b69c1, 0xefbe4786, 0x0fc19dc6, 0x240ca1cc, 0x2de92c6f, 0x4a7484aa, 0x5cb0a9dc, 0x76f988da,
    0x983e5152, 0xa831c66d, 0xb00327c8, 0xbf597fc7, 0xc6e00bf3, 0xd5a79147, 0x06ca6351, 0x14292967,
    0x27b70a85, 0x2e1b2138, 0x4d2c6dfc, 0x53380d13, 0x650a7354, 0x766a0abb, 0x81c2c92e, 0x92722c85,
    0xa2bfe8a1, 0xa81a664b, 0xc24b8b70, 0xc76c51a3, 0xd192e819, 0xd6990624, 0xf40e3585, 0x106aa070,
    0x19a4c116, 0x1e376c08, 0x2748774c, 0x34b0bcb5, 0x391c0cb3, 0x4ed8aa4a, 0x5b9cca4f, 0x682e6ff3,
    0x748f82ee, 0x78a5636f, 0x84c87814, 0x8cc70208, 0x90befffa, 0xa4506ceb, 0xbef9a3f7, 0xc67178f2};

std::uint32_t BigEndian(const std::byte* bytes) {
  return std::to_integer<std::uint32_t>(bytes[0]) << 24 | std::to_integer<std::uint32_t>(bytes[1]) << 16 |
         std::to_integer<std::uint32_t>(bytes[2]) << 8 | std::to_integer<std::uint32_t>(bytes[3]);
}

}  // namespace

void Sha256::Restart() {
  state_ = {0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a, 0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};
  length_ = 0;
}

void Sha256::Block(const std::byte* block) {
  std::array<std::uint32_t, 64> w;
  for (std::size_t i = 0; i < 16; ++i) w[i] = BigEndian(block + 4 * i);
  for (std::size_t i = 16; i < 64; ++i) {
    std::uint32_t a = w[i - 15], b = w[i - 2];
    w[i] = w[i - 16] + (std::rotr(a, 7) ^ std::rotr(a, 18) ^ a >> 3) + w[i - 7] +
           (std::rotr(b, 17) ^ std::rotr(b, 19) ^ b >> 10);
  }
  auto [a, b, c, d, e, f, g, h] = state_;
  for (std::size_t i = 0; i < 64; ++i) {
    std::uint32_t one =
        h + (std::rotr(e, 6) ^ std::rotr(e, 11) ^ std::rotr(e, 25)) + ((e & f) ^ (~e & g)) + kRound[i] + w[i];
    std::uint32_t two =
        (std::rotr(a, 2) ^ std::rotr(a, 13) ^ std::rotr(a, 22)) + ((a & b) ^ (a & c) ^ (b & c));
    h = g;
    g = f;
    f = e;
    e = d + one;
    d = c;
    c = b;
    b = a;
    a = one + two;
  }
  const std::uint32_t added[] = {a, b, c, d, e, f, g, h};
  for (std::size_t i = 0; i < 8; ++i) state_[i] += added[i];
}

void Sha256::Add(std::span<const std::byte> data) {
  std::size_t held = length_ % 64;
  length_ += data.size();
  while (!data.empty()) {
    if (held == 0 && data.size() >= 64) {
      Block(data.data());
      data = data.subspan(64);
      continue;
    }
    std::size_t size = std::min(data.size(), 64 - held);
    std::memcpy(pending_.data() + held, data.data(), size);
    data = data.subspan(size);
    held += size;
    if (held < 64) return;
    Block(pending_.data());
    held = 0;
  }
}

Sha256::Digest Sha256::Finish() {
  std::uint64_t bits = length_ * 8;
  std::array<std::byte, 72> end{std::byte{0x80}};
  // One bit, then zeros up to the last eight bytes of a block, which hold the length.
  std::size_t padding = 64 - (length_ + 8) % 64;
  for (std::size_t i = 0; i < 8; ++i) end[padding + i] = static_cast<std::byte>(bits >> (56 - 8 * i));
  Add(std::span(end).first(padding + 8));
  Digest digest;
  for (std::size_t i = 0; i < 32; ++i)
    digest[i] = static_cast<std::uint8_t>(state_[i / 4] >> (24 - i % 4 * 8));
  Restart();
  return digest;
}

Sha256::Digest HmacSha256(std::string_view key, std::string_view text) {
  std::array<std::byte, 64> inner{}, outer{};
  Sha256 sha;
  if (key.size() > inner.size()) {
    sha.Add(key);
    Sha256::Digest digest = sha.Finish();
    std::memcpy(inner.data(), digest.data(), digest.size());
  } else {
    std::memcpy(inner.data(), key.data(), key.size());
  }
  outer = inner;
  for (std::byte& byte : inner) byte ^= std::byte{0x36};
  for (std::byte& byte : outer) byte ^= std::byte{0x5c};
  sha.Add(inner);
  sha.Add(text);
  Sha256::Digest digest = sha.Finish();
  sha.Add(outer);
  sha.Add(std::as_bytes(std::span(digest)));
  return sha.Finish();
}

}  // namespace backup
