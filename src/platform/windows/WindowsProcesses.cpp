#include "platform/windows/WindowsProcesses.h"

#include <vector>
#include <windows.h>
#include <sddl.h>
#include <shellapi.h>
#include <shlobj.h>
#include <tlhelp32.h>

#include "platform/PathText.h"
#include "platform/windows/WindowsText.h"

namespace platform {

namespace {

// The program asks for more rights than this process has.
constexpr DWORD kElevationRequired = 740;

// The user that a process runs for, as text; empty if that can't be learned.
std::wstring UserOf(HANDLE process) {
  HANDLE opened;
  if (!OpenProcessToken(process, TOKEN_QUERY, &opened)) return {};
  UniqueHandle token(opened);
  std::vector<std::byte> buffer(256);
  DWORD size = 0;
  if (!GetTokenInformation(token.Get(), TokenUser, buffer.data(), static_cast<DWORD>(buffer.size()), &size))
    return {};
  wchar_t* text = nullptr;
  if (!ConvertSidToStringSidW(reinterpret_cast<TOKEN_USER*>(buffer.data())->User.Sid, &text)) return {};
  std::wstring user = text;
  LocalFree(text);
  return user;
}

// The program behind a process, in the path's long form.
std::wstring ProgramOf(HANDLE process) {
  std::wstring path(32768, L'\0');
  auto length = static_cast<DWORD>(path.size());
  if (!QueryFullProcessImageNameW(process, 0, path.data(), &length)) return {};
  path.resize(length);
  std::wstring whole(32768, L'\0');
  length = GetLongPathNameW(path.c_str(), whole.data(), static_cast<DWORD>(whole.size()));
  if (length == 0 || length >= whole.size()) return path;
  whole.resize(length);
  return whole;
}

struct WindowsOf {
  DWORD process;
  int told;
};

BOOL CALLBACK CloseWindow(HWND window, LPARAM data) {
  auto& wanted = *reinterpret_cast<WindowsOf*>(data);
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  if (process == wanted.process && PostMessageW(window, WM_CLOSE, 0, 0)) ++wanted.told;
  return TRUE;
}

}  // namespace

bool WindowsProcesses::Start(std::string_view program) {
  if (files_.Look(program).kind != EntryKind::File) return false;
  std::wstring path = paths_.ForShell(program);
  if (path.empty()) return false;
  std::wstring folder = path.substr(0, path.rfind(L'\\') + 1), command = L'"' + path + L'"';
  STARTUPINFOW start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION made{};
  if (CreateProcessW(path.c_str(), command.data(), nullptr, nullptr, FALSE, CREATE_DEFAULT_ERROR_MODE,
                     nullptr, folder.c_str(), &start, &made)) {
    CloseHandle(made.hThread);
    CloseHandle(made.hProcess);
    return true;
  }
  if (GetLastError() != kElevationRequired) return false;
  SHELLEXECUTEINFOW shell{};
  shell.cbSize = sizeof shell;
  shell.fMask = SEE_MASK_FLAG_NO_UI | SEE_MASK_NOASYNC;
  shell.lpFile = path.c_str();
  shell.lpDirectory = folder.c_str();
  shell.nShow = SW_SHOWNORMAL;
  return ShellExecuteExW(&shell);
}

int WindowsProcesses::CloseByName(std::string_view name, std::string_view folder) {
  auto bare = [this](std::string_view text) {
    std::string folded = locale_.Fold(text);
    if (folded.ends_with(".exe")) folded.resize(folded.size() - 4);
    return folded;
  };
  std::string wanted = bare(name), place = locale_.Fold(WithoutBackslash(folder));
  if (wanted.empty() || !IsPlainPath(place)) return 0;
  if (place.ends_with('\\')) place.pop_back();  // a drive's root
  std::wstring user = UserOf(GetCurrentProcess());
  UniqueHandle processes(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
  if (!processes || user.empty()) return 0;
  int told = 0;
  PROCESSENTRY32W entry{};
  entry.dwSize = sizeof entry;
  for (BOOL more = Process32FirstW(processes.Get(), &entry); more;
       more = Process32NextW(processes.Get(), &entry)) {
    if (entry.th32ProcessID == GetCurrentProcessId() || bare(ToUtf8(entry.szExeFile)) != wanted) continue;
    // While it is open its number can't come to stand for another one.
    UniqueHandle process(
        OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION | PROCESS_TERMINATE, FALSE, entry.th32ProcessID));
    if (!process || UserOf(process.Get()) != user) continue;
    std::string program = locale_.Fold(paths_.FromNative(ProgramOf(process.Get())));
    if (program.size() < place.size() || program.substr(0, program.rfind('\\')) != place ||
        bare(program.substr(program.rfind('\\') + 1)) != wanted)
      continue;
    WindowsOf windows{entry.th32ProcessID, 0};
    EnumWindows(CloseWindow, reinterpret_cast<LPARAM>(&windows));
    if (windows.told > 0 || TerminateProcess(process.Get(), 1)) ++told;
  }
  return told;
}

std::wstring WindowsProcesses::ClaimFile(std::string_view name) const {
  auto wide = ToWide(name);
  if (!wide || wide->empty() || wide->find_first_of(std::wstring_view(L"\\/:\0", 4)) != wide->npos) return {};
  return claimsFolder_ + L'\\' + *wide + L".claim";
}

bool WindowsProcesses::ClaimInstance(std::string_view name) {
  if (claims_.find(name) != claims_.end()) return true;
  std::wstring file = ClaimFile(name);
  if (file.empty()) return false;
  SHCreateDirectoryExW(nullptr, claimsFolder_.c_str(), nullptr);
  // Who only asks whether it is held has it open for that moment.
  for (int attempt = 0; attempt < 3; ++attempt) {
    if (attempt > 0) Sleep(1);
    UniqueHandle claim(CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS,
                                   FILE_ATTRIBUTE_NORMAL | FILE_FLAG_DELETE_ON_CLOSE, nullptr));
    if (!claim) continue;
    claims_.emplace(name, std::move(claim));
    return true;
  }
  return false;
}

void WindowsProcesses::ReleaseInstance(std::string_view name) {
  auto claim = claims_.find(name);
  if (claim != claims_.end()) claims_.erase(claim);
}

bool WindowsProcesses::InstanceRuns(std::string_view name) {
  if (claims_.find(name) != claims_.end()) return true;
  std::wstring file = ClaimFile(name);
  if (file.empty()) return false;
  UniqueHandle claim(CreateFileW(file.c_str(), GENERIC_READ,
                                 FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                 OPEN_EXISTING, 0, nullptr));
  return !claim && GetLastError() == ERROR_SHARING_VIOLATION;
}

}  // namespace platform
