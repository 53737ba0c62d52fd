#include "platform/windows/WindowsRights.h"

#include <aclapi.h>
#include <algorithm>
#include <windows.h>
#include <sddl.h>

#include "platform/ScopeGuard.h"

namespace platform {

namespace {

// Rights by which a thing comes to be another one.
constexpr DWORD kReplace = DELETE | WRITE_DAC | WRITE_OWNER | FILE_DELETE_CHILD | GENERIC_ALL;
// And those by which something is put into a file or a folder.
constexpr DWORD kFill = FILE_WRITE_DATA | FILE_APPEND_DATA | FILE_WRITE_EA | GENERIC_WRITE;

bool IsOneOf(PSID sid, std::initializer_list<const wchar_t*> names) {
  wchar_t* text = nullptr;
  if (!ConvertSidToStringSidW(sid, &text)) return false;
  bool found = std::any_of(names.begin(), names.end(),
                           [&](const wchar_t* name) { return std::wstring_view(text) == name; });
  LocalFree(text);
  return found;
}

bool IsTrusted(PSID sid) {
  // The system, administrators, and the service that installs Windows' own files.
  return IsOneOf(
      sid, {L"S-1-5-18", L"S-1-5-32-544", L"S-1-5-80-956008885-3418522649-1831038044-1853292631-2271478464"});
}

bool OnlyTrustedHave(const std::wstring& native, DWORD rights) {
  PSID owner = nullptr;
  PACL list = nullptr;
  PSECURITY_DESCRIPTOR descriptor = nullptr;
  std::wstring path = native;
  if (GetNamedSecurityInfoW(path.data(), SE_FILE_OBJECT,
                            OWNER_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION, &owner, nullptr, &list,
                            nullptr, &descriptor) != ERROR_SUCCESS)
    return false;
  ScopeGuard free([&] { LocalFree(descriptor); });
  // Without a list everybody may do everything.
  if (!owner || !list || !IsTrusted(owner)) return false;
  for (WORD i = 0; i < list->AceCount; ++i) {
    void* entry = nullptr;
    if (!GetAce(list, i, &entry)) return false;
    auto* header = static_cast<ACE_HEADER*>(entry);
    if ((header->AceFlags & INHERIT_ONLY_ACE) || header->AceType == ACCESS_DENIED_ACE_TYPE) continue;
    // Other kinds, by conditions or for parts of an object, aren't judged.
    if (header->AceType != ACCESS_ALLOWED_ACE_TYPE) return false;
    auto* allowed = static_cast<ACCESS_ALLOWED_ACE*>(entry);
    if ((allowed->Mask & rights) && !IsTrusted(&allowed->SidStart)) return false;
  }
  return true;
}

}  // namespace

bool OnlyAdministratorsMayChange(const std::wstring& native) {
  constexpr std::size_t kRoot = 7;  // "\\\\?\\C:\\"
  std::size_t last = native.rfind(L'\\');
  if (last == native.npos || last < kRoot || !OnlyTrustedHave(native, kReplace | kFill) ||
      !OnlyTrustedHave(native.substr(0, last), kReplace | kFill))
    return false;
  while ((last = native.rfind(L'\\', last - 1)) > kRoot)
    if (!OnlyTrustedHave(native.substr(0, last), kReplace)) return false;
  return true;
}

}  // namespace platform
