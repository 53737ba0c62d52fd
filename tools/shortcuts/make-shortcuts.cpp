// Makes the shortcut files of this folder in the current folder; the script beside it runs it. They come from
// the shell of Wine and not from this program's own tests, so that the reader is held against another
// program's writing.
#include <windows.h>
// After the system's header.
#include <string>
#include <shlobj.h>

namespace {

struct Shortcut {
  const wchar_t *file, *target;
  const wchar_t *arguments = nullptr, *workingFolder = nullptr, *icon = nullptr;
  bool relative = false;
};

bool Make(const Shortcut& shortcut) {
  IShellLinkW* link = nullptr;
  IPersistFile* persist = nullptr;
  if (FAILED(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW,
                              reinterpret_cast<void**>(&link))))
    return false;
  bool done = SUCCEEDED(link->SetPath(shortcut.target));
  if (shortcut.arguments) link->SetArguments(shortcut.arguments);
  if (shortcut.workingFolder) link->SetWorkingDirectory(shortcut.workingFolder);
  if (shortcut.icon) link->SetIconLocation(shortcut.icon, 3);
  // Wine writes this text without the flag that tells of it.
  if (shortcut.relative) link->SetRelativePath(L"..\\viewer.exe", 0);
  link->SetDescription(L"A shortcut");
  wchar_t folder[MAX_PATH];
  GetCurrentDirectoryW(MAX_PATH, folder);
  std::wstring path = std::wstring(folder) + L"\\" + shortcut.file;
  done = done && SUCCEEDED(link->QueryInterface(IID_IPersistFile, reinterpret_cast<void**>(&persist)));
  done = done && SUCCEEDED(persist->Save(path.c_str(), TRUE));
  if (persist) persist->Release();
  link->Release();
  return done;
}

void Touch(const wchar_t* path) {
  CloseHandle(CreateFileW(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
}

}  // namespace

int main() {
  CoInitialize(nullptr);
  CreateDirectoryW(L"C:\\Old Viewer", nullptr);
  Touch(L"C:\\Old Viewer\\viewer.exe");
  CreateDirectoryW(L"C:\\Отчёт", nullptr);
  Touch(L"C:\\Отчёт\\写真 Ω.txt");
  std::wstring deep = L"C:";
  for (int i = 0; i < 12; ++i) {
    deep += L"\\a folder whose name is long";
    CreateDirectoryW((L"\\\\?\\" + deep).c_str(), nullptr);
  }
  std::wstring cut = deep.substr(0, 240) + L"\\x.txt";
  const Shortcut shortcuts[] = {
      {L"latin.lnk", L"C:\\Old Viewer\\viewer.exe"},
      {L"missing.lnk", L"C:\\Old Viewer\\not there.exe"},
      {L"other-scripts.lnk", L"C:\\Отчёт\\写真 Ω.txt"},
      {L"folder.lnk", L"C:\\Old Viewer"},
      {L"long.lnk", cut.c_str()},
      {L"network.lnk", L"\\\\server\\share\\docs\\report.txt"},
      {L"full.lnk", L"C:\\Old Viewer\\viewer.exe", L"/all \"C:\\a b.txt\"", L"C:\\Old Viewer",
       L"C:\\Old Viewer\\viewer.exe"},
      {L"out-of-step.lnk", L"C:\\Old Viewer\\viewer.exe", nullptr, L"C:\\Old Viewer", nullptr, true},
  };
  bool done = true;
  for (const Shortcut& shortcut : shortcuts) done = Make(shortcut) && done;
  CoUninitialize();
  return done ? 0 : 1;
}
