#include "platform/windows/WindowsShortcuts.h"

#include <windows.h>
#include <shlobj.h>
#include <shlwapi.h>

#include "platform/ShellLink.h"
#include "platform/windows/WindowsText.h"

namespace platform {

namespace {

template <typename Interface>
class Com {
 public:
  Com() = default;
  explicit Com(Interface* object) : object_(object) {}
  ~Com() {
    if (object_) object_->Release();
  }
  Com(const Com&) = delete;
  Com& operator=(const Com&) = delete;
  Interface* operator->() const { return object_; }
  Interface* Get() const { return object_; }
  void** Put() { return reinterpret_cast<void**>(&object_); }
  explicit operator bool() const { return object_ != nullptr; }

 private:
  Interface* object_ = nullptr;
};

// The calling thread's use of the shell's objects.
class ComSession {
 public:
  ComSession() : entered_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
  ~ComSession() {
    if (entered_) CoUninitialize();
  }
  ComSession(const ComSession&) = delete;
  ComSession& operator=(const ComSession&) = delete;

 private:
  bool entered_;
};

// The path that the item ids of a shortcut stand for; empty where they stand for none.
std::wstring PathOfItems(std::span<const unsigned char> bytes) {
  ComSession session;
  Com<IShellLinkW> link;
  if (FAILED(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW, link.Put())))
    return {};
  Com<IPersistStream> file;
  Com<IStream> stream(SHCreateMemStream(bytes.data(), static_cast<UINT>(bytes.size())));
  if (!stream || FAILED(link->QueryInterface(IID_IPersistStream, file.Put())) ||
      FAILED(file->Load(stream.Get())))
    return {};
  // The ids of an installed feature are those of a stand-in.
  Com<IShellLinkDataList> data;
  DWORD flags = 0;
  if (SUCCEEDED(link->QueryInterface(IID_IShellLinkDataList, data.Put())) &&
      SUCCEEDED(data->GetFlags(&flags)) && (flags & SLDF_HAS_DARWINID))
    return {};
  PIDLIST_ABSOLUTE items = nullptr;
  if (link->GetIDList(&items) != S_OK || !items) return {};
  wchar_t path[MAX_PATH];
  bool good = SHGetPathFromIDListW(items, path);
  CoTaskMemFree(items);
  return good ? path : std::wstring();
}

std::wstring Variable(const std::wstring& name) {
  std::wstring value(32768, L'\0');
  value.resize(GetEnvironmentVariableW(name.c_str(), value.data(), static_cast<DWORD>(value.size())));
  return value;
}

// Empty for an unknown variable, where the system's own call would leave its name standing.
std::string Expand(const std::string& path) {
  std::wstring wide = ToWide(path).value_or(L""), expanded;
  for (std::size_t position = 0;;) {
    std::size_t start = wide.find(L'%', position);
    std::size_t end = start == wide.npos ? start : wide.find(L'%', start + 1);
    if (end == wide.npos) return ToUtf8(expanded.append(wide, position));
    std::wstring value = Variable(wide.substr(start + 1, end - start - 1));
    if (value.empty()) return {};
    expanded.append(wide, position, start - position).append(value);
    position = end + 1;
  }
}

}  // namespace

std::string WindowsShortcuts::Target(std::string_view path) {
  auto bytes = ReadShellLinkFile(files_, path);
  if (!bytes) return {};
  ShellLinkTarget target =
      ReadShellLink(*bytes, [this](std::string_view ansi) { return locale_.FromAnsi(ansi); });
  if (!target.localPath.empty()) return target.localPath;
  if (!target.environmentPath.empty()) return Expand(target.environmentPath);
  return ToUtf8(PathOfItems(*bytes));
}

}  // namespace platform
