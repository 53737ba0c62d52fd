// The parts of the Windows backend that a stage doesn't show: the bin, the computer's own folders, drives,
// registry, programs and regional settings.
#include <algorithm>
#include <thread>
#include <windows.h>

#include "PlatformTest.h"
#include "platform/LibDirectory.h"
#include "platform/LibFile.h"
#include "platform/LibShell.h"
#include "platform/windows/WindowsLibraries.h"
#include "platform/windows/WindowsLocale.h"
#include "platform/windows/WindowsRegistry.h"
#include "platform/windows/WindowsText.h"

using namespace platform;

namespace test {

namespace {

// A copy of this program, started with the variable, stays until it is ended, or until its window is closed.
constexpr const wchar_t* kStay = L"BRASMIR_TEST_STAY";

LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM word, LPARAM data) {
  if (message == WM_CLOSE) ExitProcess(0);
  return DefWindowProcW(window, message, word, data);
}

struct Staying {
  Staying() {
    wchar_t how[10];
    if (GetEnvironmentVariableW(kStay, how, 10) == 0) return;
    if (std::wstring_view(how) == L"window") {
      WNDCLASSW design{};
      design.lpfnWndProc = OnMessage;
      design.lpszClassName = L"BrasmirTest";
      RegisterClassW(&design);
      CreateWindowExW(0, design.lpszClassName, L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
      for (MSG message; GetMessageW(&message, nullptr, 0, 0) > 0;) DispatchMessageW(&message);
    }
    Sleep(600'000);
    ExitProcess(1);
  }
} staying;

}  // namespace

class WindowsMachineTest : public PlatformTest {
 protected:
  // The computer itself, which the stage's own check has found to be closed.
  WindowsMachine real;
};

TEST_F(WindowsMachineTest, FilesGoToTheBinAndCanBeEmptied) {
  computer.WriteFile("C:\\T\\a.txt");
  computer.WriteFile("C:\\T\\Grüße \u65E5.txt");
  computer.SetAttributes("C:\\T\\a.txt", 33);
  computer.WriteFile("C:\\T\\held.txt");
  computer.WriteFile("C:\\T\\dot.", "odd");
  computer.MakeFolder("C:\\T\\folder");
  EXPECT_EQ(LibFile().MoveToRecycleBin("C:\\T\\a.txt"), 0);
  EXPECT_EQ(LibFile().MoveToRecycleBin("c:\\t\\grüße \u65E5.TXT"), 0);
  EXPECT_EQ(computer.InBin(), 2);
  {
    LockHolder holder(computer.Native("C:\\T\\held.txt"), LockKind::Flock);
    EXPECT_NE(LibFile().MoveToRecycleBin("C:\\T\\held.txt"), 0);
  }
  for (const char* none : {"C:\\T\\folder", "C:\\T\\none", "C:\\T\\dot.", "C:\\T\\dot", ""})
    EXPECT_NE(LibFile().MoveToRecycleBin(none), 0) << none;
  EXPECT_EQ(computer.InBin(), 2);
  EXPECT_EQ(computer.List("C:\\T"), (Strings{"dot.", "folder", "held.txt"}));
  EXPECT_EQ(LibShell().EmptyRecycleBin(), 0);
  EXPECT_EQ(LibShell().EmptyRecycleBin(), 0) << "an empty one is no failure";
  EXPECT_LE(computer.InBin(), 0);
}

// Wine opens a link as what it stands for, and its own calls would remove that.
TEST_F(WindowsMachineTest, WhatALinkStandsForIsNeverRemoved) {
  computer.WriteFile("C:\\Outside\\kept.txt", "kept");
  computer.MakeFolder("C:\\Empty");
  computer.MakeLink("C:\\T\\file", "C:\\Outside\\kept.txt");
  computer.MakeLink("C:\\T\\empty", "C:\\Empty");
  computer.MakeLink("C:\\T\\folder", "C:\\Outside");
  FileSystem& files = computer.Files();
  for (const char* link : {"C:\\T\\file", "C:\\T\\empty", "C:\\T\\folder"}) {
    files.RemoveFile(link);
    files.RemoveFolder(link);
    files.SetAttributes(link, kReadOnly);
    Status status;
    EXPECT_FALSE(files.Open(link, OpenMode::CreateOrEmpty, status));
    LibFile().MoveToRecycleBin(link);
    LibDirectory().RemoveTree(link);
  }
  LibDirectory().RemoveTree("C:\\T");
  EXPECT_EQ(computer.ReadFile("C:\\Outside\\kept.txt"), "kept");
  EXPECT_EQ(computer.GetAttributes("C:\\Outside\\kept.txt"), 32u);
  EXPECT_TRUE(computer.Exists("C:\\Empty"));
}

TEST_F(WindowsMachineTest, TheComputersOwnFoldersAreFound) {
  Strings all;
  for (int i = 0; i <= static_cast<int>(KnownFolder::CommonDesktop); ++i) {
    std::string folder = real.Folder(static_cast<KnownFolder>(i));
    EXPECT_EQ(real.Files().Look(folder).kind, EntryKind::Folder) << i;
    EXPECT_FALSE(folder.ends_with('\\'));
    all.push_back(folder);
  }
  EXPECT_EQ(real.GetLocale().Fold(real.Folder(KnownFolder::Windows)), "c:\\windows");
  std::sort(all.begin(), all.end());
  EXPECT_EQ(std::unique(all.begin(), all.end()), all.end() - 1) << "Windows and System are one";
}

TEST_F(WindowsMachineTest, TheComputersOwnDrivesAndItsClock) {
  auto drives = real.GetDrives().List();
  ASSERT_EQ(drives.size(), 1u);
  EXPECT_EQ(drives[0].letter, 'C');
  EXPECT_EQ(drives[0].kind, DriveKind::Fixed);
  auto info = real.GetDrives().Info("C:\\");
  ASSERT_TRUE(info);
  EXPECT_GT(info->total, 0);
  EXPECT_EQ(info->used + info->free, info->total);
  EXPECT_GT(info->clusterSize, 0);
  EXPECT_NE(info->fileSystem, "");
  EXPECT_FALSE(real.GetDrives().Info("Q:\\"));
  EXPECT_GT(real.GetClock().Now().year, 2020);
  constexpr Moment kSecond = 1'000'000'000;
  EXPECT_EQ(real.GetClock().ToLocal(1709251199 * kSecond + 999'999'999), (DateTime{2024, 2, 29, 23, 59, 59}));
  EXPECT_EQ(real.GetClock().ToLocal(-1), (DateTime{1969, 12, 31, 23, 59, 59}));
  EXPECT_TRUE(real.GetPower().IsNT());
}

TEST_F(WindowsMachineTest, TheRegistryItself) {
  WindowsRegistry registry;
  const char* key = "Software\\BrasmirTest\\Täst\\Deep";
  EXPECT_EQ(registry.Write(kCurrentUser, key, "Name ", {ValueType::String, "Straße \u20AC", 0}), 0);
  EXPECT_EQ(registry.Write(kCurrentUser, key, "", {ValueType::DWord, {}, 0xFFFFFFFFu}), 0);
  HKEY open;
  ASSERT_EQ(
      RegOpenKeyExW(HKEY_CURRENT_USER, L"software\\brasmirtest\\t\u00E4st\\DEEP", 0, KEY_ALL_ACCESS, &open),
      0);
  wchar_t text[50];
  DWORD type, size = sizeof text;
  ASSERT_EQ(RegQueryValueExW(open, L"name ", nullptr, &type, reinterpret_cast<BYTE*>(text), &size), 0);
  EXPECT_EQ(type, DWORD{REG_SZ});
  EXPECT_STREQ(text, L"Stra\u00DFe \u20AC");
  const wchar_t expand[] = L"%windir%\\x", many[] = L"a\0b\0";
  RegSetValueExW(open, L"expand", 0, REG_EXPAND_SZ, reinterpret_cast<const BYTE*>(expand), sizeof expand);
  RegSetValueExW(open, L"many", 0, REG_MULTI_SZ, reinterpret_cast<const BYTE*>(many), sizeof many);
  RegSetValueExW(open, L"unended", 0, REG_SZ, reinterpret_cast<const BYTE*>(L"abc"), 6);
  RegCloseKey(open);
  EXPECT_EQ(registry.Read(kCurrentUser, key, "").number, 0xFFFFFFFFu);
  EXPECT_EQ(registry.Read(kCurrentUser, key, "expand").type, ValueType::Other);
  for (auto [name, shown] : {std::pair{"expand", "C:\\Windows\\x"}, {"many", "a b"}, {"unended", "abc"}})
    EXPECT_EQ(registry.Read(kCurrentUser, key, name).text, shown) << name;
  EXPECT_EQ(
      registry.Read(kLocalMachine, "Software\\Microsoft\\Windows NT\\CurrentVersion", "CurrentVersion").type,
      ValueType::String);
  for (std::uint32_t root : {kClassesRoot, kUsers, kCurrentConfig})
    EXPECT_TRUE(registry.KeyExists(root, "")) << root;

  for (std::uint32_t root : {kPerformanceData, kDynData})
    EXPECT_EQ(registry.Read(root, "Software\\BrasmirTest", "x").type, ValueType::Absent) << root;
  std::string tooLong = "Software\\" + std::string(300, 'k');
  EXPECT_EQ(registry.Read(kCurrentUser, tooLong, "x").type, ValueType::Absent);
  EXPECT_NE(registry.Write(kCurrentUser, tooLong, "x", {ValueType::String, "x", 0}), 0);

  std::string longText(100'000, 'x');
  EXPECT_EQ(registry.Write(kCurrentUser, key, "long", {ValueType::String, longText, 0}), 0);
  EXPECT_EQ(registry.Read(kCurrentUser, key, "long").text, longText);
  for (const char* bad : {"\\a", "a\\", "a\\\\b"}) {
    EXPECT_NE(registry.Write(kCurrentUser, bad, "x", {ValueType::String, "x", 0}), 0) << bad;
    EXPECT_EQ(registry.Read(kCurrentUser, bad, "x").type, ValueType::Absent) << bad;
  }
  EXPECT_NE(registry.Write(kCurrentUser, key, "x", {ValueType::String, std::string("a\0b", 3), 0}), 0);
  EXPECT_NE(registry.Write(0x80000007u, key, "x", {ValueType::String, "x", 0}), 0);
  EXPECT_NE(registry.RemoveKey(kCurrentUser, ""), 0);
  EXPECT_EQ(registry.RemoveKey(kCurrentUser, "Software\\BrasmirTest\\Täst"), 0);
  EXPECT_FALSE(registry.KeyExists(kCurrentUser, key));
  EXPECT_EQ(registry.RemoveKey(kCurrentUser, "Software\\BrasmirTest\\Täst"), 0);
}

TEST_F(WindowsMachineTest, ProgramsAreStartedFoundAndEnded) {
  const std::string install = TestComputer::InstallDirectory();
  auto copy = [&](const std::string& path) {
    wchar_t self[MAX_PATH];
    GetModuleFileNameW(nullptr, self, MAX_PATH);
    ASSERT_TRUE(CopyFileW(self, ToWide(computer.Native(path)).value().c_str(), FALSE));
  };
  // Gone once its file can be removed.
  auto ends = [](const std::string& path) {
    for (int i = 0; i < 3000; ++i) {
      if (LibFile().Delete(path) == 1) return true;
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return false;
  };
  copy(install + "Chronel.exe");
  copy("C:\\Chronel.exe");
  Processes& programs = computer.Machine().GetProcesses();
  EXPECT_FALSE(programs.Start(install + "None.exe"));
  EXPECT_EQ(programs.CloseByName("Chronel", install), 0);
  SetEnvironmentVariableW(kStay, L"plain");
  ASSERT_TRUE(programs.Start(install + "chronel.EXE"));
  SetEnvironmentVariableW(kStay, L"window");
  ASSERT_TRUE(programs.Start("C:\\Chronel.exe"));
  SetEnvironmentVariableW(kStay, nullptr);
  EXPECT_EQ(LibFile().Delete(install + "Chronel.exe"), 0) << "it runs";
  EXPECT_EQ(programs.CloseByName("Chronel", "C:\\Program Files"), 0);
  EXPECT_EQ(programs.CloseByName("Other", install), 0);
  EXPECT_EQ(programs.CloseByName("Chronel", install), 1) << "the one in the folder";
  EXPECT_TRUE(ends(install + "Chronel.exe"));
  // The other one has its window by now, or comes to its end without.
  EXPECT_EQ(programs.CloseByName("chronel.exe", "C:\\"), 1);
  EXPECT_TRUE(ends("C:\\Chronel.exe"));
}

TEST(WindowsLocaleTest, DatesGoBothWaysInTheUsersForm) {
  TestComputer closed({.layout = false});
  WindowsLocale locale;
  DateTime moment{2024, 2, 9, 17, 5, 3};
  auto form = [](const wchar_t* pattern) { SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, pattern); };
  const std::pair<const wchar_t*, const char*> forms[] = {{L"MM/dd/yyyy", "02/09/2024"},
                                                          {L"d.M.yy", "9.2.24"},
                                                          {L"yyyy-MM-dd", "2024-02-09"},
                                                          {L"dd MMM yyyy", "09 Feb 2024"},
                                                          {L"dddd, d. MMMM yyyy", "Friday, 9. February 2024"},
                                                          {L"d 'de' MMMM yyyy", "9 de February 2024"}};
  for (const auto& [pattern, text] : forms) {
    form(pattern);
    EXPECT_EQ(locale.ShortDate(moment), text);
    EXPECT_EQ(locale.ParseDate(text), (DateTime{2024, 2, 9})) << text;
  }
  form(L"MM/dd/yyyy");
}

TEST_F(WindowsMachineTest, CacheEntriesAreListedAndRemoved) {
  computer.AddCacheEntry("https://example.org/logo.png");
  computer.AddCacheEntry("https://example.org/ä?q=1");
  Strings keys = computer.CacheKeys();
  std::sort(keys.begin(), keys.end());
  EXPECT_EQ(keys, (Strings{"https://example.org/logo.png", "https://example.org/ä?q=1"}));
  EXPECT_EQ(real.Cache().Remove("https://example.org/logo.png"), Status::Done);
  EXPECT_EQ(real.Cache().Remove("https://example.org/logo.png"), Status::Missing);
  EXPECT_EQ(computer.CacheKeys(), Strings{"https://example.org/ä?q=1"});
}

TEST(WindowsLibraries, OneBesideTheProgramIsNotTaken) {
  std::wstring path(1000, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), 1000));
  path = path.substr(0, path.rfind(L'\\') + 1) + L"beside.dll";
  HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
  ASSERT_NE(file, INVALID_HANDLE_VALUE);
  CloseHandle(file);
  auto error = [] {
    EXPECT_EQ(LoadLibraryW(L"beside.dll"), nullptr);
    return GetLastError();
  };
  // It is no library, but it was found.
  EXPECT_NE(error(), DWORD{ERROR_MOD_NOT_FOUND});
  LoadLibrariesOfTheSystemAlone();
  EXPECT_EQ(error(), DWORD{ERROR_MOD_NOT_FOUND});
  EXPECT_NE(LoadLibraryW(L"version.dll"), nullptr);
  DeleteFileW(path.c_str());
}

}  // namespace test
