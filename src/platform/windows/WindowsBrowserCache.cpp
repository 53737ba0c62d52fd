#include "platform/windows/WindowsBrowserCache.h"

#include <unordered_set>
#include <windows.h>
#include <wininet.h>

#include "platform/windows/WindowsStatus.h"
#include "platform/windows/WindowsText.h"

namespace platform {

namespace {

// Enters the entries that a pattern lists.
Status ListKind(const wchar_t* pattern, std::vector<std::string>& keys,
                std::unordered_set<std::string>& known) {
  std::vector<std::byte> buffer(16 * 1024);
  HANDLE search = nullptr;
  Status status = Status::Done;
  for (;;) {
    auto* entry = reinterpret_cast<INTERNET_CACHE_ENTRY_INFOW*>(buffer.data());
    auto size = static_cast<DWORD>(buffer.size());
    bool found;
    if (search) {
      found = FindNextUrlCacheEntryW(search, entry, &size);
    } else {
      search = FindFirstUrlCacheEntryW(pattern, entry, &size);
      found = search != nullptr;
    }
    if (found) {
      std::string key = ToUtf8(entry->lpszSourceUrlName);
      if (known.insert(key).second) keys.push_back(std::move(key));
      continue;
    }
    DWORD error = GetLastError();
    if (error == ERROR_INSUFFICIENT_BUFFER && size > buffer.size()) {
      buffer.resize(size);
      continue;
    }
    if (error != ERROR_NO_MORE_ITEMS && error != ERROR_FILE_NOT_FOUND) status = StatusOf(error);
    break;
  }
  if (search) FindCloseUrlCache(search);
  return status;
}

}  // namespace

Status WindowsBrowserCache::List(std::vector<std::string>& keys) {
  std::unordered_set<std::string> known;
  Status status = ListKind(nullptr, keys, known);
  // Versions differ in whether the first call lists these as well.
  for (const wchar_t* pattern : {L"cookie:", L"visited:"}) {
    Status other = ListKind(pattern, keys, known);
    if (status == Status::Done) status = other;
  }
  return status;
}

Status WindowsBrowserCache::Remove(std::string_view key) {
  auto wide = ToWide(key);
  if (!wide || wide->find(L'\0') != wide->npos) return Status::Missing;
  return DeleteUrlCacheEntryW(wide->c_str()) ? Status::Done : LastStatus();
}

}  // namespace platform
