// One action of a person on a program that runs: for the test of the whole program on Windows, which starts
// the very executable that is installed.
//
// Usage: windows_press click TEXT    a button, entry or link of this text, once it stands still
//        windows_press await TEXT    until it is in sight; a last * stands for anything
//        windows_press close TITLE   the window's own close button, and until the window is gone
//        windows_press hold FILE     keeps the file in use, until one of the same name and ".free" lies
//        beside it
//
// Exit code 1 with a line that says what there was instead, if that doesn't come within a minute.
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>
#include <windows.h>

namespace {

constexpr ULONGLONG kPatience = 60'000;

std::wstring TextOf(HWND window) {
  // Sent to the window's own process, and not for ever.
  wchar_t text[1024] = {};
  DWORD_PTR length = 0;
  if (!SendMessageTimeoutW(window, WM_GETTEXT, std::size(text), reinterpret_cast<LPARAM>(text),
                           SMTO_ABORTIFHUNG, 2000, &length))
    return {};
  std::wstring plain;
  for (wchar_t c : std::wstring_view(text))
    if (c != L'&') plain += c;
  return plain;
}

bool Matches(const std::wstring& text, const std::wstring& wanted) {
  if (wanted.ends_with(L'*')) return text.starts_with(wanted.substr(0, wanted.size() - 1)) && !text.empty();
  return text == wanted;
}

struct Search {
  std::wstring wanted;
  bool pressable = false;
  HWND found = nullptr;
  std::vector<std::wstring> seen = {};
};

POINT Middle(HWND window) {
  RECT area{};
  GetWindowRect(window, &area);
  return {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
}

BOOL CALLBACK Look(HWND window, LPARAM data) {
  auto& search = *reinterpret_cast<Search*>(data);
  if (!IsWindowVisible(window)) return TRUE;
  std::wstring text = TextOf(window);
  if (text.empty()) return TRUE;
  search.seen.push_back(text);
  if (!Matches(text, search.wanted)) return TRUE;
  // Nothing lies over it.
  if (search.pressable && (!IsWindowEnabled(window) || WindowFromPoint(Middle(window)) != window))
    return TRUE;
  search.found = window;
  return FALSE;
}

BOOL CALLBACK LookInside(HWND window, LPARAM data) {
  auto& search = *reinterpret_cast<Search*>(data);
  if (!Look(window, data)) return FALSE;
  if (IsWindowVisible(window)) EnumChildWindows(window, Look, data);
  return !search.found;
}

Search Find(const std::wstring& text, bool pressable) {
  Search search{text, pressable};
  EnumWindows(LookInside, reinterpret_cast<LPARAM>(&search));
  return search;
}

int GiveUp(const Search& search) {
  std::printf("not there: %ls; but:\n", search.wanted.c_str());
  for (const std::wstring& text : search.seen) std::printf("  %ls\n", text.c_str());
  return 1;
}

void Press(POINT place) {
  INPUT input[3] = {};
  for (INPUT& each : input) each.type = INPUT_MOUSE;
  input[0].mi.dx = MulDiv(place.x * 2 + 1, 32768, GetSystemMetrics(SM_CXSCREEN));
  input[0].mi.dy = MulDiv(place.y * 2 + 1, 32768, GetSystemMetrics(SM_CYSCREEN));
  input[0].mi.dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE;
  input[1].mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
  input[2].mi.dwFlags = MOUSEEVENTF_LEFTUP;
  SendInput(3, input, sizeof(INPUT));
}

int Hold(const std::wstring& path) {
  HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return 1;
  const ULONGLONG end = GetTickCount64() + 3 * kPatience;
  while (GetFileAttributesW((path + L".free").c_str()) == INVALID_FILE_ATTRIBUTES && GetTickCount64() < end)
    Sleep(50);
  CloseHandle(file);
  return 0;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
  if (argc != 3) return 2;
  const std::wstring action = argv[1], text = argv[2];
  if (action == L"hold") return Hold(text);
  const ULONGLONG end = GetTickCount64() + kPatience;
  bool closing = false;
  int still = 0;
  HWND last = nullptr;
  POINT place{};
  while (true) {
    Search search = Find(text, action == L"click");
    if (action == L"await" && search.found) return 0;
    if (action == L"close") {
      if (closing && !search.found) return 0;
      if (search.found && !closing) PostMessageW(search.found, WM_SYSCOMMAND, SC_CLOSE, 0);
      closing = closing || search.found;
    }
    if (action == L"click" && search.found) {
      POINT now = Middle(search.found);
      still = search.found == last && now.x == place.x && now.y == place.y ? still + 1 : 0;
      last = search.found;
      place = now;
      if (still == 3) {
        Press(place);
        return 0;
      }
    }
    if (GetTickCount64() > end) return GiveUp(search);
    Sleep(50);
  }
}
