// Shortcut files that anybody may have written: read without a fault, and what is read is a text.
#include "fuzz/Fuzz.h"
#include "platform/ShellLink.h"
#include "support/Shortcuts.h"

namespace fuzz {

void Try(std::span<const std::uint8_t> bytes) {
  platform::ShellLinkTarget target =
      platform::ReadShellLink(bytes, [](std::string_view ansi) { return std::string(ansi); });
  for (const std::string* path : {&target.localPath, &target.environmentPath}) {
    // Two bytes of the file become three of UTF-8 at the most.
    if (path->size() > 2 * bytes.size()) Fail("more text than the file holds");
    if (path->find('\0') != std::string::npos) Fail("a path with a zero character");
  }
}

std::vector<std::string> Seeds() {
  return {
      test::MakeShortcut("C:\\Program Files\\Old Viewer\\oldview.exe"),
      test::MakeShortcut("D:\\r\xC3\xA9sum\xC3\xA9.txt"),
      test::MakeShortcut({.idList = std::string(20, 'i'), .basePathAnsi = "C:\\a", .suffixAnsi = "b.txt"}),
      test::MakeShortcut(
          {.networkName = "\\\\server\\share", .mapped = true, .name = "name", .arguments = "-x"}),
      test::MakeShortcut(
          {.linkInfo = false, .environmentAnsi = "%windir%\\a.exe", .environment = "%windir%\\a.exe"})};
}

}  // namespace fuzz
