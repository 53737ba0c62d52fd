#include "platform/windows/WindowsRegistry.h"

#include <cstdio>
#include <cstring>
#include <windows.h>

#include "platform/RuntimeError.h"
#include "platform/windows/WindowsText.h"

namespace platform {

// A key below one of the system's roots.
struct WindowsRegistry::Place {
  HKEY root = nullptr;
  std::wstring key;
};

namespace {

class Key {
 public:
  Key() = default;
  ~Key() {
    if (key_) RegCloseKey(key_);
  }
  Key(const Key&) = delete;
  Key& operator=(const Key&) = delete;
  HKEY Get() const { return key_; }
  HKEY* Put() { return &key_; }

 private:
  HKEY key_ = nullptr;
};

// Also for a root that this system doesn't have, and for a name that nothing can have.
bool IsAbsent(LSTATUS code) {
  return code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND || code == ERROR_KEY_DELETED ||
         code == ERROR_INVALID_HANDLE || code == ERROR_INVALID_PARAMETER;
}

bool HoldsZero(std::string_view text) {
  return text.find('\0') != text.npos;
}

RuntimeError ReadFailure(LSTATUS code) {
  switch (code) {
    case ERROR_ACCESS_DENIED:
      return PermissionDenied();
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
      return OutOfMemory();
    case ERROR_BADDB:
    case ERROR_CANTOPEN:
      return PathFileAccess();
    default:
      return DeviceIoError();
  }
}

// Up to the first zero: a text's length in the store may hold one, several or none.
std::wstring TextOf(const std::vector<BYTE>& data) {
  std::wstring text(data.size() / sizeof(wchar_t), L'\0');
  std::memcpy(text.data(), data.data(), text.size() * sizeof(wchar_t));
  text.resize(std::min(text.size(), text.find(L'\0')));
  return text;
}

std::string OtherText(DWORD type, const std::vector<BYTE>& data) {
  if (type == REG_EXPAND_SZ) {
    std::wstring text = TextOf(data), expanded(32768, L'\0');
    DWORD length =
        ExpandEnvironmentStringsW(text.c_str(), expanded.data(), static_cast<DWORD>(expanded.size()));
    if (length == 0 || length > expanded.size()) return ToUtf8(text);
    expanded.resize(length - 1);
    return ToUtf8(expanded);
  }
  if (type == REG_MULTI_SZ) {
    std::wstring texts(data.size() / sizeof(wchar_t), L'\0');
    std::memcpy(texts.data(), data.data(), texts.size() * sizeof(wchar_t));
    while (texts.ends_with(L'\0')) texts.pop_back();
    for (wchar_t& c : texts)
      if (c == L'\0') c = L' ';
    return ToUtf8(texts);
  }
  if (type == REG_QWORD && data.size() >= sizeof(std::uint64_t)) {
    std::uint64_t number;
    std::memcpy(&number, data.data(), sizeof number);
    return std::to_string(number);
  }
  std::string digits;
  for (BYTE byte : data) {
    char pair[3];
    std::snprintf(pair, sizeof pair, "%02X", byte);
    digits += pair;
  }
  return digits;
}

}  // namespace

long WindowsRegistry::Find(std::uint32_t root, std::string_view key, Place& place) const {
  if (root < kClassesRoot || root > kDynData) return ERROR_INVALID_HANDLE;
  if (HoldsZero(key)) return ERROR_INVALID_PARAMETER;
  if (!key.empty() && (key.front() == '\\' || key.back() == '\\' || key.find("\\\\") != key.npos))
    return ERROR_BAD_PATHNAME;
  auto wide = ToWide(key);
  if (!wide) return ERROR_INVALID_PARAMETER;
  // A handle of the predefined ones is its number, extended by its sign.
  auto handle = [](std::uint32_t number) {
    return reinterpret_cast<HKEY>(static_cast<LONG_PTR>(static_cast<LONG>(number)));
  };
  place = {handle(playedKey_.empty() ? root : kCurrentUser), *wide};
  if (playedKey_.empty()) return ERROR_SUCCESS;
  wchar_t number[9];
  std::swprintf(number, 9, L"%08x", root);
  place.key = playedKey_ + L'\\' + number + (wide->empty() ? L"" : L"\\") + *wide;
  return ERROR_SUCCESS;
}

RegistryValue WindowsRegistry::Read(std::uint32_t root, std::string_view key, std::string_view name) {
  Place place;
  auto wideName = ToWide(name);
  if (Find(root, key, place) != ERROR_SUCCESS || !wideName || HoldsZero(name)) return {};
  Key open;
  LSTATUS code = RegOpenKeyExW(place.root, place.key.c_str(), 0, KEY_QUERY_VALUE, open.Put());
  DWORD type = REG_NONE;
  std::vector<BYTE> data(512);
  while (code == ERROR_SUCCESS) {
    auto size = static_cast<DWORD>(data.size());
    code = RegQueryValueExW(open.Get(), wideName->c_str(), nullptr, &type, data.data(), &size);
    if (code == ERROR_SUCCESS) {
      data.resize(size);
      break;
    }
    if (code != ERROR_MORE_DATA) break;
    data.resize(std::max<std::size_t>(size, data.size() * 2));
    code = ERROR_SUCCESS;
  }
  if (IsAbsent(code)) return {};
  if (code != ERROR_SUCCESS) throw ReadFailure(code);

  RegistryValue value;
  if (type == REG_SZ) {
    value.type = ValueType::String;
    value.text = ToUtf8(TextOf(data));
  } else if (type == REG_DWORD && data.size() >= sizeof value.number) {
    value.type = ValueType::DWord;
    std::memcpy(&value.number, data.data(), sizeof value.number);
    value.text = std::to_string(value.number);
  } else {
    value.type = ValueType::Other;
    value.text = OtherText(type, data);
  }
  return value;
}

long WindowsRegistry::Write(std::uint32_t root, std::string_view key, std::string_view name,
                            const RegistryValue& value) {
  Place place;
  if (long code = Find(root, key, place)) return code;
  auto wideName = ToWide(name);
  auto text = value.type == ValueType::String ? ToWide(value.text) : std::wstring();
  if (!wideName || !text || HoldsZero(name) || text->find(L'\0') != text->npos)
    return ERROR_INVALID_PARAMETER;
  if (value.type != ValueType::String && value.type != ValueType::DWord) return ERROR_INVALID_PARAMETER;
  Key open;
  LSTATUS code = place.key.empty() ? RegOpenKeyExW(place.root, nullptr, 0, KEY_SET_VALUE, open.Put())
                                   : RegCreateKeyExW(place.root, place.key.c_str(), 0, nullptr, 0,
                                                     KEY_SET_VALUE, nullptr, open.Put(), nullptr);
  if (code != ERROR_SUCCESS) return code;
  if (value.type == ValueType::DWord)
    return RegSetValueExW(open.Get(), wideName->c_str(), 0, REG_DWORD,
                          reinterpret_cast<const BYTE*>(&value.number), sizeof value.number);
  return RegSetValueExW(open.Get(), wideName->c_str(), 0, REG_SZ,
                        reinterpret_cast<const BYTE*>(text->c_str()),
                        static_cast<DWORD>((text->size() + 1) * sizeof(wchar_t)));
}

long WindowsRegistry::RemoveValue(std::uint32_t root, std::string_view key, std::string_view name) {
  Place place;
  if (long code = Find(root, key, place)) return code;
  auto wideName = ToWide(name);
  if (!wideName || HoldsZero(name)) return 0;  // nothing has such a name
  Key open;
  LSTATUS code = RegOpenKeyExW(place.root, place.key.c_str(), 0, KEY_SET_VALUE, open.Put());
  if (code == ERROR_SUCCESS) code = RegDeleteValueW(open.Get(), wideName->c_str());
  return IsAbsent(code) ? 0 : code;
}

long WindowsRegistry::RemoveKey(std::uint32_t root, std::string_view key) {
  Place place;
  if (long code = Find(root, key, place)) return code;
  if (key.empty()) return ERROR_ACCESS_DENIED;
  LSTATUS code = RegDeleteTreeW(place.root, place.key.c_str());
  return IsAbsent(code) ? 0 : code;
}

long WindowsRegistry::Names(std::uint32_t root, std::string_view key, std::vector<std::string>& names) {
  Place place;
  if (Find(root, key, place) != ERROR_SUCCESS) return 0;
  Key open;
  LSTATUS code = RegOpenKeyExW(place.root, place.key.c_str(), 0, KEY_QUERY_VALUE, open.Put());
  std::wstring name(16384, L'\0');  // the longest that there can be, with its zero
  for (DWORD index = 0; code == ERROR_SUCCESS; ++index) {
    auto length = static_cast<DWORD>(name.size());
    code = RegEnumValueW(open.Get(), index, name.data(), &length, nullptr, nullptr, nullptr, nullptr);
    if (code == ERROR_SUCCESS) names.push_back(ToUtf8(std::wstring_view(name).substr(0, length)));
  }
  return code == ERROR_NO_MORE_ITEMS || IsAbsent(code) ? 0 : code;
}

long WindowsRegistry::RemoveAllValues(std::uint32_t root, std::string_view key) {
  Place place;
  if (long code = Find(root, key, place)) return code;
  std::vector<std::string> names;
  if (long code = Names(root, key, names)) return code;
  long first = 0;
  for (const std::string& name : names) {
    long code = RemoveValue(root, key, name);
    if (first == 0) first = code;
  }
  return first;
}

bool WindowsRegistry::KeyExists(std::uint32_t root, std::string_view key) {
  Place place;
  if (Find(root, key, place) != ERROR_SUCCESS) return false;
  Key open;
  LSTATUS code = RegOpenKeyExW(place.root, place.key.c_str(), 0, KEY_QUERY_VALUE, open.Put());
  if (code == ERROR_SUCCESS || code == ERROR_ACCESS_DENIED) return true;
  if (IsAbsent(code)) return false;
  throw ReadFailure(code);
}

StoreState WindowsRegistry::State() {
  StoreState state;
  // Where the settings lie, or will be made.
  for (const char* key : {"Software\\Orvane\\Tidorra", "Software"}) {
    Place place;
    if (Find(kCurrentUser, key, place) != ERROR_SUCCESS) continue;
    state.place = std::string("HKEY_CURRENT_USER\\") + key;
    Key open;
    LSTATUS code = RegOpenKeyExW(place.root, place.key.c_str(), 0,
                                 KEY_QUERY_VALUE | KEY_SET_VALUE | KEY_CREATE_SUB_KEY, open.Put());
    if (IsAbsent(code)) continue;
    if (code == ERROR_SUCCESS) break;
    code = RegOpenKeyExW(place.root, place.key.c_str(), 0, KEY_QUERY_VALUE, open.Put());
    state.health = code == ERROR_SUCCESS ? StoreHealth::ReadOnly : StoreHealth::Unreachable;
    state.fault = code == ERROR_SUCCESS ? "The settings can't be written." : "The settings can't be read.";
    state.advice = "See that you may read and write this key of the registry.";
    break;
  }
  return state;
}

}  // namespace platform
