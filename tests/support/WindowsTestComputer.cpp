// A stage on a computer of Wine's that nothing leads out of; see tools/with-wine.
#include <algorithm>
#include <stdexcept>
#include <windows.h>
#include <shellapi.h>
#include <wininet.h>

#include "platform/FolderLayout.h"
#include "platform/RandomName.h"
#include "platform/windows/WindowsText.h"
#include "support/TestComputer.h"

namespace test {

namespace {

std::wstring Wide(std::string_view text) {
  return platform::ToWide(text).value();
}

void Expect(bool good, const std::string& what) {
  if (!good) throw std::runtime_error("the test computer failed: " + what);
}

FARPROC OfWine(const char* library, const char* function) {
  return GetProcAddress(GetModuleHandleA(library), function);
}

// Wine, and no other drive than C: what with-wine makes.
bool IsClosed() {
  return OfWine("ntdll.dll", "wine_get_version") && GetLogicalDrives() == 1u << 2;
}

// What the operations of this system can't do with links under Wine is done from below. The commands' own end
// can't be waited for, so they end with making a file.
class Below {
 public:
  explicit Below(const std::string& root) : done_(Wide(root) + L"\\done") {}

  static std::string UnixPath(const std::wstring& native) {
    auto ask = reinterpret_cast<char*(CDECL*)(LPCWSTR)>(
        reinterpret_cast<void*>(OfWine("kernel32.dll", "wine_get_unix_file_name")));
    char* path = ask ? ask(native.c_str()) : nullptr;
    Expect(path != nullptr, "a path below");
    std::string copy = path;
    HeapFree(GetProcessHeap(), 0, path);
    return copy;
  }

  void Run(const std::string& command) {
    std::wstring line =
        L"\\\\?\\unix\\bin\\sh -c \"" + Wide(command + " && touch '" + UnixPath(done_) + "'") + L"\"";
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION made{};
    Expect(CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &made),
           command);
    CloseHandle(made.hThread);
    CloseHandle(made.hProcess);
    for (int i = 0; i < 2000 && GetFileAttributesW(done_.c_str()) == INVALID_FILE_ATTRIBUTES; ++i) Sleep(5);
    Expect(DeleteFileW(done_.c_str()), command);
  }

 private:
  std::wstring done_;
};

// With all that is in it, read-only or not; never through a link, and what is none.
bool RemoveAll(const std::wstring& native) {
  DWORD attributes = GetFileAttributesW(native.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return true;
  if (attributes & FILE_ATTRIBUTE_REPARSE_POINT) return false;
  if (attributes & FILE_ATTRIBUTE_READONLY) SetFileAttributesW(native.c_str(), FILE_ATTRIBUTE_NORMAL);
  if (!(attributes & FILE_ATTRIBUTE_DIRECTORY)) return DeleteFileW(native.c_str());
  WIN32_FIND_DATAW entry;
  HANDLE search = FindFirstFileW((native + L"\\*").c_str(), &entry);
  bool all = true;
  if (search != INVALID_HANDLE_VALUE) {
    do {
      std::wstring_view name = entry.cFileName;
      if (name != L"." && name != L"..") all = RemoveAll(native + L'\\' + entry.cFileName) && all;
    } while (FindNextFileW(search, &entry));
    FindClose(search);
  }
  return RemoveDirectoryW(native.c_str()) && all;
}

bool hasLinks = false;
long long binned = 0;

long long InTheBin() {
  SHQUERYRBINFO info{};
  info.cbSize = sizeof info;
  SHQueryRecycleBinW(nullptr, &info);
  return info.i64NumItems;
}

void EmptyTheCache() {
  for (;;) {
    std::vector<std::byte> buffer(64 * 1024);
    auto size = static_cast<DWORD>(buffer.size());
    auto* entry = reinterpret_cast<INTERNET_CACHE_ENTRY_INFOW*>(buffer.data());
    HANDLE search = FindFirstUrlCacheEntryW(nullptr, entry, &size);
    if (!search) return;
    std::wstring key = entry->lpszSourceUrlName;
    FindCloseUrlCache(search);
    if (!DeleteUrlCacheEntryW(key.c_str())) return;
  }
}

char Small(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + 32) : letter;
}

}  // namespace

void TestComputer::MakeRoot() {
  Expect(IsClosed(), "it runs on a closed computer alone: use tools/with-wine");
  root_ = "C:\\test\\computer-" + platform::RandomName(8);
  CreateDirectoryW(L"C:\\test", nullptr);
  Expect(CreateDirectoryW(Wide(root_).c_str(), nullptr), root_);
  Expect(CreateDirectoryW(Wide(root_ + "\\drives").c_str(), nullptr), root_);
  for (auto [letter, kind] : options_.drives)
    CreateDirectoryW(Wide(root_ + "\\drives\\" + Small(letter)).c_str(), nullptr);
  // What the program's tests expect; elsewhere these are the user's own.
  SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, L"MM/dd/yyyy");
  SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_STIMEFORMAT, L"HH:mm:ss");
  platform::FolderLayout layout(options_.userName);
  auto set = [&](const wchar_t* name, platform::KnownFolder folder) {
    SetEnvironmentVariableW(name, Wide(layout.Path(folder)).c_str());
  };
  set(L"windir", platform::KnownFolder::Windows);
  set(L"SystemRoot", platform::KnownFolder::Windows);
  set(L"ProgramFiles", platform::KnownFolder::ProgramFiles);
  set(L"USERPROFILE", platform::KnownFolder::Profile);
  set(L"APPDATA", platform::KnownFolder::AppData);
  EmptyTheCache();
  binned = InTheBin();
  hasLinks = false;
}

void TestComputer::RemoveRoot() {
  std::wstring key = L"Software\\BrasmirTest\\" + Wide(root_.substr(root_.rfind('\\') + 1));
  RegDeleteTreeW(HKEY_CURRENT_USER, key.c_str());
  if (hasLinks) Below("C:\\test").Run("rm -rf '" + Below::UnixPath(Wide(root_)) + "'");
  RemoveAll(L"\\\\?\\" + Wide(root_));
}

RealOptions TestComputer::Options() {
  RealOptions options;
  options.clock = &clock;
  options.stage.folder = root_ + "\\drives";
  options.stage.registryKey = "Software\\BrasmirTest\\" + root_.substr(root_.rfind('\\') + 1);
  for (auto [letter, kind] : options_.drives) options.stage.drives.push_back({letter, kind});
  std::sort(options.stage.drives.begin(), options.stage.drives.end(),
            [](const auto& a, const auto& b) { return a.letter < b.letter; });
  options.stage.knownFolders = platform::FolderLayout(options_.userName).Paths();
  return options;
}

std::string TestComputer::Native(std::string_view path) const {
  Expect(path.size() >= 2 && path[1] == ':', "a path without a drive: " + std::string(path));
  std::string native = root_ + "\\drives\\" + Small(path[0]) + std::string(path.substr(2));
  while (native.ends_with('\\')) native.pop_back();
  return native;
}

// Shared with everybody, so that what has it open doesn't notice.
std::string TestComputer::ReadFile(std::string_view path) const {
  HANDLE file =
      CreateFileW((L"\\\\?\\" + Wide(Native(path))).c_str(), GENERIC_READ,
                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return {};
  LARGE_INTEGER size{};
  GetFileSizeEx(file, &size);
  std::string content(static_cast<std::size_t>(size.QuadPart), '\0');
  DWORD read = 0;
  ::ReadFile(file, content.data(), static_cast<DWORD>(content.size()), &read, nullptr);
  content.resize(read);
  CloseHandle(file);
  return content;
}

bool TestComputer::Exists(std::string_view path) const {
  return GetFileAttributesW((L"\\\\?\\" + Wide(Native(path))).c_str()) != INVALID_FILE_ATTRIBUTES;
}

bool TestComputer::IsLink(std::string_view path) const {
  DWORD attributes = GetFileAttributesW(Wide(Native(path)).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT);
}

void TestComputer::Remove(std::string_view path) {
  std::wstring native = Wide(Native(path));
  if (hasLinks)
    Below(root_).Run("rm -rf '" + Below::UnixPath(native) + "'");
  else
    RemoveAll(L"\\\\?\\" + native);
}

void TestComputer::MakeLink(std::string_view path, std::string_view target) {
  hasLinks = true;
  std::string native = Native(path);
  MakeFolder(path.substr(0, path.rfind('\\')));
  std::string folder = Below::UnixPath(Wide(native.substr(0, native.rfind('\\'))));
  std::string place = folder + "/" + native.substr(native.rfind('\\') + 1);
  Below(root_).Run("ln -s '" + Below::UnixPath(Wide(Native(target))) + "' '" + place + "'");
}

void TestComputer::MakeSparseFile(std::string_view path, std::uint64_t size) {
  WriteFile(path, {});
  HANDLE file = CreateFileW(Wide(Native(path)).c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  LARGE_INTEGER end;
  end.QuadPart = static_cast<LONGLONG>(size);
  Expect(SetFilePointerEx(file, end, nullptr, FILE_BEGIN) && SetEndOfFile(file), "a sparse file");
  CloseHandle(file);
}

void TestComputer::AddCacheEntry(std::string_view key, std::string_view file, std::string_view content) {
  std::wstring url = Wide(key), path(MAX_PATH, L'\0');
  Expect(CreateUrlCacheEntryW(url.c_str(), static_cast<DWORD>(content.size()), nullptr, path.data(), 0),
         "a cache entry");
  HANDLE made = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
  DWORD written = 0;
  Expect(::WriteFile(made, content.data(), static_cast<DWORD>(content.size()), &written, nullptr),
         "a cache entry's file");
  CloseHandle(made);
  Expect(CommitUrlCacheEntryW(url.c_str(), path.c_str(), {}, {}, NORMAL_CACHE_ENTRY, nullptr, 0, nullptr,
                              nullptr),
         "a cache entry");
  // Where the test looks for the file; the cache has one of its own.
  std::string folder = platform::FolderLayout(options_.userName).Path(platform::KnownFolder::InternetCache);
  if (!file.empty()) this->WriteFile(folder + "\\" + std::string(file), content);
}

int TestComputer::InBin() {
  return static_cast<int>(InTheBin() - binned);
}

}  // namespace test
