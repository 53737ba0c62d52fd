// Shortcut files (".lnk").
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileSystem.h"

namespace platform {

// What a shortcut file says of its target. Both are empty for a file that is no shortcut, whose structure is
// broken at any place, or that names no path.
struct ShellLinkTarget {
  // The target on a local drive, or on a mapped one, as the file holds it.
  std::string localPath;
  // The target with variables such as %windir%, from the environment block.
  std::string environmentPath;
};

// Reads the content of a shortcut file, by the format that its maker has published as the Shell Link Binary
// File Format: header, item id list (passed over), link info, string data, extra data. A Unicode form goes
// before its twin in the ANSI code page, which `fromAnsi` turns into UTF-8; an unpaired surrogate becomes its
// three bytes. A target that is known by a network name alone gives no path, and neither does one with a
// question mark, which stands for what a code page couldn't hold. Bytes may be anything; nothing outside of
// them is looked at.
ShellLinkTarget ReadShellLink(std::span<const unsigned char> bytes,
                              const std::function<std::string(std::string_view)>& fromAnsi);

// More than any shortcut holds; no more of a file than this is read.
constexpr std::size_t kLargestShellLink = 1024 * 1024;

// The bytes of the file at `path`, for ReadShellLink. None for one that can't be opened or read, and for one
// larger than kLargestShellLink; what a file loses meanwhile is missing at the end.
std::optional<std::vector<unsigned char>> ReadShellLinkFile(FileSystem& files, std::string_view path);

}  // namespace platform
