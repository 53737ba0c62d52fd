// What paths become before the system gets them. A wrong one would go through under Wine unnoticed.
#include "PlatformTest.h"
#include "platform/windows/WindowsLocale.h"
#include "platform/windows/WindowsPaths.h"
#include "platform/windows/WindowsText.h"

using namespace platform;

namespace test {

namespace {

WindowsPaths Paths(Locale& locale, std::wstring folder = {}) {
  return WindowsPaths(std::move(folder), locale, [] { return Strings(); });
}

}  // namespace

TEST(WindowsTextTest, EveryNameHasOneTextThatLeadsBackToIt) {
  const std::wstring names[] = {L"plain",
                                L"Stra\u00DFe \u20AC",
                                L"\xD83D\xDE00",
                                L"a\xD83D",
                                L"\xDE00\xD83D"
                                L"b",
                                L""};
  for (const std::wstring& name : names) EXPECT_EQ(ToWide(ToUtf8(name)), name);
  EXPECT_EQ(ToUtf8(L"\xD83D\xDE00"), "\U0001F600");
  EXPECT_EQ(ToUtf8(L"a\xD83D"), "a\xED\xA0\xBD");
  for (const char* none : {"\xFF", "caf\xE9", "\xC0\x80", "\xE0\x80\x80", "\xF4\x90\x80\x80", "\xE2\x82",
                           "\x80", "\xED\xA0\xBD\xED\xB8\x80"})
    EXPECT_EQ(ToWide(none), std::nullopt) << none;
}

TEST(WindowsPathsTest, TheSystemGetsPathsThatItTakesAsTheyStand) {
  WindowsLocale locale;
  WindowsPaths paths = Paths(locale);
  std::wstring native;
  EXPECT_EQ(paths.Native("C:\\", native), Status::Done);
  EXPECT_EQ(native, L"\\\\?\\C:\\");
  EXPECT_EQ(paths.Native("c:\\a. \\" + std::string(300, 'x'), native), Status::Done);
  EXPECT_EQ(native, L"\\\\?\\C:\\a. \\" + std::wstring(300, L'x'));
  for (const char* path :
       {"", "a", "C:", "C:a", "C:\\a\\", "C:\\a\\\\b", "C:\\..\\a", "C:\\.", "C:/a", "C:\\a/b",
        "\\\\?\\C:\\a", "\\\\server\\share\\a", "C:\\a:stream", "C:\\a\\b::$DATA"})
    EXPECT_EQ(paths.Native(path, native), Status::Refused) << path;
  // What a search would take for other names as well.
  for (const char* path :
       {"C:\\*", "C:\\a?", "C:\\<a", "C:\\a>", "C:\\\"", "C:\\a|b", "C:\\\x1F", "C:\\caf\xE9"})
    EXPECT_EQ(paths.Native(path, native), Status::Missing) << path;
  EXPECT_EQ(paths.FromNative(L"C:\\a\\b"), "C:\\a\\b");
  EXPECT_EQ(paths.FromNative(L"\\\\server\\share"), "");
}

TEST(WindowsPathsTest, AStageHasNoWayOut) {
  WindowsLocale locale;
  WindowsPaths paths = Paths(locale, L"C:\\test\\drives");
  std::wstring native;
  EXPECT_EQ(paths.Native("D:\\a", native), Status::Done);
  EXPECT_EQ(native, L"\\\\?\\C:\\test\\drives\\d\\a");
  EXPECT_EQ(paths.FromNative(native), "D:\\a");
  EXPECT_EQ(paths.FromNative(L"c:\\TEST\\drives\\d"), "D:\\");
  EXPECT_EQ(paths.FromNative(L"C:\\test\\drives"), "");
  EXPECT_EQ(paths.FromNative(L"C:\\other\\drives\\d\\a"), "");
}

TEST(WindowsPathsTest, TheShellGetsNoNameThatItWouldChange) {
  WindowsLocale locale;
  WindowsPaths paths = Paths(locale);
  EXPECT_EQ(paths.ForShell("c:\\a\\b.txt"), L"C:\\a\\b.txt");
  for (const std::string path : {"C:\\a\\b.", "C:\\a \\b", "C:\\a*", "C:\\a\\..\\b"})
    EXPECT_EQ(paths.ForShell(path), L"") << path;
  EXPECT_EQ(paths.ForShell("C:\\" + std::string(300, 'x')), L"");
}

TEST(WindowsPathsTest, EveryUnknownReparsePointIsALink) {
  for (std::uint32_t link :
       {0u, 0xA0000003u, 0xA000000Cu, 0xA000001Du, 0x8000001Bu, 0x80000023u, 0x12345678u})
    EXPECT_TRUE(WindowsPaths::IsLinkTag(link)) << std::hex << link;
  // Compressed, deduplicated, in a cloud.
  for (std::uint32_t file : {0x80000017u, 0x80000013u, 0x9000001Au, 0x9000101Au, 0x9000F01Au, 0x80000021u})
    EXPECT_FALSE(WindowsPaths::IsLinkTag(file)) << std::hex << file;
  EXPECT_EQ(WindowsPaths::KindOf(0x410, 0), EntryKind::FolderLink);
  EXPECT_EQ(WindowsPaths::KindOf(0x420, 0xA000000C), EntryKind::FileLink);
  EXPECT_EQ(WindowsPaths::KindOf(0x410, 0x9000601A), EntryKind::Folder);
  EXPECT_EQ(WindowsPaths::KindOf(0x420, 0x80000017), EntryKind::File);
}

}  // namespace test
