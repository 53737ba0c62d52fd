#include "platform/ShellLink.h"

#include <algorithm>
#include <cstdint>
#include <optional>

#include "platform/Utf.h"

namespace platform {

namespace {

constexpr std::size_t kHeaderSize = 0x4C;
constexpr unsigned char kClassId[16] = {0x01, 0x14, 0x02, 0, 0, 0, 0, 0, 0xC0, 0, 0, 0, 0, 0, 0, 0x46};

// Link flags.
constexpr std::uint32_t kHasIdList = 1, kHasLinkInfo = 2, kFirstString = 4, kLastString = 64,
                        kIsUnicode = 128, kForceNoLinkInfo = 256;

// Link info.
constexpr std::uint32_t kHasLocalPath = 1;
constexpr std::size_t kSmallLinkInfoHeader = 0x1C, kWideLinkInfoHeader = 0x24;

// Extra data.
constexpr std::uint32_t kEnvironmentSize = 0x314, kEnvironmentSignature = 0xA0000001;
constexpr std::size_t kAnsiField = 260, kWideField = 520;

// A piece of the file. Reading beyond its end breaks it, and everything that it gives from then on is empty.
class Bytes {
 public:
  explicit Bytes(std::span<const unsigned char> bytes) : bytes_(bytes) {}

  bool Broken() const { return broken_; }
  std::size_t Left() const { return bytes_.size() - position_; }

  std::uint32_t Take16() { return TakeNumber(2); }
  std::uint32_t Take32() { return TakeNumber(4); }
  Bytes Take(std::size_t count) {
    if (broken_ || count > Left()) {
      broken_ = true;
      return Bytes({});
    }
    position_ += count;
    return Bytes(bytes_.subspan(position_ - count, count));
  }
  // What lies from `offset` of the whole piece to its end.
  Bytes From(std::size_t offset) {
    if (broken_ || offset > bytes_.size()) {
      broken_ = true;
      return Bytes({});
    }
    return Bytes(bytes_.subspan(offset));
  }
  std::span<const unsigned char> All() const { return bytes_; }

  // The text up to its zero; empty if none comes.
  std::optional<std::string> AnsiText(const std::function<std::string(std::string_view)>& fromAnsi) const {
    auto end = std::find(bytes_.begin(), bytes_.end(), 0);
    if (end == bytes_.end()) return std::nullopt;
    return fromAnsi(
        {reinterpret_cast<const char*>(bytes_.data()), static_cast<std::size_t>(end - bytes_.begin())});
  }
  std::optional<std::string> WideText() const {
    std::u16string units;
    for (std::size_t i = 0; i + 1 < bytes_.size(); i += 2) {
      auto unit = static_cast<char16_t>(bytes_[i] | bytes_[i + 1] << 8);
      if (unit == 0) return ToUtf8(std::u16string_view(units));
      units += unit;
    }
    return std::nullopt;
  }

 private:
  std::uint32_t TakeNumber(std::size_t size) {
    if (broken_ || size > Left()) {
      broken_ = true;
      return 0;
    }
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < size; ++i)
      number |= static_cast<std::uint32_t>(bytes_[position_ + i]) << 8 * i;
    position_ += size;
    return number;
  }

  std::span<const unsigned char> bytes_;
  std::size_t position_ = 0;
  bool broken_ = false;
};

class Reader {
 public:
  Reader(std::span<const unsigned char> bytes, const std::function<std::string(std::string_view)>& fromAnsi)
      : file_(bytes), fromAnsi_(fromAnsi) {}

  // Empty if the structure is broken.
  std::optional<ShellLinkTarget> Read() {
    ShellLinkTarget target;
    if (!ReadHeader()) return std::nullopt;
    if (flags_ & kHasIdList) file_.Take(file_.Take16());
    if ((flags_ & kHasLinkInfo) && !ReadLinkInfo(target.localPath)) return std::nullopt;
    if (flags_ & kForceNoLinkInfo) target.localPath.clear();
    for (std::uint32_t text = kFirstString; text <= kLastString; text <<= 1)
      if (flags_ & text) file_.Take(std::size_t{file_.Take16()} * (flags_ & kIsUnicode ? 2 : 1));
    if (file_.Broken() || !ReadExtraData(target.environmentPath)) return std::nullopt;
    return target;
  }

 private:
  bool ReadHeader() {
    if (file_.Take32() != kHeaderSize) return false;
    Bytes classId = file_.Take(sizeof kClassId);
    flags_ = file_.Take32();
    file_.Take(kHeaderSize - 4 - sizeof kClassId - 4);
    return !file_.Broken() && std::ranges::equal(classId.All(), kClassId);
  }

  bool ReadLinkInfo(std::string& path) {
    Bytes start = file_;
    std::uint32_t size = start.Take32();
    if (file_.Broken() || start.Broken() || size < kSmallLinkInfoHeader) return false;
    Bytes info = file_.Take(size);
    Bytes fields = info;
    fields.Take32();
    std::uint32_t headerSize = fields.Take32();
    std::uint32_t infoFlags = fields.Take32();
    fields.Take32();  // volume
    std::uint32_t base = fields.Take32();
    fields.Take32();  // network name
    std::uint32_t suffix = fields.Take32();
    std::uint32_t baseWide = 0, suffixWide = 0;
    if (headerSize < kSmallLinkInfoHeader || headerSize > size) return false;
    if (headerSize >= kWideLinkInfoHeader) {
      baseWide = fields.Take32();
      suffixWide = fields.Take32();
    }
    if (fields.Broken()) return false;
    if (!(infoFlags & kHasLocalPath)) return true;

    auto front = ReadText(info, base, baseWide), back = ReadText(info, suffix, suffixWide);
    if (!front || !back) return false;
    path = *front;
    if (!back->empty()) {
      if (!path.empty() && path.back() != '\\') path += '\\';
      path += *back;
    }
    DropIfCrippled(path);
    return true;
  }

  // A writer whose code page doesn't hold a character puts a question mark, which no name has: such a path
  // leads nowhere, whatever the shortcut leads to.
  static void DropIfCrippled(std::string& path) {
    if (path.find('?') != std::string::npos) path.clear();
  }

  // The text at one of the two places; empty text where neither is told.
  std::optional<std::string> ReadText(Bytes& info, std::uint32_t ansi, std::uint32_t wide) {
    if (wide != 0) {
      auto text = info.From(wide).WideText();
      if (!text || !text->empty()) return text;
    }
    return ansi != 0 ? info.From(ansi).AnsiText(fromAnsi_) : std::string();
  }

  bool ReadExtraData(std::string& path) {
    // Some writers leave the closing block out.
    while (file_.Left() > 0) {
      std::uint32_t size = file_.Take32();
      if (file_.Broken()) return false;
      if (size < 4) return true;
      if (size < 8) return false;
      Bytes block = file_.Take(size - 4);
      if (file_.Broken()) return false;
      if (block.Take32() != kEnvironmentSignature) continue;
      if (size != kEnvironmentSize) return false;
      auto ansi = block.Take(kAnsiField).AnsiText(fromAnsi_);
      auto wide = block.Take(kWideField).WideText();
      if (wide && !wide->empty())
        path = *wide;
      else if (ansi)
        path = *ansi;
      else
        return false;
      DropIfCrippled(path);
    }
    return true;
  }

  Bytes file_;
  const std::function<std::string(std::string_view)>& fromAnsi_;
  std::uint32_t flags_ = 0;
};

}  // namespace

ShellLinkTarget ReadShellLink(std::span<const unsigned char> bytes,
                              const std::function<std::string(std::string_view)>& fromAnsi) {
  return Reader(bytes, fromAnsi).Read().value_or(ShellLinkTarget());
}

std::optional<std::vector<unsigned char>> ReadShellLinkFile(FileSystem& files, std::string_view path) {
  Status status;
  auto file = files.Open(path, OpenMode::Read, status);
  if (!file) return std::nullopt;
  std::uint64_t size = file->Size();
  if (size > kLargestShellLink) return std::nullopt;
  std::vector<unsigned char> bytes(static_cast<std::size_t>(size));
  std::size_t filled = 0;
  while (filled < bytes.size()) {
    auto read = file->Read(filled, std::as_writable_bytes(std::span(bytes).subspan(filled)));
    if (!read) return std::nullopt;
    if (*read == 0) break;
    filled += *read;
  }
  bytes.resize(filled);
  return bytes;
}

}  // namespace platform
