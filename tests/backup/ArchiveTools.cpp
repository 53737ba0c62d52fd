#include "backup/ArchiveTools.h"

#include <string_view>

namespace test {

namespace {

std::uint32_t Crc(std::string_view text) {
  std::uint32_t crc = 0xFFFFFFFFu;
  for (unsigned char c : text) {
    crc ^= c;
    for (int bit = 0; bit < 8; ++bit) crc = crc & 1 ? crc >> 1 ^ 0xEDB88320u : crc >> 1;
  }
  return ~crc;
}

void Put(std::string& out, std::uint64_t value, int bytes) {
  for (int i = 0; i < bytes; ++i) out += static_cast<char>(value >> 8 * i);
}

}  // namespace

std::string MakeZip(const std::vector<RawEntry>& entries) {
  constexpr std::uint32_t kDate = 0x5B6E7000;  // some day in 2025, 14:00
  std::string zip, directory;
  std::vector<std::size_t> offsets;
  auto common = [&](std::string& out, const RawEntry& entry, const std::string& content) {
    Put(out, 20, 2);
    Put(out, entry.flags, 2);
    Put(out, entry.method, 2);
    Put(out, kDate, 4);
    Put(out, Crc(content), 4);
    Put(out, content.size(), 4);
    Put(out, entry.declaredSize < 0 ? content.size() : static_cast<std::uint64_t>(entry.declaredSize), 4);
    Put(out, entry.name.size(), 2);
    Put(out, 0, 2);
  };
  for (const RawEntry& entry : entries) {
    bool shares = entry.sharedWith >= 0;
    auto original = static_cast<std::size_t>(entry.sharedWith);
    const std::string& content = shares ? entries[original].content : entry.content;
    offsets.push_back(shares ? offsets[original] : zip.size());
    if (!shares) {
      zip += "PK\3\4";
      common(zip, entry, content);
      zip += entry.name + content;
    }
    directory += "PK\1\2";
    Put(directory, static_cast<std::uint64_t>(20 | entry.system << 8), 2);
    common(directory, entry, content);
    Put(directory, 0, 2);
    Put(directory, 0, 4);
    Put(directory, entry.attributes, 4);
    Put(directory, offsets.back(), 4);
    directory += entry.name;
  }
  std::size_t start = zip.size();
  zip += directory;
  zip += "PK\5\6";
  Put(zip, 0, 4);
  Put(zip, entries.size(), 2);
  Put(zip, entries.size(), 2);
  Put(zip, directory.size(), 4);
  Put(zip, start, 4);
  Put(zip, 0, 2);
  return zip;
}

}  // namespace test
