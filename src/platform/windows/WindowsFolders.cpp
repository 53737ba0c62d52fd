#include "platform/windows/WindowsFolders.h"

#include <windows.h>
#include <knownfolders.h>
#include <shlobj.h>

#include "platform/PathText.h"
#include "platform/windows/WindowsText.h"

namespace platform {

namespace {

constexpr auto kLife = std::chrono::seconds(2);

std::string Plain(std::wstring_view native) {
  std::string path = ToUtf8(native);
  std::string_view plain = WithoutBackslash(path);
  return IsPlainPath(plain) ? std::string(plain) : std::string();
}

std::string KnownPath(const KNOWNFOLDERID& id) {
  PWSTR path = nullptr;
  std::string plain;
  if (SUCCEEDED(SHGetKnownFolderPath(id, KF_FLAG_DONT_VERIFY, nullptr, &path))) plain = Plain(path);
  CoTaskMemFree(path);
  return plain;
}

// The user's own, which may be told in short names.
std::string TempPath() {
  wchar_t brief[MAX_PATH + 2], whole[32768];
  DWORD length = GetTempPathW(MAX_PATH + 2, brief);
  if (length == 0 || length > MAX_PATH + 1) return {};
  length = GetLongPathNameW(brief, whole, 32768);
  return Plain(length > 0 && length < 32768 ? whole : brief);
}

std::string PathOf(KnownFolder folder) {
  switch (folder) {
    case KnownFolder::InternetCache:
      return KnownPath(FOLDERID_InternetCache);
    case KnownFolder::Cookies:
      return KnownPath(FOLDERID_Cookies);
    case KnownFolder::History:
      return KnownPath(FOLDERID_History);
    case KnownFolder::Recent:
      return KnownPath(FOLDERID_Recent);
    case KnownFolder::AppData:
      return KnownPath(FOLDERID_RoamingAppData);
    case KnownFolder::Temp:
      return TempPath();
    case KnownFolder::Windows:
    case KnownFolder::System:
      return KnownPath(FOLDERID_Windows);
    case KnownFolder::ProgramFiles:
      return KnownPath(FOLDERID_ProgramFiles);
    case KnownFolder::Profile:
      return KnownPath(FOLDERID_Profile);
    case KnownFolder::Profiles:
      return KnownPath(FOLDERID_UserProfiles);
    case KnownFolder::StartMenu:
      return KnownPath(FOLDERID_StartMenu);
    case KnownFolder::Desktop:
      return KnownPath(FOLDERID_Desktop);
    case KnownFolder::CommonStartMenu:
      return KnownPath(FOLDERID_CommonStartMenu);
    case KnownFolder::CommonDesktop:
      return KnownPath(FOLDERID_PublicDesktop);
  }
  return {};
}

}  // namespace

const std::vector<std::string>& WindowsFolders::Paths() {
  if (!played_.empty()) return played_;
  auto now = std::chrono::steady_clock::now();
  if (told_.empty() || now - toldAt_ > kLife) {
    std::vector<std::string> paths;
    for (int i = 0; i <= static_cast<int>(KnownFolder::CommonDesktop); ++i)
      paths.push_back(PathOf(static_cast<KnownFolder>(i)));
    told_ = std::move(paths);
    toldAt_ = now;
  }
  return told_;
}

std::string WindowsFolders::Find(KnownFolder folder, const WindowsPaths& paths) {
  const std::string& path = Paths()[static_cast<std::size_t>(folder)];
  std::wstring native;
  if (path.empty() || paths.Native(path, native) != Status::Done) return {};
  DWORD attributes = GetFileAttributesW(native.c_str());
  bool isFolder = attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
  return isFolder ? path : std::string();
}

std::vector<std::string> WindowsFolders::Profiles() const {
  std::vector<std::string> profiles;
  HKEY list;
  constexpr const wchar_t* kList = L"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\ProfileList";
  if (!played_.empty() || RegOpenKeyExW(HKEY_LOCAL_MACHINE, kList, 0, KEY_READ | KEY_WOW64_64KEY, &list) != 0)
    return profiles;
  for (DWORD i = 0;; ++i) {
    wchar_t name[256], path[1024];
    DWORD length = 256, size = sizeof path;
    if (RegEnumKeyExW(list, i, name, &length, nullptr, nullptr, nullptr, nullptr) != 0) break;
    // With its variables replaced.
    if (RegGetValueW(list, name, L"ProfileImagePath", RRF_RT_REG_SZ | RRF_RT_REG_EXPAND_SZ, nullptr, path,
                     &size) != 0)
      continue;
    if (std::string profile = Plain(path); !profile.empty()) profiles.push_back(std::move(profile));
  }
  RegCloseKey(list);
  return profiles;
}

std::vector<std::string> WindowsFolders::UsersOwn() const {
  std::vector<std::string> folders;
  if (!played_.empty()) return folders;
  for (const KNOWNFOLDERID* id :
       {&FOLDERID_Documents, &FOLDERID_Downloads, &FOLDERID_Pictures, &FOLDERID_Music, &FOLDERID_Videos})
    if (std::string path = KnownPath(*id); !path.empty()) folders.push_back(std::move(path));
  return folders;
}

}  // namespace platform
