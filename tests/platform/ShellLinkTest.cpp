#include <gtest/gtest.h>

#include "platform/ShellLink.h"
#include "support/Shortcuts.h"
#include "support/TestComputer.h"

namespace platform {
namespace {

using test::MakeShortcut;
using test::ShortcutParts;

// Marks what came through the code page.
ShellLinkTarget Read(const std::string& bytes) {
  auto data = reinterpret_cast<const unsigned char*>(bytes.data());
  return ReadShellLink({data, bytes.size()}, [](std::string_view ansi) {
    return ansi.empty() ? std::string() : "ansi:" + std::string(ansi);
  });
}

std::string LocalPath(const ShortcutParts& parts) {
  return Read(MakeShortcut(parts)).localPath;
}

TEST(ShellLinkTest, TakesTheUnicodeFormBeforeTheCodePage) {
  EXPECT_EQ(LocalPath({.basePathAnsi = "C:\\a.txt"}), "ansi:C:\\a.txt");
  EXPECT_EQ(LocalPath({.basePathAnsi = "C:\\?.txt", .basePath = "C:\\\u03C9\U0001F600.txt"}),
            "C:\\\u03C9\U0001F600.txt");
  EXPECT_EQ(
      LocalPath({.basePathAnsi = "x", .basePath = "C:\\shared", .suffixAnsi = "x", .suffix = "sub\\b.txt"}),
      "C:\\shared\\sub\\b.txt");
  // A network name alone is no local path.
  ShortcutParts parts{.suffixAnsi = "sub\\file.txt", .networkName = "\\\\server\\share"};
  EXPECT_EQ(LocalPath(parts), "");
  parts.mapped = true;
  parts.basePathAnsi = "X:\\";
  EXPECT_EQ(LocalPath(parts), "ansi:X:\\ansi:sub\\file.txt");
  // Past everything that may stand before and behind.
  EXPECT_EQ(LocalPath({.idList = std::string("\x14\0\x1F\x50\xE0\x4F\xD0\x20", 8) + std::string(14, '\7'),
                       .basePathAnsi = "C:\\x",
                       .basePath = "C:\\x",
                       .name = "A description",
                       .workingFolder = "C:\\work",
                       .arguments = "/all",
                       .environment = "%windir%\\y"}),
            "C:\\x");
}

TEST(ShellLinkTest, TellsAPathWithVariables) {
  ShellLinkTarget target =
      Read(MakeShortcut(ShortcutParts{.linkInfo = false, .environment = "%windir%\\notepad.exe"}));
  EXPECT_EQ(target.localPath, "");
  EXPECT_EQ(target.environmentPath, "%windir%\\notepad.exe");
  target = Read(MakeShortcut(ShortcutParts{.linkInfo = false, .environmentAnsi = "%TEMP%\\a"}));
  EXPECT_EQ(target.environmentPath, "ansi:%TEMP%\\a");
  target = Read(MakeShortcut(ShortcutParts{.idList = std::string(20, '\1'), .linkInfo = false}));
  EXPECT_EQ(target.localPath + target.environmentPath, "") << "a shortcut to no file at all";
}

TEST(ShellLinkTest, KeepsAnUnpairedSurrogate) {
  std::string bytes = MakeShortcut(ShortcutParts{.basePathAnsi = "C:\\a", .basePath = "C:\\\u4142"});
  std::size_t unit = bytes.find("\x42\x41");
  ASSERT_NE(unit, std::string::npos);
  bytes[unit] = '\0';
  bytes[unit + 1] = '\xD8';
  EXPECT_EQ(Read(bytes).localPath, "C:\\\xED\xA0\x80");
}

TEST(ShellLinkTest, WhatIsNoShortcutGivesNothing) {
  std::string good = MakeShortcut("C:\\x.txt");
  ASSERT_EQ(Read(good).localPath, "C:\\x.txt");
  EXPECT_EQ(Read("").localPath, "");
  EXPECT_EQ(Read("[InternetShortcut]\r\nURL=https://example.org/\r\n").localPath, "");
  for (std::size_t i : {0u, 4u, 19u}) {
    std::string bad = good;
    bad[i] = static_cast<char>(bad[i] ^ 1);
    EXPECT_EQ(Read(bad).localPath, "") << "byte " << i;
  }
}

TEST(HostShortcutsTest, FindsTheTargetOfAFile) {
  test::TestComputer computer;
  auto target = [&](const std::string& bytes) {
    computer.WriteFile("C:\\Users\\User\\Desktop\\a.lnk", bytes);
    return computer.Machine().GetShortcuts().Target("C:\\users\\user\\desktop\\A.LNK");
  };
  auto withVariables = [&](const std::string& path) {
    return target(MakeShortcut(ShortcutParts{.linkInfo = false, .environment = path}));
  };
  EXPECT_EQ(target(MakeShortcut("C:\\Tëst\\a.txt")), "C:\\Tëst\\a.txt");
  EXPECT_EQ(target(MakeShortcut(ShortcutParts{.basePathAnsi = "C:\\caf\xE9 \x80"})), "C:\\café €");
  // What holds an unknown variable can't be judged.
  for (auto [path, found] :
       {std::pair{"%WinDir%\\notepad.exe", "C:\\Windows\\notepad.exe"},
        {"%SystemRoot%", "C:\\Windows"},
        {"%ProgramFiles%\\Tidorra\\Brasmir.exe", "C:\\Program Files\\Tidorra\\Brasmir.exe"},
        {"%USERPROFILE%\\100%.txt", "C:\\Users\\User\\100%.txt"},
        {"%SystemDrive%\\x%SystemDrive%", "C:\\xC:"},
        {"%UnheardOf%\\a.txt", ""}})
    EXPECT_EQ(withVariables(path), found) << path;
  EXPECT_EQ(target("no shortcut"), "");
  EXPECT_EQ(target(MakeShortcut("C:\\x") + std::string(2 * kLargestShellLink, '\0')), "");
  EXPECT_EQ(computer.Machine().GetShortcuts().Target("C:\\nowhere.lnk"), "");
}

}  // namespace
}  // namespace platform
