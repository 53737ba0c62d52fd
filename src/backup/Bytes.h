// Little-endian numbers in bytes. For the ZIP control alone.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace backup {

// Appends the lowest `size` bytes of a number.
inline void Put(std::string& bytes, std::uint64_t value, int size) {
  for (int i = 0; i < size; ++i) bytes += static_cast<char>(value >> 8 * i);
}

template <class Bytes>
void PutAt(Bytes& bytes, std::size_t offset, std::uint64_t value, int size) {
  for (int i = 0; i < size; ++i)
    bytes[offset + static_cast<std::size_t>(i)] =
        static_cast<typename Bytes::value_type>(static_cast<std::uint8_t>(value >> 8 * i));
}

// The number of `size` bytes at `offset`; these bytes must be there.
inline std::uint64_t Get(std::string_view bytes, std::size_t offset, int size) {
  std::uint64_t value = 0;
  for (int i = 0; i < size; ++i)
    value |= std::uint64_t{static_cast<unsigned char>(bytes[offset + static_cast<std::size_t>(i)])} << 8 * i;
  return value;
}

// The bytes of a container of bytes as a text.
template <class Bytes>
std::string_view AsText(const Bytes& bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

}  // namespace backup
