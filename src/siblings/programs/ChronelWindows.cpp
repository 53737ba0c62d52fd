// The scheduler on Windows, started by the main program and at each logon. Takes no arguments; ends when its
// window, which nobody sees, is closed, or with the session.
#include <algorithm>
#include <chrono>
#include <windows.h>

#include "platform/windows/WindowsLibraries.h"
#include "platform/windows/WindowsMachine.h"
#include "siblings/chronel/Chronel.h"

namespace {

bool told = false;

LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM word, LPARAM data) {
  switch (message) {
    case WM_CLOSE:
    case WM_ENDSESSION:
      // Looked at between two files; the window stays until then.
      if (message == WM_CLOSE || word) told = true;
      return 0;
    default:
      return DefWindowProcW(window, message, word, data);
  }
}

// The window's messages, as far as they are there.
void TakeMessages() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) told = true;
    DispatchMessageW(&message);
  }
}

void Wait(std::chrono::milliseconds time) {
  using Clock = std::chrono::steady_clock;
  const Clock::time_point end = Clock::now() + time;
  while (!told) {
    auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
    if (left <= 0) return;
    MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(std::min<long long>(left, 3'600'000)),
                              QS_ALLINPUT);
    TakeMessages();
  }
}

}  // namespace

int main() {
  platform::LoadLibrariesOfTheSystemAlone();
  WNDCLASSW design{};
  design.lpfnWndProc = OnMessage;
  design.hInstance = GetModuleHandleW(nullptr);
  design.lpszClassName = L"Chronel";
  RegisterClassW(&design);
  // Not a message-only window: those aren't told of the session's end and aren't found by who wants to close
  // them.
  HWND window = CreateWindowExW(WS_EX_TOOLWINDOW, design.lpszClassName, L"Chronel", WS_POPUP, 0, 0, 0, 0,
                                nullptr, nullptr, design.hInstance, nullptr);

  chronel::Surroundings surroundings;
  surroundings.toldToEnd = [] {
    TakeMessages();
    return told;
  };
  surroundings.wait = Wait;
  platform::WindowsMachine machine;
  siblings::UnattendedDesktop desktop;
  platform::SetCurrentMachine(&machine);
  platform::SetCurrentDesktop(&desktop);
  chronel::Main(desktop, surroundings);
  platform::SetCurrentDesktop(nullptr);
  platform::SetCurrentMachine(nullptr);
  if (window) DestroyWindow(window);
  return 0;
}
