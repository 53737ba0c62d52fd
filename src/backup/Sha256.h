// SHA-256 (FIPS 180-4), and HMAC (RFC 2104) with it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace backup {

class Sha256 {
 public:
  using Digest = std::array<std::uint8_t, 32>;

  Sha256() { Restart(); }
  void Add(std::span<const std::byte> data);
  void Add(std::string_view text) { Add(std::as_bytes(std::span(text))); }
  // The digest of all that was added; then it begins anew.
  Digest Finish();

 private:
  void Restart();
  void Block(const std::byte* block);

  std::array<std::uint32_t, 8> state_;
  std::array<std::byte, 64> pending_;
  std::uint64_t length_;
};

Sha256::Digest HmacSha256(std::string_view key, std::string_view text);

}  // namespace backup
