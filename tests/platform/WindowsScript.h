// The face of Windows that the backend sees, where a test lets it do what Wine doesn't.
#pragma once

#include <accctrl.h>
#include <functional>
#include <string>
#include <windows.h>
#include <shellapi.h>

namespace test::script {

// While one of these is set it is called in the place of the system's function of the same name, which it may
// call itself: its own calls go to the system.
inline std::function<HANDLE(LPCWSTR, DWORD, DWORD, LPSECURITY_ATTRIBUTES, DWORD, DWORD, HANDLE)> createFile;
inline std::function<BOOL(LPCWSTR, LPSECURITY_ATTRIBUTES)> createDirectory;
inline std::function<int(LPSHFILEOPSTRUCTW)> fileOperation;
inline std::function<PSECURITY_DESCRIPTOR(const std::wstring& path)> security;

// Takes all of them back at its end.
struct Scope {
  ~Scope() {
    createFile = {};
    createDirectory = {};
    fileOperation = {};
    security = {};
  }
};

}  // namespace test::script
