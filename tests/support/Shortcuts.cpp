#include "support/Shortcuts.h"

namespace test {

namespace {

constexpr std::uint32_t kIdList = 1, kLinkInfo = 2, kName = 4, kWorkingFolder = 16, kArguments = 32,
                        kUnicode = 128, kEnvironment = 512;

void Add16(std::string& bytes, std::size_t number) {
  bytes += static_cast<char>(number & 0xFF);
  bytes += static_cast<char>(number >> 8 & 0xFF);
}

void Add32(std::string& bytes, std::size_t number) {
  Add16(bytes, number & 0xFFFF);
  Add16(bytes, number >> 16);
}

// Valid UTF-8 into UTF-16, little end first.
std::string Utf16(std::string_view text) {
  std::string bytes;
  for (std::size_t i = 0; i < text.size();) {
    auto lead = static_cast<unsigned char>(text[i]);
    int more = lead < 0x80 ? 0 : lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
    std::uint32_t character = more == 0 ? lead : lead & (0x3F >> more);
    for (int k = 1; k <= more; ++k)
      character = character << 6 | (static_cast<unsigned char>(text[i + static_cast<std::size_t>(k)]) & 0x3F);
    i += static_cast<std::size_t>(more) + 1;
    if (character >= 0x10000) {
      character -= 0x10000;
      Add16(bytes, 0xD800 + (character >> 10));
      character = 0xDC00 + (character & 0x3FF);
    }
    Add16(bytes, character);
  }
  return bytes;
}

void AddText(std::string& bytes, std::string_view text) {
  std::string wide = Utf16(text);
  Add16(bytes, wide.size() / 2);
  bytes += wide;
}

std::string MakeLinkInfo(const ShortcutParts& parts) {
  bool network = !parts.networkName.empty();
  bool local = !network || parts.mapped;
  bool wide = !parts.basePath.empty() || !parts.suffix.empty();
  std::size_t headerSize = wide ? 0x24 : 0x1C;

  std::string body;
  auto here = [&] { return headerSize + body.size(); };
  std::size_t volume = 0, base = 0, net = 0, suffix = 0, baseWide = 0, suffixWide = 0;
  if (local) {
    volume = here();
    Add32(body, 0x11);
    Add32(body, 3);
    Add32(body, 0x12345678);
    Add32(body, 0x10);
    body += '\0';
    base = here();
    body += parts.basePathAnsi + '\0';
  }
  if (network) {
    net = here();
    Add32(body, 0x14 + parts.networkName.size() + 1);
    Add32(body, 0);
    Add32(body, 0x14);
    Add32(body, 0);
    Add32(body, 0);
    body += parts.networkName + '\0';
  }
  suffix = here();
  body += parts.suffixAnsi + '\0';
  if (wide) {
    if (local) {
      baseWide = here();
      body += Utf16(parts.basePath) + std::string(2, '\0');
    }
    suffixWide = here();
    body += Utf16(parts.suffix) + std::string(2, '\0');
  }

  std::string info;
  Add32(info, headerSize + body.size());
  Add32(info, headerSize);
  Add32(info, (local ? 1u : 0u) | (network ? 2u : 0u));
  Add32(info, volume);
  Add32(info, base);
  Add32(info, net);
  Add32(info, suffix);
  if (wide) {
    Add32(info, baseWide);
    Add32(info, suffixWide);
  }
  return info + body;
}

}  // namespace

std::string MakeShortcut(const ShortcutParts& parts) {
  std::string bytes;
  Add32(bytes, 0x4C);
  bytes += std::string("\x01\x14\x02\0\0\0\0\0\xC0\0\0\0\0\0\0\x46", 16);
  std::uint32_t flags = kUnicode;
  if (!parts.idList.empty()) flags |= kIdList;
  if (parts.linkInfo) flags |= kLinkInfo;
  if (!parts.name.empty()) flags |= kName;
  if (!parts.workingFolder.empty()) flags |= kWorkingFolder;
  if (!parts.arguments.empty()) flags |= kArguments;
  if (!parts.environment.empty() || !parts.environmentAnsi.empty()) flags |= kEnvironment;
  Add32(bytes, flags);
  bytes.resize(0x4C, '\0');

  if (!parts.idList.empty()) {
    Add16(bytes, parts.idList.size());
    bytes += parts.idList;
  }
  if (parts.linkInfo) bytes += MakeLinkInfo(parts);
  if (!parts.name.empty()) AddText(bytes, parts.name);
  if (!parts.workingFolder.empty()) AddText(bytes, parts.workingFolder);
  if (!parts.arguments.empty()) AddText(bytes, parts.arguments);
  if (flags & kEnvironment) {
    Add32(bytes, 0x314);
    Add32(bytes, 0xA0000001);
    std::string ansi = parts.environmentAnsi, wide = Utf16(parts.environment);
    ansi.resize(260, '\0');
    wide.resize(520, '\0');
    bytes += ansi + wide;
  }
  Add32(bytes, 0);
  return bytes;
}

std::string MakeShortcut(std::string_view target) {
  ShortcutParts parts;
  parts.basePath = target;
  for (char c : target) parts.basePathAnsi += static_cast<unsigned char>(c) < 0x80 ? c : '?';
  parts.workingFolder = "C:\\";
  return MakeShortcut(parts);
}

}  // namespace test
