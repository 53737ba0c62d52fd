// A program calls a function of a library through a pointer that the linker takes from the import library,
// unless an object of the program itself defines it, as this one does.
#include "WindowsScript.h"

#include <aclapi.h>
#include <string>
#include <utility>

namespace test::script {

namespace {

template <typename Function>
Function System(const char* library, const char* name) {
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA(library), name)));
}

// Calls the script, whose own calls then go to the system, or else the system.
template <typename Script, typename Function, typename... Arguments>
auto Call(Script& script, Function system, Arguments... arguments) {
  thread_local bool inScript = false;
  if (!script || inScript) return system(arguments...);
  inScript = true;
  auto answer = script(arguments...);
  DWORD error = GetLastError();
  inScript = false;
  SetLastError(error);
  return answer;
}

HANDLE WINAPI CreateFileInScript(LPCWSTR path, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES security,
                                 DWORD how, DWORD flags, HANDLE model) {
  static auto system = System<decltype(&CreateFileW)>("kernel32.dll", "CreateFileW");
  return Call(createFile, system, path, access, share, security, how, flags, model);
}

BOOL WINAPI CreateDirectoryInScript(LPCWSTR path, LPSECURITY_ATTRIBUTES security) {
  static auto system = System<decltype(&CreateDirectoryW)>("kernel32.dll", "CreateDirectoryW");
  return Call(createDirectory, system, path, security);
}

int WINAPI FileOperationInScript(LPSHFILEOPSTRUCTW operation) {
  static auto system = System<decltype(&SHFileOperationW)>("shell32.dll", "SHFileOperationW");
  return Call(fileOperation, system, operation);
}

DWORD WINAPI SecurityInScript(LPCWSTR path, SE_OBJECT_TYPE type, SECURITY_INFORMATION what, PSID* owner,
                              PSID* group, PACL* list, PACL* audit, PSECURITY_DESCRIPTOR* descriptor) {
  static auto system = System<decltype(&GetNamedSecurityInfoW)>("advapi32.dll", "GetNamedSecurityInfoW");
  if (!script::security) return system(path, type, what, owner, group, list, audit, descriptor);
  *descriptor = script::security(path);
  if (!*descriptor) return ERROR_ACCESS_DENIED;
  BOOL set, present;
  GetSecurityDescriptorOwner(*descriptor, owner, &set);
  GetSecurityDescriptorDacl(*descriptor, &present, list, &set);
  if (!present) *list = nullptr;
  return ERROR_SUCCESS;
}

}  // namespace

}  // namespace test::script

extern "C" {
decltype(&CreateFileW) __imp_CreateFileW = test::script::CreateFileInScript;
decltype(&CreateDirectoryW) __imp_CreateDirectoryW = test::script::CreateDirectoryInScript;
decltype(&SHFileOperationW) __imp_SHFileOperationW = test::script::FileOperationInScript;
decltype(&GetNamedSecurityInfoW) __imp_GetNamedSecurityInfoW = test::script::SecurityInScript;
}
