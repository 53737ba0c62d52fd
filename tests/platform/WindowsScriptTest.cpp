// What somebody else may do between two calls, and what the system may tell.
#include <map>
#include <windows.h>
#include <sddl.h>

#include "PlatformTest.h"
#include "WindowsScript.h"
#include "platform/LibFile.h"
#include "platform/windows/WindowsRights.h"
#include "platform/windows/WindowsText.h"

using namespace platform;

namespace test {

class WindowsScriptTest : public PlatformTest {
 protected:
  std::wstring Native(const std::string& path) { return ToWide(computer.Native(path)).value(); }
  script::Scope scope;
};

// The folder has become a link in the moment between the look and the call.
TEST_F(WindowsScriptTest, WhatWasMadeElsewhereIsTakenAway) {
  computer.MakeFolder("C:\\T\\in");
  computer.MakeFolder("C:\\Outside");
  const std::wstring elsewhere = Native("C:\\Outside\\made");
  bool strayed = false;
  script::createFile = [&](LPCWSTR path, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES security, DWORD how,
                           DWORD flags, HANDLE model) {
    bool strays = std::wstring_view(path).ends_with(L"\\in\\made");
    strayed |= strays;
    return CreateFileW(strays ? elsewhere.c_str() : path, access, share, security, how, flags, model);
  };
  script::createDirectory = [&](LPCWSTR path, LPSECURITY_ATTRIBUTES security) {
    bool strays = std::wstring_view(path).ends_with(L"\\in\\made");
    return CreateDirectoryW(strays ? elsewhere.c_str() : path, security);
  };
  Status status = Status::Done;
  EXPECT_FALSE(computer.Files().Open("C:\\T\\in\\made", OpenMode::CreateNew, status));
  EXPECT_NE(status, Status::Done);
  EXPECT_TRUE(strayed);
  EXPECT_EQ(computer.List("C:\\Outside"), Strings());
  EXPECT_NE(computer.Files().CreateFolder("C:\\T\\in\\made"), Status::Done);
  EXPECT_EQ(computer.List("C:\\Outside"), Strings());
  EXPECT_TRUE(computer.Files().Open("C:\\T\\in\\other", OpenMode::CreateNew, status));
}

TEST_F(WindowsScriptTest, NoFolderIsMovedAwayWhileTheShellGoesByThePath) {
  computer.WriteFile("C:\\T\\in\\a.txt");
  bool asked = false;
  script::fileOperation = [&](LPSHFILEOPSTRUCTW operation) {
    asked = true;
    EXPECT_FALSE(MoveFileExW(Native("C:\\T\\in").c_str(), Native("C:\\T\\out").c_str(), 0));
    return SHFileOperationW(operation);
  };
  EXPECT_EQ(LibFile().MoveToRecycleBin("C:\\T\\in\\a.txt"), 0);
  EXPECT_TRUE(asked);
  EXPECT_EQ(computer.InBin(), 1);
}

TEST_F(WindowsScriptTest, AnAdministratorsNextLogonStartsNothingThatOthersMayChange) {
  const std::string program = "C:\\Program Files\\Tidorra\\Kelvish.exe";
  std::map<std::wstring, const wchar_t*> told;
  script::security = [&](const std::wstring& path) -> PSECURITY_DESCRIPTOR {
    // By an administrator, who may do everything, while others may read: as Program Files is.
    const wchar_t* text = L"O:BAD:(A;;FA;;;SY)(A;;FA;;;BA)(A;;0x1200a9;;;BU)(A;OICIIO;GA;;;CO)";
    for (const auto& [end, other] : told)
      if (path.ends_with(end)) text = other;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    ConvertStringSecurityDescriptorToSecurityDescriptorW(text, SDDL_REVISION_1, &descriptor, nullptr);
    return descriptor;
  };
  using Roots = std::vector<std::uint32_t>;
  auto roots = [&] {
    Roots all;
    for (const StartEntry& entry : computer.Machine().StartOnceEntries(program)) {
      EXPECT_EQ(entry.data, '"' + program + '"');
      all.push_back(entry.root);
    }
    return all;
  };
  EXPECT_EQ(roots(), (Roots{kLocalMachine, kCurrentUser}));
  const std::pair<const wchar_t*, const wchar_t*> cases[] = {
      {L"Kelvish.exe", L"O:BAD:(A;;FA;;;BA)(A;;0x1301bf;;;BU)"},        // anybody may write to it
      {L"Kelvish.exe", L"O:S-1-5-21-1-2-3-1001D:(A;;FA;;;BA)"},         // somebody else's own
      {L"Tidorra", L"O:BAD:(A;;FA;;;BA)(A;;0x1200ab;;;AU)"},            // or put a library beside it
      {L"Tidorra", L"O:BAD:(A;;FA;;;BA)(A;;WD;;;IU)"},                  // or give themselves the right
      {L"Program Files", L"O:BAD:(A;;FA;;;BA)(A;;0x1200e9;;;BU)"},      // or put another folder in its place
      {L"Program Files", L"O:BA"},                                      // or everything
      {L"Kelvish.exe", L"O:BAD:(XA;;FA;;;BU;(Member_of {SID(BA)}))"}};  // or what isn't known
  for (const auto& [where, rights] : cases) {
    told = {{where, rights}};
    EXPECT_EQ(roots(), Roots{kCurrentUser}) << ToUtf8(where) << " " << ToUtf8(rights);
  }
  told = {{L"Program Files", L"O:BAD:(A;;FA;;;BA)(A;;0x100006;;;AU)"}};  // only new ones beside it
  EXPECT_EQ(roots().size(), 2u);
}

}  // namespace test
